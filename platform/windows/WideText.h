#pragma once

#include <string>
#include <string_view>

/// Text between the program, where it is UTF-8, and the system, where it is UTF-16.
namespace nesk::platform::windows {

/// UTF-16 form of a text; what is not valid UTF-8 becomes U+FFFD.
std::wstring ToWide(std::string_view text);

/// UTF-8 form of a text; half a surrogate pair becomes U+FFFD.
std::string FromWide(std::wstring_view text);

/// A path as the file functions take it whatever its length: absolute, with single separators, and with the
/// prefix that lifts the limit of 260 characters where it is needed. Empty for a path that is empty or holds
/// a zero byte.
std::wstring FilePath(const std::string& path);

} // namespace nesk::platform::windows
