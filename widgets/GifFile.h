#pragma once

#include "widgets/PictureHeader.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace nesk {

/// The first picture in a GIF file.
struct GifPicture {
    PictureSize size;    ///< the picture's size or that of the whole file, whichever is larger, for width and
                         ///< height separately
    std::size_t end = 0; ///< position in the file after the picture's data
};

/// Finds the first picture in the bytes of a GIF file. Returns nothing when there is no picture, or when
/// invalid data precedes it.
std::optional<GifPicture> FirstGifPicture(std::string_view bytes);

} // namespace nesk
