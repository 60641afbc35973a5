#pragma once

#include <string>
#include <string_view>

/// Conversion of text between the program, which uses UTF-8, and the system, which uses UTF-16.
namespace nesk::platform::windows {

/// Converts a text to UTF-16; invalid UTF-8 becomes U+FFFD.
std::wstring ToWide(std::string_view text);

/// Converts a text to UTF-8; an unpaired surrogate becomes U+FFFD.
std::string FromWide(std::wstring_view text);

/// Converts a path for the file functions, whatever its length: absolute, with single separators, and, if
/// needed, with the prefix that lifts the limit of 260 characters. Empty for a path that is empty or contains
/// a zero byte.
std::wstring FilePath(const std::string& path);

} // namespace nesk::platform::windows
