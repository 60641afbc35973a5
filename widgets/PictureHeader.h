#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace nesk {

/// Size that a picture file claims to have, in pixels.
struct PictureSize {
    std::int64_t width = 0;
    std::int64_t height = 0;
    /// How often the whole picture is gone over to decode it: a JPEG file may send it in many scans.
    std::int64_t passes = 1;
};

/// Reads the size out of the bytes of a BMP, PNG, JPEG, GIF or ICO file, without decoding the picture. Of an
/// ICO file with several pictures it is the largest; of a GIF file it is that of the whole or of its first
/// picture, whichever is larger. Nothing for other files and for headers that are cut off.
std::optional<PictureSize> ReadPictureSize(std::string_view bytes);

} // namespace nesk
