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
    /// Values of MenuType that this program writes. Any other text is kept unchanged.
    static constexpr std::string_view PartType = "Part Program";
    static constexpr std::string_view SubmenuType = "Menu";

    /// Creates an item in the arena of the parent's tree, initialized for `parent`. It is not yet a child.
    static std::unique_ptr<MenuItem> Create(MenuEntry& parent);

    /// Does the same with a counter that the parent once assigned. Use this to put an item back whose object
    /// no longer exists.
    static std::unique_ptr<MenuItem> CreateWith(MenuEntry& parent, std::int32_t counter);

    /// Copies an item, without the items below it, into the arena of `parent`. The copy keeps the counter and
    /// the next counter for its children. It is not yet a child.
    static std::unique_ptr<MenuItem> CopyOf(const MenuItem& item, MenuEntry& parent);

    /// Makes `parent` the parent of this item and takes the parent's next id. The parent must outlive the
    /// item.
    void Initialize(MenuEntry& parent);

    /// Does nothing: only the arena frees memory.
    static void operator delete(void*) noexcept {}

    const MenuEntry* ParentMenu() const override { return m_parent; }
    MenuEntry* ParentMenu() override { return m_parent; }
    /// Sets only the parent: the item keeps its place among the children of its former parent. Its id and its
    /// root directory follow the new parent.
    void SetParentMenu(MenuEntry* parent) { m_parent = parent; }
    const std::string& RootDirectory() const override;

    /// The counter that the parent assigned to this item.
    std::int32_t Counter() const { return m_counter; }

    std::string_view MenuType() const { return m_menuType; }
    void SetMenuType(std::string_view value);
    std::string_view Preview() const { return m_preview; }
    void SetPreview(std::string_view value) { m_preview = Kept(value); }
    std::string_view HelpFile() const { return m_helpFile; }
    void SetHelpFile(std::string_view value) { m_helpFile = Kept(value); }
    std::int32_t HelpTopic() const { return m_helpTopic; }
    void SetHelpTopic(std::int32_t value) { m_helpTopic = value; }
    /// Part program: "@", full path of the part's partinfo.ini, "@"; or a plain identifier.
    std::string_view ProgramID() const { return m_programId; }
    void SetProgramID(std::string_view value) { m_programId = Kept(value); }
    std::string_view HistoryDir() const { return m_historyDir; }
    void SetHistoryDir(std::string_view value) { m_historyDir = Kept(value); }
    std::string_view HistoryTitle() const { return m_historyTitle; }
    void SetHistoryTitle(std::string_view value) { m_historyTitle = Kept(value); }

    /// Sets the parent and a counter that this parent assigned, to move the item. The item must not be a
    /// child of any entry. The ids of the items below it change too.
    void SetPlace(MenuEntry& parent, std::int32_t counter) {
        m_parent = &parent;
        m_counter = counter;
    }

    /// True when the item is a part-program button: its type begins with "P" or "p".
    bool IsPart() const;

    /// Moves the item one position among its siblings. Returns false when the item is already first or last,
    /// or has no parent.
    bool MoveUp();
    bool MoveDown();

    /// Reads the item and everything below it, and registers its histories. The parser must just have
    /// returned the start of the item's block. A block without an end is accepted. Raises 5000 for a block
    /// that is not a submenu, and TypeMismatch for a help topic that is not a number. After an error, the
    /// items below are lost, even those whose blocks were complete.
    void LoadFromFile(BlockParser& parser);

    /// Writes the item and everything below it as a block at the indent `level`. Raises the errors of
    /// MenuWriter.
    void SaveToFile(ByteSink& file, std::size_t level) const;

protected:
    std::int32_t CounterInParent() const override { return m_counter; }

private:
    static void* operator new(std::size_t size, Arena& arena) {
        return arena.Allocate(size, alignof(MenuItem));
    }
    static void operator delete(void*, Arena&) noexcept {}

    std::int32_t m_counter = 0; // placed here to use the padding after the base class
    MenuEntry* m_parent = nullptr;
    ArenaText m_menuType;
    ArenaText m_preview;
    ArenaText m_helpFile;
    ArenaText m_programId;
    ArenaText m_historyDir;
    ArenaText m_historyTitle;
    std::int32_t m_helpTopic = 0;
};

} // namespace nesk
