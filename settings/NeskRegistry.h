#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nesk {

class RegEntry;

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
    /// is wrong and where, of which the caller is not told; what was written by then stays. A field that Load
    /// could not read for a fault of the registry, and that has the same value still, is read first: the
    /// setting is not lost when the fault has passed.
    void Save();

    /// Full path of the menu file; "" when NeskRoot is empty or no existing folder.
    std::string MenuFile() const;

    /// The same without a look at the disk: "" only when NeskRoot is empty.
    std::string MenuPath() const;

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

private:
    /// A text that Load could not read, and what its field held then.
    struct Unread {
        const char* name;
        std::string NeskRegistry::*field;
        std::string value;
    };

    void ReadSampleSize(RegEntry& entry);
    void ReadWhatWasNotRead(RegEntry& entry);

    std::vector<Unread> m_unread;
    bool m_sampleSizeUnread = false;
    std::int16_t m_unreadSampleSize = 0;
};

} // namespace nesk
