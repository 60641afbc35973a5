#pragma once

#include <string_view>

namespace nesk {

/// Returns whether all pixels of a BMP file are inside its picture. Pixels that are compressed to runs may be
/// anywhere. Returns true for a file without runs, or of another format, and false if runs are truncated.
bool AreRunsInside(std::string_view bytes);

} // namespace nesk
