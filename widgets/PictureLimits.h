#pragma once

#include "widgets/PictureHeader.h"

#include <cstddef>
#include <optional>

/// The pictures that are decoded. A larger one would only waste memory and time: a button picture is a few
/// hundred pixels wide.
namespace nesk::PictureLimits {

/// Size of the largest file, in bytes.
constexpr std::size_t LargestFile = std::size_t{64} << 20;

/// True when a picture of this size is decoded.
bool Allow(const PictureSize& size);

} // namespace nesk::PictureLimits
