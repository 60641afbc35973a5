#pragma once

#include <cstdint>
#include <string>

namespace nesk {

/// The settings of the operator interface that this program edits, each field named like its registry value.
/// A new record has empty texts and zero numbers.
class NeskRegistry {
public:
    /// The one record of the program, created on first use.
    static NeskRegistry& Instance();

    /// Fills the record from the registry. Raises nothing: what cannot be read is skipped. A SampleSize that
    /// is no 16-bit number keeps its former value, and HistoryMaxParts is 20 unless there is a subkey of that
    /// name.
    void Load();

    /// Writes the record to the registry. The first failure ends it and is shown as an error report with what
    /// is wrong and where, of which the caller is not told; what was written by then stays.
    void Save();

    /// Full path of the menu file; "" when NeskRoot is empty or no existing folder.
    std::string MenuFile() const;

    std::string NeskMachine;            ///< "Machines\" and the machine's subkey
    std::string NeskUser;               ///< "Users\" and the user's subkey
    std::string HistoryDirectory;       ///< default directory of the measurement history
    std::string HistoryTitle;           ///< default title of the measurement history
    std::string DefaultSlideDirectory;  ///< default directory of slides
    std::string ExitKey;                ///< access code that leaves the operator interface, decimal digits
    std::string NeskRoot;               ///< root directory, in which the menu file lies
    std::string DefaultBitmapDirectory; ///< default directory of button pictures
    std::int16_t SampleSize = 0;
    std::int16_t HistoryMaxParts = 0; ///< largest number of parts kept in a history
    std::string PrinterDevice;
    std::string PrinterDriver;
    std::string PrinterOrientation; ///< decimal text, like the four below
    std::string PrinterPaperSize;
    std::string PrinterPaperBin;
    std::string PrinterQuality;
    std::string PrinterZoom; ///< percent
};

} // namespace nesk
