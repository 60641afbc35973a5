#pragma once

#include <string>
#include <string_view>

namespace nesk::platform {

/// The form of a text for searching: two texts that differ only in case and accents have the same form. "ß"
/// becomes "SS", "ø" becomes "O". The length may change. Bytes that the code page cannot decode stay.
/// @param text  UTF-8
std::string Folded(std::string_view text);

/// Appends the folded form of a text to `result`. Does not allocate for ASCII when `result` has room.
void AppendFolded(std::string& result, std::string_view text);

} // namespace nesk::platform
