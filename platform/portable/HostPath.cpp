#include "platform/portable/FileNames.h"
#include "platform/portable/Station.h"

#include "platform/TextEncoding.h"

#include <algorithm>
#include <dirent.h>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <utility>
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

// Windows removes dots and spaces at the end of a name.
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

std::string Below(const std::string& folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    if (!path.ends_with('/')) path += '/';
    path += name;
    return path;
}

// The entry of `folder` that equals `name` without regard to case; the given name when there is no such
// entry.
std::string FindEntry(const std::string& folder, std::string_view name) {
    struct stat status {};
    std::string exact = Below(folder, NameToHost(name));
    if (::lstat(exact.c_str(), &status) == 0) return exact;
    const std::unique_ptr<DIR, int (*)(DIR*)> directory(::opendir(folder.c_str()), &::closedir);
    if (!directory) return exact;
    while (const dirent* entry = ::readdir(directory.get()))
        if (EqualNoCase(NameFromHost(entry->d_name), name)) return Below(folder, entry->d_name);
    return exact;
}

} // namespace

namespace {

std::string LookUp(std::string_view path) {
    const bool drive = HasDrive(path);
    std::string host = DriveFolder(drive ? path[0] : 'C').string();
    for (const std::string_view name : Components(drive ? path.substr(2) : path))
        host = FindEntry(host, name);
    return host;
}

// A cache of the last folder that was looked up and its ancestors. Successive files are usually in the same
// folder or a nearby one, and each level costs a system call. Host paths are strings here:
// std::filesystem::path stores each name separately, which takes longer than the system calls.
class KnownFolders {
public:
    // Where a path leads if the rest of it, after the folders that are known, is spelled as on the host. The
    // rest is not looked up. "" when no part of the path is known.
    std::string Guess(std::string_view path) const {
        if (m_levels.empty() || m_station.native() != StationFolder().native()) return "";
        const auto difference = std::mismatch(path.begin(), path.end(), m_path.begin(), m_path.end()).first;
        const auto same = static_cast<std::size_t>(difference - path.begin());
        const auto level = std::find_if(m_levels.rbegin(), m_levels.rend(),
                                        [same](const Level& known) { return known.length <= same; });
        const std::size_t root = HasDrive(path) ? 2 : 0;
        if (level == m_levels.rend() || m_levels.front().length != root) return "";
        // The known part ends with a separator or a drive.
        std::string rest = NameToHost(path.substr(level->length));
        std::replace(rest.begin(), rest.end(), '\\', '/');
        return Below(level->host, std::string_view(rest).substr(rest.starts_with('/') ? 1 : 0));
    }

    // Finds the folder of a path that ends with a separator and does not contain "..".
    std::string Find(std::string_view path) {
        Forget(path);
        struct stat status {};
        if (!m_levels.empty() && ::stat(m_levels.back().host.c_str(), &status) != 0) m_levels.clear();
        if (m_levels.empty()) {
            const bool drive = HasDrive(path);
            m_station = StationFolder();
            m_levels.push_back({drive ? std::size_t{2} : 0, DriveFolder(drive ? path[0] : 'C').string()});
        }
        std::string host = m_levels.back().host;
        for (std::size_t at = m_levels.back().length; at < path.size();) {
            const std::size_t end = path.find_first_of("\\/", at);
            const std::string_view name = WithoutTrailingDots(path.substr(at, end - at));
            at = end + 1;
            if (name.empty()) continue;
            host = FindEntry(host, name);
            if (m_levels.size() < MostLevels) m_levels.push_back({at, host});
        }
        m_path = path;
        return host;
    }

private:
    // Deeper levels are looked up each time.
    static constexpr std::size_t MostLevels = 32;

    struct Level {
        std::size_t length; // length of its part of m_path
        std::string host;
    };

    // Keeps only the levels that `path` shares.
    void Forget(std::string_view path) {
        const auto difference = std::mismatch(path.begin(), path.end(), m_path.begin(), m_path.end()).first;
        const auto same = static_cast<std::size_t>(difference - path.begin());
        const std::size_t root = HasDrive(path) ? 2 : 0;
        if (m_station.native() != StationFolder().native() || m_levels.empty() ||
            m_levels.front().length != root)
            m_levels.clear();
        while (!m_levels.empty() && m_levels.back().length > same)
            m_levels.pop_back();
    }

    fs::path m_station;
    std::string m_path;
    std::vector<Level> m_levels;
};

} // namespace

namespace {

KnownFolders& Known() {
    static thread_local KnownFolders known;
    return known;
}

// True when each name of a path stands for a file of the same name.
bool HasPlainNames(std::string_view path) {
    constexpr std::string_view forbidden = "<>:\"|?*/";
    char before = '\\';
    for (const char c : path.substr(2)) {
        const bool isSeparator = c == '\\';
        // A name does not end with a dot or a space, and none is empty.
        if (isSeparator && (before == '.' || before == ' ')) return false;
        if (static_cast<unsigned char>(c) < 0x20 || forbidden.find(c) != std::string_view::npos) return false;
        before = c;
    }
    return before != '.' && before != ' ' && before != '\\';
}

} // namespace

std::string LikelyHostPath(const std::string& path) {
    if (!HasDrive(path) || path.size() < 4 || path[2] != '\\' || !HasPlainNames(path)) return "";
    return Known().Guess(path);
}

fs::path ToHostPath(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return {};
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) return {};
    const std::size_t separator = path.find_last_of("\\/");
    const std::string_view name = separator == std::string::npos
                                      ? ""
                                      : WithoutTrailingDots(std::string_view(path).substr(separator + 1));
    if (separator == std::string::npos || path.find("..") != std::string::npos) return LookUp(path);
    std::string folder = Known().Find(std::string_view(path).substr(0, separator + 1));
    return name.empty() ? std::move(folder) : FindEntry(folder, name);
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
