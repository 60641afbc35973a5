#include "partedit/PartScanner.h"

#include "platform/ErrorCode.h"
#include "platform/FileIdentity.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nesk {

namespace {

namespace ErrorCode = platform::ErrorCode;

constexpr std::string_view PartInfoName = "partinfo.ini";

// Links that are followed to one folder. Folders full of links to each other could be gone through in more
// ways than any scan could follow.
constexpr int MostWays = 10;

struct Unreadable {
    std::string path;
    int code;
    std::uint32_t attributes;
};

// What is in a folder that is no part.
struct Contents {
    struct Folder {
        std::string name;
        bool isLink;
    };
    std::vector<Folder> folders;
    std::vector<Unreadable> unreadable;
};

struct Entry {
    std::string path;
    std::string name;
    bool isLink;
    Contents contents; // of a folder alone
};

// A folder whose subfolders are being entered one after the other.
struct Level {
    PartScanVisitor::Node node;
    std::string path;
    std::vector<Entry> folders;
    std::vector<Entry> parts;
    std::size_t entered = 0;
};

std::string Join(const std::string& folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path += folder;
    if (!folder.ends_with('\\')) path += '\\';
    path += name;
    return path;
}

// Whether a folder is a part, by its entries; a folder that cannot be listed may be one all the same.
bool IsPart(const std::string& folder, int listed, const std::vector<std::string>& files) {
    const bool mayBe = listed != ErrorCode::NoMoreItems ||
                       std::any_of(files.begin(), files.end(), [](const std::string& name) {
                           return platform::EqualNoCase(name, PartInfoName);
                       });
    return mayBe && !modUtilities::ReadIniValue(PartInfoPath(folder), "Part", "Name").empty();
}

// What is a folder can be asked; of the rest it may turn out that it cannot.
void CheckFile(std::string path, Contents& contents) {
    std::uint32_t attributes = 0;
    const int result = platform::StationFiles().Attributes(path, attributes);
    if (result != ErrorCode::Success) contents.unreadable.push_back({std::move(path), result, attributes});
}

// Reads the entries of a folder once, for both questions: whether it is a part, and what is in it.
// Returns nothing when it is a part and `mayBePart`.
std::optional<Contents> ReadFolder(const std::string& folder, bool mayBePart) {
    Contents contents;
    std::vector<std::string> files;
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    int result = platform::StationFiles().Search(Join(folder, "*.*"), search, entry);
    while (result == ErrorCode::Success) {
        const bool isLink = (entry.attributes & platform::FileAttribute::Link) != 0;
        if ((entry.attributes & platform::FileAttribute::Directory) == 0)
            files.push_back(std::move(entry.name));
        else if (!entry.name.starts_with('.'))
            contents.folders.push_back({std::move(entry.name), isLink});
        result = search->Next(entry);
    }
    if (result == ErrorCode::FileNotFound) result = ErrorCode::NoMoreItems;
    if (mayBePart && IsPart(folder, result, files)) return std::nullopt;
    for (const std::string& name : files)
        CheckFile(Join(folder, name), contents);
    const bool missing = result == ErrorCode::PathNotFound && !modUtilities::DirectoryExists(folder);
    if (result != ErrorCode::NoMoreItems && !missing)
        contents.unreadable.push_back({folder, result, platform::FileAttribute::Directory});
    return contents;
}

// Whether the target of a link is one of the folders that the link lies in.
bool IsLoop(const std::string& target, const std::vector<Level>& levels) {
    return !target.empty() && std::any_of(levels.begin(), levels.end(), [&](const Level& outer) {
        return platform::FileIdentity(outer.path) == target;
    });
}

// Tells what could not be read in a folder, and looks into each folder in it.
Level EnterFolder(const std::string& folder, PartScanVisitor::Node node, Contents contents,
                  PartScanVisitor& visitor) {
    for (const Unreadable& place : contents.unreadable)
        visitor.OnUnreadable(place.path, place.code, place.attributes);
    Level level{node, folder, {}, {}};
    for (Contents::Folder& inner : contents.folders) {
        std::string path = Join(folder, inner.name);
        std::optional<Contents> below = ReadFolder(path, true);
        std::vector<Entry>& place = below ? level.folders : level.parts;
        place.push_back(
            {std::move(path), std::move(inner.name), inner.isLink, std::move(below).value_or(Contents{})});
    }
    return level;
}

} // namespace

std::string PartInfoPath(const std::string& folder) {
    return Join(folder, PartInfoName);
}

bool ScanParts(const std::string& root, PartScanVisitor::Node node, PartScanVisitor& visitor) {
    std::size_t foldersRead = 0;
    if (!visitor.OnProgress(foldersRead)) return false;
    // No recursion: folders may be nested deeper than the machine stack could follow.
    std::vector<Level> levels;
    levels.push_back(EnterFolder(root, node, ReadFolder(root, false).value(), visitor));
    std::unordered_map<std::string, int> ways; // links that were followed, by their target
    ++foldersRead;
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.entered == level.folders.size()) {
            for (const Entry& part : level.parts)
                visitor.OnPart(level.node, part.path, part.name);
            levels.pop_back();
            continue;
        }
        Entry folder = std::move(level.folders[level.entered++]);
        const PartScanVisitor::Node child = visitor.OnFolder(level.node, folder.path, folder.name);
        // Only a link can lead to a folder that was entered before.
        if (folder.isLink) {
            const std::string target = platform::FileIdentity(folder.path);
            if (IsLoop(target, levels) || ++ways[target] > MostWays) continue;
        }
        if (!visitor.OnProgress(foldersRead)) return false;
        levels.push_back(EnterFolder(folder.path, child, std::move(folder.contents), visitor));
        ++foldersRead;
    }
    return true;
}

} // namespace nesk
