#include "menu/PictureChoice.h"

#include "shell/modUtilities.h"

#include <algorithm>

namespace nesk::PictureChoice {

bool NamesPicture(const std::string& path) {
    return !path.empty() && !path.ends_with('\\');
}

std::string InitialFolder(const std::string& path, const std::string& defaultFolder) {
    const std::size_t separator = path.rfind('\\');
    if (separator == std::string::npos) return defaultFolder;
    const std::string folder = path.substr(0, separator + 1);
    return modUtilities::DirectoryExists(folder) ? folder : defaultFolder;
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
