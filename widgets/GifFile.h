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
    std::size_t end = 0; ///< position in the file after the last block of data that decoding the picture
                         ///< reads; the empty block that ends the data need not follow
};

/// Finds the first picture in the bytes of a GIF file. Returns nothing when there is no picture, when invalid
/// data precedes it, or when its own data is invalid or truncated.
std::optional<GifPicture> FirstGifPicture(std::string_view bytes);

} // namespace nesk
