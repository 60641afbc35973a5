#include "base/Paths.h"

namespace nesk::Paths {

std::string ParentFolder(const std::string& path) {
    const std::size_t last = path.find_last_not_of('\\');
    if (last == std::string::npos) return "";
    const std::size_t separator = path.rfind('\\', last);
    return separator == std::string::npos ? "" : path.substr(0, separator + 1);
}

} // namespace nesk::Paths
