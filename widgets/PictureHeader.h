#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace nesk {

/// Size of a picture according to its file header, in pixels.
struct PictureSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// Number of times that decoding processes the whole picture. A JPEG file may contain many scans.
    std::int64_t passes = 1;
};

/// Reads the size from the bytes of a BMP, PNG, JPEG, GIF or ICO file without decoding the picture. For an
/// ICO file with several pictures, this is the largest size; for a GIF file, the size of the whole or of its
/// first picture, whichever is larger. Returns nothing for other files and for truncated headers.
std::optional<PictureSize> ReadPictureSize(std::string_view bytes);

} // namespace nesk
