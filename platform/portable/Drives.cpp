#include "platform/Drives.h"

#include "platform/ErrorCode.h"
#include "platform/portable/Station.h"

#include <algorithm>
#include <dirent.h>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>

namespace nesk::platform {

namespace {

namespace fs = std::filesystem;

constexpr char HostDrive = 'Z';

} // namespace

std::vector<char> DriveLetters() {
    std::vector<char> letters{HostDrive};
    std::error_code error;
    fs::directory_iterator at(portable::StationFolder() / "drives", error);
    for (; !error && at != fs::directory_iterator(); at.increment(error)) {
        const std::string name = at->path().filename().string();
        std::error_code ignored;
        if (name.size() == 1 && name[0] >= 'a' && name[0] < 'z' && at->is_directory(ignored))
            letters.push_back(static_cast<char>(name[0] - 'a' + 'A'));
    }
    std::sort(letters.begin(), letters.end());
    return letters;
}

ErrorCode CheckDrive(char letter) {
    const fs::path folder = portable::ToHostPath({letter, ':', '\\'});
    if (folder.empty()) return ErrorCode::NotReady;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(folder.c_str()), &::closedir);
    if (!directory || ::access((folder / ".notready").c_str(), F_OK) == 0) return ErrorCode::NotReady;
    return ErrorCode::Success;
}

} // namespace nesk::platform
