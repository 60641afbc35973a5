#pragma once

#include "menu/Arena.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

class BlockParser;
class MenuEntry;
class MenuItem;

/// The children of a menu entry, in display order. The collection owns them.
///
/// The counters of the children are in an array of their own. Finding a child scans adjacent numbers instead
/// of visiting every item.
class MenuItemCollection {
public:
    /// Largest number of children: positions are 16-bit numbers.
    static constexpr int MaxCount = 32767;

    /// Creates an empty collection in an arena, which also provides the memory for its contents. The arena
    /// must outlive it.
    static std::unique_ptr<MenuItemCollection> Create(Arena& arena);
    ~MenuItemCollection();
    MenuItemCollection(const MenuItemCollection&) = delete;
    MenuItemCollection& operator=(const MenuItemCollection&) = delete;

    /// Does nothing: only the arena frees memory.
    static void operator delete(void*) noexcept {}

    /// Sets the parent of these children. It must outlive the collection.
    void Initialize(MenuEntry& owner);

    /// Number of children.
    int Count() const { return static_cast<int>(m_items.size()); }

    /// The child at a 1-based position. Raises SubscriptOutOfRange outside 1 to Count.
    MenuItem& Item(int position);
    const MenuItem& Item(int position) const;

    /// Appends a new item, which takes the owner's next id. Raises Overflow when there are MaxCount children.
    MenuItem& Add(std::string_view name, std::string_view type);

    /// Creates an item with the owner's next id. It is not yet a child. Raises Overflow when there are
    /// MaxCount children.
    std::unique_ptr<MenuItem> NewItem();

    /// Reads an item and everything below it, and appends it. The parser must just have returned the start of
    /// the item's block. Appends nothing when an error is raised.
    void AddItemFromFile(BlockParser& parser);

    /// Removes and deletes a child. Ignores an item that is not a child.
    void RemoveItem(const MenuItem& item);

    /// Moves a child one position up or down. Returns false when the item is not a child, or is already first
    /// or last.
    bool MoveUp(const MenuItem& item);
    bool MoveDown(const MenuItem& item);

    /// The counters of the children, in their order.
    std::vector<std::int32_t> Counters() const { return {m_counters.begin(), m_counters.end()}; }

    /// Gives the children another order. Returns false when `counters` are not the counters of the children;
    /// nothing has then changed.
    /// @param counters  the counters of all children in their new order
    bool Reorder(const std::vector<std::int32_t>& counters);

    /// Gives the children other counters, in their order. Their ids and the ids below them change.
    /// @param counters  one different counter for each child
    void Renumber(const std::vector<std::int32_t>& counters);

    /// Deletes all children except the last, and clears the owner. The destructor deletes the last child.
    /// Nothing can be added afterwards.
    void Terminate();

    /// Appends an item whose parent is the owner. Raises Overflow when there are MaxCount children; the
    /// caller then still owns the item.
    MenuItem& Append(std::unique_ptr<MenuItem>&& item);

    /// Reserves room for one more child, so that the next Append or Insert cannot fail. Raises Overflow when
    /// there are MaxCount children.
    void ReserveOne();

    /// Inserts an item at a 1-based position. Its parent must be the owner. Raises SubscriptOutOfRange
    /// outside 1 to Count + 1, and Overflow when there are MaxCount children.
    MenuItem& Insert(int position, std::unique_ptr<MenuItem>&& item);

    /// Removes the child at a 1-based position and returns it. Raises SubscriptOutOfRange outside 1 to Count.
    std::unique_ptr<MenuItem> Take(int position);

    /// 1-based position of a child; 0 when the item is not a child.
    int PositionOf(const MenuItem& item) const;

    /// The child with this counter; null when there is no such child.
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
    void CheckCapacity() const;
    void Grow();
    void Swap(std::size_t a, std::size_t b);
    void ReleaseLast();

    MenuEntry* m_owner = nullptr;
    MenuItemCollection* m_above = nullptr; // the collection to return to when the destructor deletes a tree
    // Owned. With smart pointers, taking a child out would move the following pointers one by one.
    std::pmr::vector<MenuItem*> m_items;
    std::pmr::vector<std::int32_t> m_counters;
};

} // namespace nesk
