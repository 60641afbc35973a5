#include "platform/portable/FileNames.h"
#include "platform/portable/Station.h"

#include "platform/TextEncoding.h"

#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace nesk::platform::portable {

namespace {

namespace fs = std::filesystem;

bool IsDriveLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool HasDrive(std::string_view path) {
    return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == ':';
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

fs::path DriveFolder(char letter) {
    const char lower = static_cast<char>(letter | 0x20);
    if (lower == 'z') return "/";
    return StationFolder() / "drives" / std::string(1, lower);
}

// Windows drops the dots and blanks that end a name.
std::string_view WithoutTrailingDots(std::string_view name) {
    while (!name.empty() && (name.back() == '.' || name.back() == ' '))
        name.remove_suffix(1);
    return name;
}

std::vector<std::string_view> Components(std::string_view path) {
    std::vector<std::string_view> result;
    while (!path.empty()) {
        std::size_t length = 0;
        while (length < path.size() && !IsSeparator(path[length]))
            ++length;
        const std::string_view name = path.substr(0, length);
        if (name == "..") {
            if (!result.empty()) result.pop_back();
        } else if (const std::string_view plain = WithoutTrailingDots(name); !plain.empty()) {
            result.push_back(plain);
        }
        path.remove_prefix(length < path.size() ? length + 1 : length);
    }
    return result;
}

// The entry of `folder` that equals `name` apart from case; the name as given when there is none.
std::string FindEntry(const fs::path& folder, const std::string& name) {
    struct stat status {};
    const std::string exact = NameToHost(name);
    if (::lstat((folder / exact).c_str(), &status) == 0) return exact;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(folder.c_str()), &::closedir);
    if (!directory) return exact;
    while (const dirent* entry = ::readdir(directory.get()))
        if (EqualNoCase(NameFromHost(entry->d_name), name)) return entry->d_name;
    return exact;
}

} // namespace

fs::path ToHostPath(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return {};
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return {};
    const bool drive = HasDrive(path);
    fs::path host = DriveFolder(drive ? path[0] : 'C');
    for (const std::string_view name : Components(drive ? std::string_view(path).substr(2) : path))
        host /= FindEntry(host, std::string(name));
    return host;
}

std::string ToWindowsPath(const fs::path& path) {
    const fs::path normal = path.lexically_normal();
    fs::path rest = normal.relative_path();
    char letter = 'Z';
    const fs::path below = normal.lexically_relative(StationFolder() / "drives");
    if (!below.empty() && *below.begin() != ".." && *below.begin() != ".") {
        const std::string drive = below.begin()->string();
        if (drive.size() == 1 && drive[0] >= 'a' && drive[0] < 'z') {
            letter = static_cast<char>(drive[0] - 'a' + 'A');
            rest = below.lexically_relative(drive);
        }
    }
    std::string result = {letter, ':'};
    for (const fs::path& name : rest)
        if (!name.empty() && name != ".") result += "\\" + NameFromHost(name.string());
    if (result.size() == 2) result += "\\";
    return result;
}

} // namespace nesk::platform::portable
