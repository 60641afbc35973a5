#pragma once

#include <string>

#include <wx/image.h>

namespace nesk {

/// Loads a BMP, PNG, JPEG, GIF or ICO file. Of a GIF file with several pictures, loads the first. Returns no
/// image when the file cannot be read, contains no picture, or exceeds the limits: 64 MB of file size or 50
/// million pixels. These limits also bound memory and time.
/// @param path  Windows path
wxImage LoadPicture(const std::string& path);

} // namespace nesk
