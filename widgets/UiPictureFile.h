#pragma once

#include <string>

#include <wx/image.h>

namespace nesk {

/// Loads a BMP, PNG, JPEG, GIF or ICO file, of several pictures in a GIF file the first. No image when the
/// file cannot be read, holds no picture, or claims one that is too large to be shown: more than 64 MB of
/// file or 50 million pixels. Memory and time are bounded by these.
/// @param path  Windows path
wxImage LoadPicture(const std::string& path);

} // namespace nesk
