#include "partedit/PartScanner.h"

#include "platform/ErrorCode.h"
#include "platform/FileIdentity.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace nesk {

namespace {

using platform::ErrorCode;

constexpr std::string_view PartInfoName = "partinfo.ini";

// Maximum number of links followed to one folder. Folders with many links to each other could otherwise be
// entered in too many ways for any scan.
constexpr int MostWays = 10;

struct Unreadable {
    std::string path;
    ErrorCode code;
    std::uint32_t attributes;
};

// The contents of a folder that is not a part.
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
    Contents contents;    // for folders only
    std::string partName; // for parts only
};

// A folder whose subfolders are being entered in order.
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

// The part name of a folder, determined from its entries; "" when the folder is not a part. A folder that
// cannot be listed may still be a part.
std::string PartNameOf(const std::string& folder, ErrorCode listed, const std::vector<std::string>& files) {
    const bool mayBe = listed != ErrorCode::NoMoreItems ||
                       std::any_of(files.begin(), files.end(), [](const std::string& name) {
                           return platform::EqualNoCase(name, PartInfoName);
                       });
    return mayBe ? modUtilities::ReadIniValue(PartInfoPath(folder), "Part", "Name") : "";
}

// Records a file whose attributes cannot be read. Folders need no such check.
void CheckFile(std::string path, Contents& contents) {
    std::uint32_t attributes = 0;
    const ErrorCode result = platform::StationFiles().Attributes(path, attributes);
    if (result != ErrorCode::Success) contents.unreadable.push_back({std::move(path), result, attributes});
}

// The result of reading a folder: a part with a name and files, or a folder with contents.
struct FolderRead {
    std::string partName;
    std::vector<std::string> files;
    Contents contents;
};

// Reads the entries of a folder once, to find out whether it is a part and what it contains. The root of a
// scan is never a part. A root that does not exist or is not a valid path has no contents.
FolderRead ReadFolder(const std::string& folder, bool isRoot) {
    FolderRead read;
    Contents& contents = read.contents;
    std::vector<std::string> files;
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    ErrorCode result = platform::StationFiles().Search(Join(folder, "*.*"), search, entry);
    while (result == ErrorCode::Success) {
        const bool isLink = (entry.attributes & platform::FileAttribute::Link) != 0;
        if ((entry.attributes & platform::FileAttribute::Directory) == 0)
            files.push_back(std::move(entry.name));
        else if (!entry.name.starts_with('.'))
            contents.folders.push_back({std::move(entry.name), isLink});
        result = search->Next(entry);
    }
    if (result == ErrorCode::FileNotFound) result = ErrorCode::NoMoreItems;
    if (!isRoot) read.partName = PartNameOf(folder, result, files);
    if (!read.partName.empty()) {
        read.files = std::move(files);
        return read;
    }
    for (const std::string& name : files)
        CheckFile(Join(folder, name), contents);
    const bool missing =
        (isRoot || result == ErrorCode::PathNotFound) && !modUtilities::DirectoryExists(folder);
    if (result != ErrorCode::NoMoreItems && !missing)
        contents.unreadable.push_back({folder, result, platform::FileAttribute::Directory});
    return read;
}

// True when the target of a link is one of the folders that contain the link.
bool IsLoop(const std::string& target, const std::vector<Level>& levels) {
    return !target.empty() && std::any_of(levels.begin(), levels.end(), [&](const Level& outer) {
        return platform::FileIdentity(outer.path) == target;
    });
}

// One scan below a root.
class Scan {
public:
    explicit Scan(PartScanVisitor& visitor) : m_visitor(visitor) {}

    bool Run(const std::string& root, PartScanVisitor::Node node) {
        if (!ShouldContinue()) return false;
        Contents contents = ReadFolder(root, true).contents;
        ++m_foldersRead;
        if (!Enter(root, node, std::move(contents))) return false;
        // There is no recursion, because deeply nested folders could overflow the machine stack.
        while (!m_levels.empty()) {
            Level& level = m_levels.back();
            const bool goesOn = level.entered < level.folders.size() ? EnterNext(level) : ReportParts(level);
            if (!goesOn) return false;
        }
        return ShouldContinue();
    }

private:
    bool ShouldContinue() { return m_visitor.OnProgress(m_foldersRead); }

    // Reports what could not be read in a folder, and reads each folder in it.
    bool Enter(std::string path, PartScanVisitor::Node node, Contents contents) {
        for (const Unreadable& place : contents.unreadable)
            m_visitor.OnUnreadable(place.path, place.code, place.attributes);
        Level level{node, std::move(path), {}, {}};
        for (Contents::Folder& inner : contents.folders) {
            if (!ShouldContinue()) return false;
            std::string innerPath = Join(level.path, inner.name);
            FolderRead read = ReadFolder(innerPath, false);
            ++m_foldersRead;
            if (!read.partName.empty()) m_visitor.OnPartFiles(innerPath, read.files);
            std::vector<Entry>& place = read.partName.empty() ? level.folders : level.parts;
            place.push_back({std::move(innerPath), std::move(inner.name), inner.isLink,
                             std::move(read.contents), std::move(read.partName)});
        }
        m_levels.push_back(std::move(level));
        return true;
    }

    bool EnterNext(Level& level) {
        if (!ShouldContinue()) return false;
        Entry folder = std::move(level.folders[level.entered++]);
        const PartScanVisitor::Node child = m_visitor.OnFolder(level.node, folder.path, folder.name);
        // Only a link can lead to a folder that was already entered.
        if (folder.isLink) {
            const std::string target = platform::FileIdentity(folder.path);
            if (IsLoop(target, m_levels) || ++m_ways[target] > MostWays) return true;
        }
        return Enter(std::move(folder.path), child, std::move(folder.contents));
    }

    bool ReportParts(const Level& level) {
        for (const Entry& part : level.parts) {
            if (!ShouldContinue()) return false;
            m_visitor.OnPart(level.node, part.path, part.name, part.partName);
        }
        m_levels.pop_back();
        return true;
    }

    PartScanVisitor& m_visitor;
    std::vector<Level> m_levels;                 // from the root to the current folder
    std::unordered_map<std::string, int> m_ways; // number of links followed to each target
    std::size_t m_foldersRead = 0;
};

} // namespace

std::optional<PartFolder> ReadPartFolder(const std::string& folder) {
    // Most folders are not parts, and reading their other files would take long.
    if (modUtilities::ReadIniValue(PartInfoPath(folder), "Part", "Name").empty()) return std::nullopt;
    FolderRead read = ReadFolder(folder, false);
    if (read.partName.empty()) return std::nullopt;
    return PartFolder{std::move(read.partName), std::move(read.files)};
}

std::string PartInfoPath(const std::string& folder) {
    return Join(folder, PartInfoName);
}

bool ScanParts(const std::string& root, PartScanVisitor::Node node, PartScanVisitor& visitor) {
    return Scan(visitor).Run(root, node);
}

} // namespace nesk
