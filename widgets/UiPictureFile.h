#pragma once

#include <string>

#include <wx/image.h>

namespace nesk {

/// Loads a BMP, PNG, JPEG, GIF or ICO file. Of a GIF file with several pictures, loads the first. Returns no
/// image when the file cannot be read, contains no picture, or exceeds the limits: 64 MB of file size or 50
/// million pixels. These limits also bound memory and time.
/// @param path  Windows path
wxImage LoadPicture(const std::string& path);

/// A small picture, and the natural size of the picture that it shows, in pixels.
struct PictureThumbnail {
    wxImage image; ///< invalid when the file cannot be shown
    int width = 0;
    int height = 0;
};

/// Makes a small picture of the bytes of a file that LoadPicture would load.
/// @param side  longest side in pixels; a smaller picture is not enlarged
PictureThumbnail DecodeThumbnail(std::string bytes, int side);

} // namespace nesk
