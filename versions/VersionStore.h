#pragma once

#include "base/NeskError.h"
#include "platform/FileSystem.h"
#include "versions/VersionNames.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// How many versions are kept.
struct VersionLimits {
    std::size_t newest = 50; ///< so many of the newest versions are kept
    int days = 365;          ///< of the others the last one of each day, for so many days
};

/// The versions that are not kept.
/// @param versions  the newest first
/// @param now       the local date
/// @return those to remove, in the same order. Versions dated in the future count as made today
std::vector<MenuVersion> Surplus(const std::vector<MenuVersion>& versions, const std::tm& now,
                                 const VersionLimits& limits);

/// The earlier versions of a menu file: dated copies in a folder beside it. Other files in that folder are
/// neither listed nor touched.
class VersionStore {
public:
    /// What became of keeping a version.
    struct Kept {
        bool isNew = false;             ///< a version was added
        std::string path;               ///< of that version
        std::optional<NeskError> error; ///< what failed
    };

    /// @param path  Windows path of the menu file
    explicit VersionStore(std::string path, platform::FileSystem& files = platform::StationFiles(),
                          VersionLimits limits = {});

    std::string Folder() const { return VersionNames::FolderOf(m_path); }

    /// Keeps a copy of the present file, dated with its last write, unless the newest version has the same
    /// bytes. Then removes the versions beyond the limits. A missing file is no error, and nothing is kept of
    /// it. Raises nothing: a failure must not stop a save. Whatever fails, the file and the versions to keep
    /// stay as they are.
    Kept Keep();

    /// The versions, the newest first; none when there is no folder. Raises the run-time error of a failed
    /// search.
    std::vector<MenuVersion> List() const;

private:
    void KeepIn(Kept& kept);
    bool IsNewest(const std::vector<MenuVersion>& versions) const;
    void Copy(std::vector<MenuVersion>& versions, Kept& kept);
    void RemoveSurplus(const std::vector<MenuVersion>& versions, Kept& kept);

    std::string m_path;
    platform::FileSystem& m_files;
    VersionLimits m_limits;
};

} // namespace nesk
