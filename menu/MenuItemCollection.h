#pragma once

#include "menu/ArenaAllocator.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

class BlockParser;
class MenuEntry;
class MenuItem;

/// The children of a menu entry, in display order. It owns them.
///
/// Beside each child stands its counter, so that a child is found by scanning numbers that lie side by side
/// instead of visiting every item.
class MenuItemCollection {
public:
    /// Largest number of children: positions are 16-bit numbers.
    static constexpr int MaxCount = 32767;

    /// An empty collection in an arena, from which it also takes its memory. The arena must outlive it.
    static std::unique_ptr<MenuItemCollection> Create(Arena& arena);
    ~MenuItemCollection();
    MenuItemCollection(const MenuItemCollection&) = delete;
    MenuItemCollection& operator=(const MenuItemCollection&) = delete;

    /// A collection that is deleted leaves its room to the arena.
    static void operator delete(void*) noexcept {}

    /// Sets the entry whose children these are. It must outlive the collection.
    void Initialize(MenuEntry& owner);

    /// Number of children.
    int Count() const { return static_cast<int>(m_items.size()); }

    /// Child at the 1-based position. Raises SubscriptOutOfRange outside 1 to Count.
    MenuItem& Item(int position);
    const MenuItem& Item(int position) const;

    /// Appends a new item, which takes the owner's next id. Raises Overflow when there are MaxCount children.
    MenuItem& Add(std::string_view name, std::string_view type);

    /// A new item that is no child yet: it has the owner's next id. Raises Overflow when there are MaxCount
    /// children.
    std::unique_ptr<MenuItem> NewItem();

    /// Reads an item and everything below it from the parser, which stands behind the start of its block, and
    /// appends it. When that raises, nothing is appended.
    void AddItemFromFile(BlockParser& parser);

    /// Removes a child and releases it; an item that is no child is ignored.
    void RemoveItem(const MenuItem& item);

    /// Moves a child one position up or down. False when it is none, or is the first or the last.
    bool MoveUp(const MenuItem& item);
    bool MoveDown(const MenuItem& item);

    /// Removes all children but the last, which goes with the collection, and forgets the owner: nothing can
    /// be added afterwards.
    void Terminate();

    /// Appends an item whose parent is the owner. Raises Overflow when there are MaxCount children, and
    /// leaves the item to the caller then.
    MenuItem& Append(std::unique_ptr<MenuItem>&& item);

    /// Makes room for one more child, so that the next Append or Insert cannot fail. Raises Overflow when
    /// there are MaxCount children.
    void ReserveOne();

    /// Puts an item back at a 1-based position. Its parent must be the owner. Bounds as for Item, Count + 1
    /// allowed.
    MenuItem& Insert(int position, std::unique_ptr<MenuItem>&& item);

    /// Takes the child at a 1-based position out without releasing it. Bounds as for Item.
    std::unique_ptr<MenuItem> Take(int position);

    /// 1-based position of a child; 0 when the item is none.
    int PositionOf(const MenuItem& item) const;

    /// The child whose counter is given; null when there is none.
    const MenuItem* FindCounter(std::int32_t counter) const;
    MenuItem* FindCounter(std::int32_t counter);

private:
    static void* operator new(std::size_t size, Arena& arena) {
        return arena.Allocate(size, alignof(MenuItemCollection));
    }
    static void operator delete(void*, Arena&) noexcept {}

    explicit MenuItemCollection(Arena& arena);
    std::size_t IndexOfCounter(std::int32_t counter) const;
    static std::size_t CheckedIndex(int position, std::size_t count);
    void CheckRoom() const;
    void MakeRoom();
    void Swap(std::size_t a, std::size_t b);
    void ReleaseLast();

    MenuEntry* m_owner = nullptr;
    MenuItemCollection* m_above = nullptr; // from which the release of a tree came here
    // Owned. Pointers that own by themselves would be moved one by one when a child is taken out.
    std::vector<MenuItem*, ArenaAllocator<MenuItem*>> m_items;
    std::vector<std::int32_t, ArenaAllocator<std::int32_t>> m_counters;
};

} // namespace nesk
