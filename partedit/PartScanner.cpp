#include "partedit/PartScanner.h"

#include "platform/ErrorCode.h"
#include "platform/FileIdentity.h"
#include "platform/FileSystem.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nesk {

namespace {

namespace ErrorCode = platform::ErrorCode;

// Links that are followed to one folder. Folders full of links to each other could be gone through in more
// ways than any scan could follow.
constexpr int MostWays = 10;

struct Entry {
    std::string path;
    std::string name;
    bool isLink;
};

// A folder whose subfolders are being entered one after the other.
struct Level {
    PartScanVisitor::Node node;
    std::string path;
    std::vector<Entry> folders;
    std::vector<Entry> parts;
    std::size_t entered = 0;
};

std::string Join(const std::string& folder, const std::string& name) {
    return folder.ends_with('\\') ? folder + name : folder + "\\" + name;
}

bool IsPart(const std::string& folder) {
    return !modUtilities::ReadIniValue(PartInfoPath(folder), "Part", "Name").empty();
}

// Sorts one entry of a folder into its level.
void AddEntry(const std::string& folder, const platform::DirectoryEntry& entry, Level& level,
              PartScanVisitor& visitor) {
    const std::string path = Join(folder, entry.name);
    std::uint32_t attributes = entry.attributes;
    // What is a folder can be asked; of the rest it may turn out that it cannot.
    if ((attributes & platform::FileAttribute::Directory) == 0) {
        const int result = platform::StationFiles().Attributes(path, attributes);
        if (result != ErrorCode::Success) return visitor.OnUnreadable(path, result, attributes);
    }
    if ((attributes & platform::FileAttribute::Directory) == 0 || entry.name.starts_with('.')) return;
    const bool isLink = (entry.attributes & platform::FileAttribute::Link) != 0;
    (IsPart(path) ? level.parts : level.folders).push_back({path, entry.name, isLink});
}

// Whether the target of a link is one of the folders that the link lies in.
bool IsLoop(const std::string& target, const std::vector<Level>& levels) {
    return !target.empty() && std::any_of(levels.begin(), levels.end(), [&](const Level& outer) {
        return platform::FileIdentity(outer.path) == target;
    });
}

Level ReadFolder(const std::string& folder, PartScanVisitor::Node node, PartScanVisitor& visitor) {
    Level level{node, folder, {}, {}};
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    int result = platform::StationFiles().Search(Join(folder, "*.*"), search, entry);
    while (result == ErrorCode::Success) {
        AddEntry(folder, entry, level, visitor);
        result = search->Next(entry);
    }
    const bool missing = result == ErrorCode::PathNotFound && !modUtilities::DirectoryExists(folder);
    if (result != ErrorCode::NoMoreItems && result != ErrorCode::FileNotFound && !missing)
        visitor.OnUnreadable(folder, result, platform::FileAttribute::Directory);
    return level;
}

} // namespace

std::string PartInfoPath(const std::string& folder) {
    return Join(folder, "partinfo.ini");
}

bool ScanParts(const std::string& root, PartScanVisitor::Node node, PartScanVisitor& visitor) {
    std::size_t foldersRead = 0;
    if (!visitor.OnProgress(foldersRead)) return false;
    // No recursion: folders may be nested deeper than the machine stack could follow.
    std::vector<Level> levels;
    std::unordered_map<std::string, int> ways; // links that were followed, by their target
    levels.push_back(ReadFolder(root, node, visitor));
    ++foldersRead;
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.entered == level.folders.size()) {
            for (const Entry& part : level.parts)
                visitor.OnPart(level.node, part.path, part.name);
            levels.pop_back();
            continue;
        }
        const Entry folder = std::move(level.folders[level.entered++]);
        const PartScanVisitor::Node child = visitor.OnFolder(level.node, folder.path, folder.name);
        // Only a link can lead to a folder that was entered before.
        if (folder.isLink) {
            const std::string target = platform::FileIdentity(folder.path);
            if (IsLoop(target, levels) || ++ways[target] > MostWays) continue;
        }
        if (!visitor.OnProgress(foldersRead)) return false;
        levels.push_back(ReadFolder(folder.path, child, visitor));
        ++foldersRead;
    }
    return true;
}

} // namespace nesk
