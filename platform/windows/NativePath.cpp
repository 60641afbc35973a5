#include "platform/common/NativePath.h"

#include "platform/windows/WideText.h"

namespace nesk::platform::common {

std::filesystem::path ToNativePath(const std::string& path) {
    return windows::ToWide(path);
}

std::string FromNativePath(const std::filesystem::path& path) {
    return windows::FromWide(path.native());
}

} // namespace nesk::platform::common
