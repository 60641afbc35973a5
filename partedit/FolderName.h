#pragma once

#include <string>

/// Rules for the name of a new folder, and the path that results from it.
namespace nesk::FolderName {

/// True when a name may contain the character. Only ":" is rejected, because it would begin a path of its
/// own. "\" is accepted, so that nested folders can be created in one step.
bool Accepts(char32_t character);

/// The text without the characters that Accepts rejects.
std::string WithoutRefused(const std::string& text);

/// The name without leading and trailing spaces, and then without leading and trailing "\". "" when nothing
/// is left.
std::string Clean(const std::string& text);

/// The path of a folder, with a trailing "\".
/// @param base  the parent folder
/// @param name  a result of Clean, not empty
std::string PathIn(const std::string& base, const std::string& name);

} // namespace nesk::FolderName
