#include "platform/common/NativePath.h"

#include "platform/portable/Station.h"

namespace nesk::platform::common {

std::filesystem::path ToNativePath(const std::string& path) {
    return portable::ToHostPath(path);
}

std::string FromNativePath(const std::filesystem::path& path) {
    return portable::ToWindowsPath(path);
}

} // namespace nesk::platform::common
