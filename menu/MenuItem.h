#pragma once

#include "menu/MenuEntry.h"

#include <cstddef>
#include <cstdint>

namespace nesk {

class BlockParser;
class ByteSink;

/// A submenu or a part-program button of the menu tree.
class MenuItem final : public MenuEntry {
public:
    /// Values of MenuType that this program writes. Every other text is kept as it is.
    static constexpr std::string_view PartType = "Part Program";
    static constexpr std::string_view SubmenuType = "Menu";

    /// A new item, initialized for `parent`, in the arena of its tree. It is no child yet.
    static std::unique_ptr<MenuItem> Create(MenuEntry& parent);

    /// A copy of an item without the items below it, in the arena of `parent`. It keeps its counter and the
    /// one that it gives out next, and is no child yet.
    static std::unique_ptr<MenuItem> CopyOf(const MenuItem& item, MenuEntry& parent);

    /// Makes `parent`, which must outlive the item, the entry above it and takes the parent's next id.
    void Initialize(MenuEntry& parent);

    /// An item that is deleted leaves its room to the arena.
    static void operator delete(void*) noexcept {}

    const MenuEntry* ParentMenu() const override { return m_parent; }
    MenuEntry* ParentMenu() override { return m_parent; }
    /// Sets the entry above alone: the item stays among the children where it is. Its id and its root
    /// directory follow the parent.
    void SetParentMenu(MenuEntry* parent) { m_parent = parent; }
    const std::string& RootDirectory() const override;

    /// Number of this item among the ids of its parent.
    std::int32_t Counter() const { return m_counter; }

    std::string_view MenuType() const { return m_menuType; }
    void SetMenuType(std::string_view value);
    std::string_view Preview() const { return m_preview; }
    void SetPreview(std::string_view value) { m_preview = Kept(value); }
    std::string_view HelpFile() const { return m_helpFile; }
    void SetHelpFile(std::string_view value) { m_helpFile = Kept(value); }
    std::int32_t HelpTopic() const { return m_helpTopic; }
    void SetHelpTopic(std::int32_t value) { m_helpTopic = value; }
    /// Part program: "@", full path of the part's partinfo.ini, "@", or a plain identifier.
    std::string_view ProgramID() const { return m_programId; }
    void SetProgramID(std::string_view value) { m_programId = Kept(value); }
    std::string_view HistoryDir() const { return m_historyDir; }
    void SetHistoryDir(std::string_view value) { m_historyDir = Kept(value); }
    std::string_view HistoryTitle() const { return m_historyTitle; }
    void SetHistoryTitle(std::string_view value) { m_historyTitle = Kept(value); }

    /// Gives an item that is nobody's child another parent and a counter that the parent gave out: for moves.
    /// The ids of the items below it change with its own.
    void SetPlace(MenuEntry& parent, std::int32_t counter) {
        m_parent = &parent;
        m_counter = counter;
    }

    /// True when the item is a part-program button: its type begins with "P" or "p".
    bool IsPart() const;

    /// Moves the item one position among its siblings. False when it is the first or the last, or has no
    /// parent.
    bool MoveUp();
    bool MoveDown();

    /// Reads the item and everything below it, and registers its histories; the parser has just returned the
    /// start of its block. A block that
    /// the file does not close is accepted. Raises 5000 for a block that is no submenu and TypeMismatch for a
    /// help topic that is no number; the items below whose blocks were complete are lost then as well.
    void LoadFromFile(BlockParser& parser);

    /// Writes the item and everything below it as a block at the indent `level`. Raises what MenuWriter does.
    void SaveToFile(ByteSink& file, std::size_t level) const;

protected:
    std::int32_t CounterInParent() const override { return m_counter; }

private:
    static void* operator new(std::size_t size, Arena& arena) {
        return arena.Allocate(size, alignof(MenuItem));
    }
    static void operator delete(void*, Arena&) noexcept {}

    std::int32_t m_counter = 0; // in what alignment leaves free behind the base
    MenuEntry* m_parent = nullptr;
    KeptText m_menuType;
    KeptText m_preview;
    KeptText m_helpFile;
    KeptText m_programId;
    KeptText m_historyDir;
    KeptText m_historyTitle;
    std::int32_t m_helpTopic = 0;
};

} // namespace nesk
