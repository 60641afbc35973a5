#include "versions/FindVersion.h"

#include "base/BackupNames.h"
#include "base/FileHash.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"
#include "versions/VersionNames.h"

namespace nesk {

namespace {

// Adds the files that match a pattern.
void AddFiles(const std::string& pattern, platform::FileSystem& files, std::vector<std::string>& paths) {
    const std::string folder = modUtilities::ParentFolder(pattern);
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    for (platform::ErrorCode result = files.Search(pattern, search, entry);
         result == platform::ErrorCode::Success; result = search->Next(entry))
        if ((entry.attributes & platform::FileAttribute::Directory) == 0)
            paths.push_back(folder + entry.name);
}

} // namespace

std::unique_ptr<Menu> FindVersion(const std::string& path, const std::string& hash,
                                  const std::string& rootDirectory, const std::vector<std::string>& likely,
                                  platform::FileSystem& files) {
    std::vector<std::string> paths = likely;
    paths.push_back(BackupOf(path).path);
    AddFiles(path + ".*.bak", files, paths);
    AddFiles(VersionNames::FolderOf(path) + "\\*.cfg", files, paths);
    for (const std::string& candidate : paths) {
        if (candidate.empty() || FileHash::Of(candidate, files).Text() != hash) continue;
        // Another program may have written it in between, or reading may have failed half way.
        QuietMenu read = ReadMenuQuietly(candidate, rootDirectory, files);
        if (read.hash.Text() == hash && read.IsWhole()) return std::move(read.menu);
    }
    return nullptr;
}

} // namespace nesk
