#include "platform/FileStamp.h"

#include "platform/portable/HostError.h"
#include "platform/portable/Station.h"

#include <cerrno>
#include <sys/stat.h>

namespace nesk::platform {

ErrorCode StampOf(const std::string& path, FileStamp& stamp) {
    constexpr std::int64_t nanoseconds = 1'000'000'000;
    const std::filesystem::path host = portable::ToHostPath(path);
    if (host.empty()) return ErrorCode::PathNotFound;
    struct stat status {};
    if (::stat(host.c_str(), &status) != 0) return portable::ErrorFromErrno(errno, ErrorCode::ReadFault);
    stamp = {static_cast<std::uint64_t>(status.st_size),
             std::int64_t{status.st_mtim.tv_sec} * nanoseconds + status.st_mtim.tv_nsec};
    return ErrorCode::Success;
}

} // namespace nesk::platform
