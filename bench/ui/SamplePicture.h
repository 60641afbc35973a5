#pragma once

#include <string>

namespace nesk::bench {

/// The bytes of a PNG file of 320 x 240 pixels without areas of one colour.
std::string SamplePicture();

} // namespace nesk::bench
