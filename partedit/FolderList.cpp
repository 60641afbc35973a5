#include "partedit/FolderList.h"

#include "partedit/DriveChoice.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace nesk::FolderList {

using platform::ErrorCode;

ErrorCode Read(const std::string& path, std::vector<std::string>& names) {
    names.clear();
    std::string pattern = path;
    modUtilities::AddTrailingBackslash(pattern);
    pattern += "*.*";
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    ErrorCode result = platform::StationFiles().Search(pattern, search, entry);
    if (result == ErrorCode::FileNotFound) return ErrorCode::Success;
    std::vector<std::pair<std::string, std::string>> keyed;
    for (; result == ErrorCode::Success; result = search->Next(entry)) {
        const bool folder = (entry.attributes & platform::FileAttribute::Directory) != 0;
        if (folder && entry.name != "." && entry.name != "..")
            keyed.emplace_back(platform::ToUpper(entry.name), entry.name);
    }
    std::sort(keyed.begin(), keyed.end());
    for (auto& [key, name] : keyed)
        names.push_back(std::move(name));
    return result == ErrorCode::NoMoreItems ? ErrorCode::Success : result;
}

bool Before(std::string_view a, std::string_view b) {
    return std::pair(platform::ToUpper(a), a) < std::pair(platform::ToUpper(b), b);
}

Parts Split(std::string_view path) {
    Parts parts;
    if (const std::size_t share = modUtilities::ShareLength(path); share != 0) {
        parts.root = std::string(path.substr(0, share)) + "\\";
        std::replace(parts.root.begin(), parts.root.end(), '/', '\\');
        path.remove_prefix(share);
    } else if (path.size() >= 2 && path[1] == ':') {
        if (const std::string root = DriveChoice::Root(std::string(path.substr(0, 1))); !root.empty())
            parts.root = root;
        path.remove_prefix(2);
    }
    while (!path.empty()) {
        const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
        const std::string_view name = path.substr(0, end);
        if (name == "..") {
            if (!parts.names.empty()) parts.names.pop_back();
        } else if (!name.empty() && name != ".") {
            parts.names.emplace_back(name);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return parts;
}

} // namespace nesk::FolderList
