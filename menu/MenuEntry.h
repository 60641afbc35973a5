#pragma once

#include "menu/Arena.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nesk {

class MenuItem;
class MenuItemCollection;

/// The base class of the menu tree's root and items: a caption, a picture, an id and children.
///
/// The id of the root is "R". Every other id is the parent's id, "." and a counter that the parent assigns
/// from 1 up. Ids are never reused while a tree exists, and they are not stored in the file. An entry stores
/// only its counter; the text of the id is built on demand.
///
/// The items of a tree and all its texts are in the arena of its root.
class MenuEntry {
public:
    virtual ~MenuEntry();
    MenuEntry(const MenuEntry&) = delete;
    MenuEntry& operator=(const MenuEntry&) = delete;

    std::string_view Caption() const { return m_caption; }
    void SetCaption(std::string_view value) { m_caption = Kept(value); }

    /// Picture file, as a Windows path; "" for no picture.
    std::string_view Graphic() const { return m_graphic; }
    void SetGraphic(std::string_view value) { m_graphic = Kept(value); }

    /// Folder that contains the menu file.
    virtual const std::string& RootDirectory() const = 0;

    /// The entry above; null for the root.
    virtual const MenuEntry* ParentMenu() const = 0;
    virtual MenuEntry* ParentMenu() = 0;

    std::string ID() const;

    /// Returns the id for the next child. Each call uses one id. Raises Overflow after 2,147,483,646 calls.
    std::string NextID();

    /// Does the same as NextID, but returns only the last number of the id.
    std::int32_t NextCounter();

    /// Ensures that NextCounter never returns this counter: an entry has it already.
    /// @param counter  less than the largest 32-bit number
    void KeepCounter(std::int32_t counter) {
        if (counter >= m_nextCounter) m_nextCounter = counter + 1;
    }

    /// True when NextCounter has not returned this counter yet, so that no entry has it.
    bool IsNewCounter(std::int32_t counter) const { return counter >= m_nextCounter; }

    /// The children. Creates an empty collection when there is no collection yet.
    MenuItemCollection& SubMenus();

    /// Number of children.
    int ChildCount() const;

    /// Number of all entries below this one.
    std::int64_t CountBelow() const;

    /// Finds the entry with this id, at or below this entry; null when there is no such entry.
    const MenuEntry* Find(const std::string& sKey) const;
    MenuEntry* Find(const std::string& sKey);

    /// Deletes the children and the collection.
    void Terminate();

    /// The children; null when there is no collection.
    const MenuItemCollection* Children() const { return m_subMenus.get(); }
    MenuItemCollection* Children() { return m_subMenus.get(); }

protected:
    MenuEntry();

    /// Sets the arena for the texts of this entry and of the entries below it.
    void SetArena(Arena& arena) { m_arena = &arena; }

    /// A copy of the text in the arena.
    ArenaText Kept(std::string_view text) const { return m_arena->Keep(text); }

    /// Deletes all entries below this one.
    void ReleaseChildren();

    /// The counter that the parent assigned to this entry; 0 for the root.
    virtual std::int32_t CounterInParent() const = 0;

private:
    template <typename Entry>
    static Entry* FindFrom(Entry& first, const std::string& key);

    friend class MenuItem; // it uses its parent's m_arena

    Arena* m_arena = nullptr;
    ArenaText m_caption;
    ArenaText m_graphic;
    std::unique_ptr<MenuItemCollection> m_subMenus;

protected:
    // Protected because a reset root starts again at 1, and because a test starts near the end: assigning all
    // numbers takes too long.
    std::int32_t m_nextCounter = 1;
};

} // namespace nesk
