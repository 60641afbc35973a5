#pragma once

#include "checking/Replacement.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

class Menu;

/// The folders that the paths of a menu use: those of part programs, pictures, previews, help files and
/// histories. Names are compared without regard to case.
class FolderUse {
public:
    /// A folder and what is below it.
    struct Folder {
        std::string path;      ///< without a trailing "\", spelled as in the first path that uses it
        std::size_t paths = 0; ///< number of paths of the menu at or below it
    };

    explicit FolderUse(const Menu& menu);

    /// The folders, each before those below it, in alphabetical order. The root of a drive or a share is not
    /// among them.
    const std::vector<Folder>& Folders() const { return m_folders; }

    /// True when `path` is the folder or lies below it. Compares whole names: "C:\Par" does not contain
    /// "C:\Parts\x".
    static bool IsWithin(std::string_view path, std::string_view folder);

    /// The paths at or below a folder, in the order of the tree, as changes that change nothing.
    static std::vector<TextChange> PathsIn(const Menu& menu, const std::string& folder);

    /// A path at or below a folder after the folder got another place.
    static std::string Moved(std::string_view path, std::string_view folder, std::string_view place);

    /// The changes that give a folder another place, in the order of the tree. All paths at or below the
    /// folder keep the rest of their path.
    /// @param folder  with or without a trailing "\"
    /// @param place   the folder's new path; likewise
    static std::vector<TextChange> Plan(const Menu& menu, const std::string& folder,
                                        const std::string& place);

    /// Message number of the reason why a folder cannot get a place; 0 when it can.
    static int WhyNot(const std::string& folder, const std::string& place);

private:
    std::vector<Folder> m_folders;
};

} // namespace nesk
