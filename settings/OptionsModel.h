#pragma once

#include "platform/PrinterSetup.h"

#include <cstdint>
#include <optional>
#include <string>

namespace nesk {

class NeskRegistry;

/// The state of the options dialog: the texts of its boxes, and working copies of settings without a box.
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

/// The rules of the options dialog.
namespace OptionsModel {

/// A box of the dialog.
enum class Field { Root, Slides, Bitmap, Machine, User, MaxParts, SampleSize };

/// The reason why the fields cannot be stored.
struct Fault {
    Field field;                            ///< the box that gets the focus
    std::string message;                    ///< text of the message box
    std::optional<std::string> replacement; ///< new text for the box; nothing when its text stays
    std::string reason; ///< the reason, for display in the dialog; "" when the message already says it
};

/// The two numbers in the form in which they are stored.
struct Numbers {
    std::int16_t maxParts = 0;
    std::int16_t sampleSize = 0;
};

/// Creates the fields from the settings of the record.
OptionsFields Load(const NeskRegistry& settings);

/// Sets `name` to the display name of a machine or user. Leaves it unchanged when the key does not exist.
void ShowName(const std::string& key, std::string& name);

/// True when there is a history. Without a history its two numbers are not used, and both are set to "0".
bool ApplyHistoryRule(OptionsFields& fields);

/// True when a root folder is missing and could be created. It must be a full path below a drive, or be on a
/// share.
bool RootCanBeMade(const std::string& root);

/// The folder without trailing separators.
std::string StripTrailingSeparators(std::string folder);

/// Checks the fields in order. Raises Overflow for a number that cannot be represented.
/// @param numbers  set when there is no fault
/// @return the first fault; nothing when all fields can be stored
std::optional<Fault> Check(const OptionsFields& fields, Numbers& numbers);

/// Title of the message about a fault.
std::string FaultTitle();

/// Puts fields that have passed Check into the record. Does not save the record.
void Apply(const OptionsFields& fields, const Numbers& numbers, NeskRegistry& settings);

} // namespace OptionsModel
} // namespace nesk
