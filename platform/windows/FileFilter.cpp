#include "platform/common/FileFilter.h"

namespace nesk::platform::common {

std::string NativeFilter(const std::string& filter) {
    return filter;
}

} // namespace nesk::platform::common
