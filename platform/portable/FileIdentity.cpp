#include "platform/FileIdentity.h"

#include "platform/portable/Station.h"

#include <sys/stat.h>

namespace nesk::platform {

std::string FileIdentity(const std::string& path) {
    struct stat status {};
    if (::stat(portable::ToHostPath(path).c_str(), &status) != 0) return "";
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}

} // namespace nesk::platform
