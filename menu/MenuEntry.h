#pragma once

#include "menu/Arena.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace nesk {

class MenuItem;
class MenuItemCollection;

/// What the root of the menu tree and its items have in common: a caption, a picture, an id and children.
///
/// An id is "R" for the root, and below it the parent's id, "." and a counter of the parent's that starts
/// at 1. Ids are never used twice while a tree lives and are not stored in the file. An entry keeps its
/// counter alone; the text is made when it is asked for.
///
/// The items of a tree and all its texts lie in the arena of its root.
class MenuEntry {
public:
    virtual ~MenuEntry();
    MenuEntry(const MenuEntry&) = delete;
    MenuEntry& operator=(const MenuEntry&) = delete;

    std::string_view Caption() const { return m_caption; }
    void SetCaption(std::string_view value) { m_caption = Kept(value); }

    /// Picture file, as a Windows path; "" for none.
    std::string_view Graphic() const { return m_graphic; }
    void SetGraphic(std::string_view value) { m_graphic = Kept(value); }

    /// Folder that holds the menu file.
    virtual const std::string& RootDirectory() const = 0;

    /// The entry above; null for the root.
    virtual const MenuEntry* ParentMenu() const = 0;
    virtual MenuEntry* ParentMenu() = 0;

    std::string ID() const;

    /// The id that the next child gets; each call uses one up. Raises Overflow after 2,147,483,646 calls.
    std::string NextID();

    /// The last number of NextID alone; otherwise as NextID.
    std::int32_t NextCounter();

    /// The children; an empty collection is made when there is none.
    MenuItemCollection& SubMenus();

    /// Number of children.
    int ChildCount() const;

    /// Number of all entries below this one.
    std::int64_t CountBelow() const;

    /// The entry with this id at or below this one; null when there is none.
    const MenuEntry* Find(const std::string& sKey) const;
    MenuEntry* Find(const std::string& sKey);

    /// Releases the children and drops the collection.
    void Terminate();

    /// The children; null when there is no collection.
    const MenuItemCollection* Children() const { return m_subMenus.get(); }
    MenuItemCollection* Children() { return m_subMenus.get(); }

protected:
    MenuEntry();

    /// Sets where the entry's texts and those of the entries below it are kept.
    void SetArena(Arena& arena) { m_arena = &arena; }

    /// A copy of the text in the arena.
    KeptText Kept(std::string_view text) const { return m_arena->Keep(text); }

    /// Ends the lives of all entries below this one.
    void ReleaseChildren();

    /// Number of this entry among the ids of its parent; 0 for the root.
    virtual std::int32_t CounterInParent() const = 0;

private:
    template <typename Entry>
    static Entry* FindFrom(Entry& first, const std::string& key);

    friend class MenuItem; // which lies in its parent's arena

    Arena* m_arena = nullptr;
    KeptText m_caption;
    KeptText m_graphic;
    std::unique_ptr<MenuItemCollection> m_subMenus;

protected:
    // A fresh root begins again, and a test near the end: handing out all numbers takes too long.
    std::int32_t m_nextCounter = 1;
};

} // namespace nesk
