#pragma once

#include "widgets/PictureHeader.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace nesk {

/// The first picture in a GIF file.
struct GifPicture {
    PictureSize size;    ///< its own size or that of the whole file, whichever is larger on either side
    std::size_t end = 0; ///< where the file goes on behind its data
};

/// Looks for the first picture in the bytes of a GIF file. Nothing when there is none, or something that is
/// no part of a GIF file before it.
std::optional<GifPicture> FirstGifPicture(std::string_view bytes);

} // namespace nesk
