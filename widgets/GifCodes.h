#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace nesk {

/// Checks the compressed data of a picture in a GIF file, as far as a decoder reads it: up to the code that
/// ends the picture, to its last pixel or to the empty block after the data.
/// @param at      position of the byte that contains the size of the first codes, before the blocks of data
/// @param pixels  number of pixels in the picture
/// @return the position after the last block of data that a decoder reads; nothing if a code has no meaning,
///         or if the file ends before the picture does
std::optional<std::size_t> EndOfGifCodes(std::string_view bytes, std::size_t at, std::int64_t pixels);

} // namespace nesk
