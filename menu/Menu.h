#pragma once

#include "menu/MenuEntry.h"
#include "platform/FileSystem.h"

namespace nesk {

/// The root of the menu tree.
class Menu final : public MenuEntry {
public:
    Menu();
    ~Menu() override;

    /// Makes this a fresh root: caption "Main Menu", no picture, no children, whose ids start at 1 again.
    /// @param sRootDir  folder that holds the menu file
    /// @return always true
    bool Initialize(const std::string& sRootDir);

    /// A copy of the tree with the same ids, in an arena of its own without dead room.
    std::unique_ptr<Menu> Compacted() const;

    /// Where the items of this tree lie. Whoever takes an item out of the tree and may outlive it holds this.
    const std::shared_ptr<Arena>& Memory() const { return m_memory; }

    const std::string& RootDirectory() const override { return m_rootDirectory; }
    const MenuEntry* ParentMenu() const override { return nullptr; }
    MenuEntry* ParentMenu() override { return nullptr; }

    /// Reads a menu file into this root, which should be fresh: children that it has already stay. The
    /// history directory of each item read is registered with the operator interface. A missing file shows a
    /// message and leaves the tree as it was. Raises 5000 for a file that is no menu or is damaged,
    /// TypeMismatch for a help topic that is no number, and the run-time error of a failed read, each with
    /// the file and the line. The items completed by then stay.
    void LoadFromFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles());

    /// The same without the look whether there is a file: a missing one raises FileNotFound. For a file that
    /// is known to be there; a look that fails would make an empty menu of it.
    void ReadFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles());

    /// Whether a file that was read ended before its root did. It is read without an error, but may have been
    /// cut off.
    bool EndIsMissing() const { return m_endIsMissing; }

    /// Writes the whole tree. The file is replaced in one step and the version before is kept beside it with
    /// the ending ".bak". Raises the run-time error of what failed, or 5000 for a text that the code page
    /// cannot hold or that would end its line; the file is unchanged then.
    void SaveToFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles()) const;

protected:
    std::int32_t CounterInParent() const override { return 0; }

private:
    std::shared_ptr<Arena> m_memory;
    std::string m_rootDirectory;
    bool m_endIsMissing = false;
};

} // namespace nesk
