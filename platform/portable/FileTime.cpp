#include "platform/FileTime.h"

#include "platform/portable/Station.h"

#include <sys/stat.h>

namespace nesk::platform {

bool LastWriteTime(const std::string& path, std::tm& local) {
    struct stat status {};
    if (::stat(portable::ToHostPath(path).c_str(), &status) != 0) return false;
    std::tm time{};
    if (::localtime_r(&status.st_mtime, &time) == nullptr) return false;
    local = time;
    return true;
}

std::tm LocalTime() {
    const std::time_t now = std::time(nullptr);
    std::tm time{};
    ::localtime_r(&now, &time);
    return time;
}

} // namespace nesk::platform
