#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nesk {

class RegEntry;

/// The settings of the operator interface that this program edits. Each field has the name of its registry
/// value. A new record has empty texts and zero numbers.
class NeskRegistry {
public:
    /// The program's only record, created on first use.
    static NeskRegistry& Instance();

    /// Reads the record from the registry. Does not raise errors: values that cannot be read are skipped. A
    /// SampleSize that is not a 16-bit number keeps its former value. HistoryMaxParts is 20 unless there is a
    /// subkey of that name.
    void Load();

    /// Writes the record to the registry. The first failure stops it and is shown as an error report with the
    /// cause and the location. The caller is not informed of the failure, and the values already written
    /// stay. A field that Load could not read because of a registry error, and whose value has not changed
    /// since, is read again first: so the setting is not lost when the error no longer occurs.
    void Save();

    /// Full path of the menu file; "" when NeskRoot is empty or not an existing folder.
    std::string MenuFile() const;

    /// Full path of the menu file without checking the disk; "" only when NeskRoot is empty.
    std::string MenuPath() const;

    std::string NeskMachine;            ///< "Machines\" and the machine's subkey
    std::string NeskUser;               ///< "Users\" and the user's subkey
    std::string HistoryDirectory;       ///< default directory of the measurement history
    std::string HistoryTitle;           ///< default title of the measurement history
    std::string DefaultSlideDirectory;  ///< default directory of slides
    std::string ExitKey;                ///< access code to leave the operator interface, decimal digits
    std::string NeskRoot;               ///< root directory; contains the menu file
    std::string DefaultBitmapDirectory; ///< default directory of button pictures
    std::int16_t SampleSize = 0;
    std::int16_t HistoryMaxParts = 0; ///< maximum number of parts in a history
    std::string PrinterDevice;
    std::string PrinterDriver;
    std::string PrinterOrientation; ///< decimal text, like the next four fields
    std::string PrinterPaperSize;
    std::string PrinterPaperBin;
    std::string PrinterQuality;
    std::string PrinterZoom; ///< in percent

private:
    /// A text that Load could not read, and the value that its field had then.
    struct Unread {
        const char* name;
        std::string NeskRegistry::*field;
        std::string value;
    };

    void ReadSampleSize(RegEntry& entry);
    void ReadSkippedSettings(RegEntry& entry);

    std::vector<Unread> m_unread;
    bool m_sampleSizeUnread = false;
    std::int16_t m_unreadSampleSize = 0;
};

} // namespace nesk
