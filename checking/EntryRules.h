#pragma once

#include "checking/FileFacts.h"
#include "checking/Finding.h"
#include "checking/TextFields.h"

#include <array>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace nesk {

class MenuEntry;

/// What a check needs to know about the operator's screen.
struct CheckOptions {
    /// Number of buttons on one screen; 0 when it is not known.
    int buttonsPerScreen = 0;

    /// Returns whether a caption can be shown on a button without being cut. Empty when that is not known.
    std::function<bool(std::string_view caption)> captionFits;
};

/// A problem of an entry, without its texts.
struct Problem {
    FindingKind kind = FindingKind::NoCaption;
    std::optional<TextField> field; ///< nothing for a problem of the entry itself
};

/// The rules for one entry: what about it will not work.
namespace EntryRules {

/// The fields that name files.
inline constexpr std::array FileFields{TextField::Picture, TextField::Preview, TextField::Program,
                                       TextField::HelpFile, TextField::HistoryDir};

/// What the path in a field is used for.
FileUse UseOf(TextField field);

/// The path in a field that has to be looked up; "" for none. A submenu has a picture and no other file; a
/// plain program identifier is not a path.
std::string_view PathOf(const MenuEntry& entry, TextField field);

/// Adds the problems that the entry shows without looking at other entries and at files.
void AddOwnProblems(const MenuEntry& entry, const CheckOptions& options, std::vector<Problem>& problems);

/// Adds the problem of a file, if it has one.
void AddFileProblem(TextField field, const FileFacts& facts, std::vector<Problem>& problems);

/// A number for a caption or a title: equal for two texts that an operator cannot tell apart, which are those
/// that differ in case and in surrounding spaces alone; 0 for an empty text.
std::uint64_t KeyOf(std::string_view text);

/// The first byte that the code page cannot decode, for example "8D". "" if it can decode all bytes.
std::string FirstNotDecodable(std::string_view text);

} // namespace EntryRules

} // namespace nesk
