#pragma once

#include <string>

/// What may be typed as the name of a new folder, and where it leads to.
namespace nesk::FolderName {

/// True when the character may stand in a name. Only ":" may not: it would begin a path of its own. "\" may,
/// so that nested folders are made at once.
bool Accepts(char32_t character);

/// The text without the characters that Accepts refuses.
std::string WithoutRefused(const std::string& text);

/// The name that a typed text means: without the blanks around it, then without the "\" at its front and at
/// its end. "" when nothing is left.
std::string Clean(const std::string& text);

/// The path of a folder, with a trailing "\".
/// @param base  folder in which it lies
/// @param name  a result of Clean, not empty
std::string PathIn(const std::string& base, const std::string& name);

} // namespace nesk::FolderName
