#pragma once

#include "menu/MenuEntry.h"
#include "platform/FileSystem.h"

namespace nesk {

/// The root of the menu tree.
class Menu final : public MenuEntry {
public:
    Menu();
    ~Menu() override;

    /// Resets this root: caption "Main Menu", no picture, no children. The ids of children start at 1 again.
    /// @param sRootDir  folder that contains the menu file
    /// @return always true
    bool Initialize(const std::string& sRootDir);

    /// A copy of the tree with the same ids. It has an arena of its own, without the unused memory of deleted
    /// items.
    std::unique_ptr<Menu> Compacted() const;

    /// The arena that contains the items of this tree. Code that takes an item out of the tree and may
    /// outlive the tree must keep this pointer.
    const std::shared_ptr<Arena>& Memory() const { return m_memory; }

    const std::string& RootDirectory() const override { return m_rootDirectory; }
    const MenuEntry* ParentMenu() const override { return nullptr; }
    MenuEntry* ParentMenu() override { return nullptr; }

    /// Reads a menu file into this root. The root should be empty, because existing children stay. The
    /// history directory of each item is registered with the operator interface. When the file is missing,
    /// the function shows a message and leaves the tree unchanged. Raises 5000 for a file that is not a menu
    /// or is damaged, TypeMismatch for a help topic that is not a number, and the run-time error of a failed
    /// read, each with the file and the line. Items completed before the error stay in the tree.
    void LoadFromFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles());

    /// Does the same as LoadFromFile without checking whether the file exists: a missing file raises
    /// FileNotFound. Use this for a file that is known to exist. With LoadFromFile, a failed check would
    /// result in an empty menu.
    void ReadFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles());

    /// True when the file last read ended before the end of its root block. Such a file is read without an
    /// error, but it may have been truncated.
    bool EndIsMissing() const { return m_endIsMissing; }

    /// Writes the whole tree. The file is replaced in one step. The previous version is kept in the same
    /// folder with the extension ".bak". Raises the run-time error of the failed step, or 5000 for a text
    /// that the code page cannot represent or that contains a line end; the file is then unchanged.
    void SaveToFile(const std::string& sFile, platform::FileSystem& files = platform::StationFiles()) const;

protected:
    std::int32_t CounterInParent() const override { return 0; }

private:
    std::shared_ptr<Arena> m_memory;
    std::string m_rootDirectory;
    bool m_endIsMissing = false;
};

} // namespace nesk
