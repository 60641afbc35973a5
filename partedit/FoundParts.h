#pragma once

#include "base/NeskError.h"

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

namespace nesk {

/// A folder or a part program that was found on the disk.
struct FoundPart {
    /// The parent of what is directly in the folder that was searched.
    static constexpr std::size_t NoParent = static_cast<std::size_t>(-1);

    std::size_t parent = NoParent; ///< index of the folder that contains it
    bool isPart = false;
    std::string name;               ///< of the folder
    std::string path;               ///< of the folder, without a trailing "\"
    std::string partName;           ///< for parts only: the name in its partinfo.ini
    std::vector<std::string> files; ///< for parts only: the names of its files, sorted without regard to case
};

/// What a search for part programs has found.
struct FoundParts {
    /// Each folder stands before what it contains. In a folder the subfolders come before the part programs,
    /// both in the order of the user's language. Folders without part programs are left out.
    std::vector<FoundPart> found;
    std::vector<NeskError> unreadable; ///< files and folders that could not be read
    bool isComplete = true;            ///< false when the search was stopped
    bool folderExists = true;          ///< false when the only folder does not exist
};

/// How far a search is.
struct PartSearchProgress {
    std::size_t foldersRead = 0;
    std::size_t parts = 0;
};

/// Finds the part programs in and below a folder, as ScanParts does. A folder that is itself a part program
/// is the only one found.
/// @param folder      with or without a trailing "\"; the path of a partinfo.ini means its folder. Of several
///                    folders separated by "|", each is itself in the result, with what is below it
/// @param onProgress  called for each folder; returns false to stop the search. What was found so far is
///                    still returned
FoundParts FindParts(const std::string& folder,
                     const std::function<bool(const PartSearchProgress&)>& onProgress);

/// The folder that a path means: the path without trailing "\" and without a partinfo.ini at its end. The
/// root of a drive keeps its "\". Of several paths separated by "|", all their folders.
std::string PartSearchFolder(const std::string& paths);

/// Several paths as one text for FindParts.
std::string JoinedPartFolders(const std::vector<std::string>& paths);

} // namespace nesk
