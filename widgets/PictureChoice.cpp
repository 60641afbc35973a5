#include "widgets/PictureChoice.h"

#include <algorithm>

namespace nesk::PictureChoice {

bool IsPictureName(const std::string& path) {
    return !path.empty() && !path.ends_with('\\');
}

Placement Place(int width, int height, int hostWidth, int hostHeight) {
    Placement placement;
    placement.width = std::min(width, hostWidth);
    placement.height = std::min(height, hostHeight);
    placement.left = (hostWidth - placement.width) / 2;
    placement.top = (hostHeight - placement.height) / 2;
    return placement;
}

} // namespace nesk::PictureChoice
