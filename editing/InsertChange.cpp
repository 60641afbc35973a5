#include "editing/InsertChange.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <utility>

namespace nesk {

InsertChange::InsertChange(std::unique_ptr<MenuItem> item, std::string parentId, int position)
    : m_id(item->ID()), m_parentId(std::move(parentId)), m_position(position), m_item(std::move(item)) {}

InsertChange::~InsertChange() = default;

std::size_t InsertChange::Bytes() const {
    const std::size_t own = sizeof *this + m_id.size() + m_parentId.size();
    return m_item ? own + static_cast<std::size_t>(m_item->CountBelow() + 1) * sizeof(MenuItem) : own;
}

MenuEvent InsertChange::Do(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr || !m_item) return {};
    parent->SubMenus().Insert(m_position, std::move(m_item));
    return {MenuEvent::Kind::Added, m_id, m_parentId, m_position, {}};
}

MenuEvent InsertChange::Undo(Menu& menu) {
    auto* item = dynamic_cast<MenuItem*>(menu.Find(m_id));
    if (item == nullptr) return {};
    m_memory = menu.Memory();
    MenuItemCollection& siblings = item->ParentMenu()->SubMenus();
    m_item = siblings.Take(siblings.PositionOf(*item));
    return {MenuEvent::Kind::Removed, m_id, {}, 0, {}};
}

} // namespace nesk
