#include "widgets/PictureLimits.h"

namespace nesk::PictureLimits {

namespace {

constexpr std::int64_t MostPixels = 50'000'000;
// No program writes more than a dozen scans into a JPEG picture, but a small file may contain millions.
constexpr std::int64_t MostWork = 20 * MostPixels;

} // namespace

bool Allow(const PictureSize& size) {
    return size.width > 0 && size.height > 0 && size.width <= MostPixels / size.height &&
           size.passes <= MostWork / (size.width * size.height);
}

} // namespace nesk::PictureLimits
