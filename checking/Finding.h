#pragma once

#include "checking/TextFields.h"

#include <bitset>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

class MenuEntry;

/// How much a problem matters to the operator.
enum class Severity : std::uint8_t {
    None,
    Hint,    ///< the button works, but could be better
    Warning, ///< something is missing on the screen or afterwards
    Error    ///< the button does not do its work, or the menu cannot be saved
};

/// What can be done about a problem.
enum class Fix : std::uint8_t {
    ChooseFile,   ///< choose another file or folder for the field
    ChangeFolder, ///< give the folder of the file another place, for all paths in it
    Clear,        ///< empty the field
    MakeFolder,   ///< make the missing history directory
    Rename,       ///< give the entry another caption
    Edit,         ///< change the field in the dialog of the entry
    Count
};

using FixSet = std::bitset<static_cast<std::size_t>(Fix::Count)>;

/// The kinds of problems.
enum class FindingKind : std::uint8_t {
    NoCaption,
    DoubledCaption,
    LongCaption,
    EmptySubmenu,
    TooManyButtons,
    NoProgram,
    ProgramIsPath, ///< a path that is no reference to a part
    FileMissing,
    FileUnreadable,
    NoPicture, ///< a file that is not a picture, or is damaged
    PictureTooLarge,
    FolderInsteadOfFile,
    FileInsteadOfFolder,
    FolderMissing,
    FolderUnreadable,
    NoPartName,
    TopicWithoutFile,
    SharedTitle,
    NotEncodable, ///< a character that the station's code page does not have
    NotDecodable, ///< a byte that is no character of the station's code page
    Count
};

/// A problem of one entry. It refers to an entry of the open menu, so it is valid until the menu is changed
/// or saved.
struct Finding {
    FindingKind kind = FindingKind::NoCaption;
    Severity severity = Severity::None;
    const MenuEntry* entry = nullptr;
    std::optional<TextField> field; ///< nothing for a problem of the entry itself
    int messageId = 0;
    std::vector<std::string> arguments; ///< of the message
    FixSet fixes;

    /// The message with its arguments.
    std::string Text() const;

    /// The name of the field; "" for none.
    std::string FieldName() const;
};

/// What is the same for all problems of one kind in one field.
namespace FindingKinds {

/// How much a kind matters. A missing part program matters more than a missing picture.
Severity SeverityOf(FindingKind kind, std::optional<TextField> field);

int MessageOf(FindingKind kind);

FixSet FixesOf(FindingKind kind, std::optional<TextField> field);

} // namespace FindingKinds

} // namespace nesk
