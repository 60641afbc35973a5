#pragma once

#include "platform/PrinterSetup.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nesk {

class NeskRegistry;

/// What the options dialog holds: the texts of its boxes, and working copies that no box shows.
struct OptionsFields {
    // Texts of the boxes.
    std::string root;
    std::string slides;
    std::string bitmap;
    std::string machine; ///< display name
    std::string user;    ///< display name
    std::string maxParts;
    std::string sampleSize;

    // Working copies.
    std::string machineKey; ///< "Machines\" and the machine's subkey
    std::string userKey;    ///< "Users\" and the user's subkey
    std::string historyDirectory;
    std::string historyTitle;
    platform::PrinterValues printer;
};

/// What the options dialog decides.
namespace OptionsModel {

/// A box of the dialog.
enum class Field { Root, Slides, Bitmap, Machine, User, MaxParts, SampleSize };

/// Why the fields cannot be stored.
struct Fault {
    Field field;                            ///< the box that gets the focus
    std::string message;                    ///< text of the message box
    std::optional<std::string> replacement; ///< text that the box gets; nothing leaves it as it is
    std::string reason; ///< what is wrong, to stand in the dialog; "" where the message says it
};

/// The two numbers as they are stored.
struct Numbers {
    std::int16_t maxParts = 0;
    std::int16_t sampleSize = 0;
};

/// The fields with the settings of the record.
OptionsFields Load(const NeskRegistry& settings);

/// Puts the display name of a machine or user into `name`; leaves it as it is when there is no such key.
void ShowName(const std::string& key, std::string& name);

/// True when there is a history. Without one its two numbers are not used: both are set to "0".
bool ApplyHistoryRule(OptionsFields& fields);

/// Whether a root folder is missing that could be created: a full path below a drive, or a share.
bool RootCanBeMade(const std::string& root);

/// The folder without the separators at its end.
std::string StripTrailingSeparators(std::string folder);

/// Checks the fields one after the other.
/// @param numbers  filled when nothing is at fault
/// @return the first fault; nothing when all fields can be stored
/// Raises Overflow for a number that nothing can hold.
std::optional<Fault> Check(const OptionsFields& fields, Numbers& numbers);

/// Title of the message about a fault.
std::string FaultTitle();

/// Puts fields that Check has passed into the record, which is not saved.
void Apply(const OptionsFields& fields, const Numbers& numbers, NeskRegistry& settings);

} // namespace OptionsModel
} // namespace nesk
