#pragma once

#include "editing/MenuChange.h"

namespace nesk {

/// Inserts an item that was made before, with everything below it, among the children of an entry.
class InsertChange final : public SingleChange {
public:
    /// @param item      its parent is the entry `parentId` of the menu, and it has a counter of that parent
    /// @param position  1-based, from 1 to the number of children + 1
    InsertChange(std::unique_ptr<MenuItem> item, std::string parentId, int position);
    ~InsertChange() override;
    std::size_t Bytes() const override;

protected:
    /// Raises Overflow when the parent has the maximum number of children.
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    std::string m_id;
    std::string m_parentId;
    int m_position;
    std::shared_ptr<Arena> m_memory;  // the arena that contains the item
    std::unique_ptr<MenuItem> m_item; // null while the item is in the menu
};

} // namespace nesk
