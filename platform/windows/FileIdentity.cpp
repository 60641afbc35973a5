#include "platform/FileIdentity.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WideText.h"

namespace nesk::platform {

std::string FileIdentity(const std::string& path) {
    const windows::Handle file(::CreateFileW(windows::FilePath(path).c_str(), 0,
                                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                             OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION info{};
    if (!file || ::GetFileInformationByHandle(file.Get(), &info) == 0) return "";
    return std::to_string(info.dwVolumeSerialNumber) + ":" + std::to_string(info.nFileIndexHigh) + ":" +
           std::to_string(info.nFileIndexLow);
}

} // namespace nesk::platform
