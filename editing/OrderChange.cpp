#include "editing/OrderChange.h"

#include "menu/Menu.h"
#include "menu/MenuItemCollection.h"

#include <utility>

namespace nesk {

OrderChange::OrderChange(std::string parentId, std::vector<std::int32_t> counters)
    : m_parentId(std::move(parentId)), m_other(std::move(counters)) {}

std::size_t OrderChange::Bytes() const {
    return sizeof *this + m_parentId.size() + m_other.size() * sizeof m_other.front();
}

MenuEvent OrderChange::Do(Menu& menu) {
    return Exchange(menu);
}

MenuEvent OrderChange::Undo(Menu& menu) {
    return Exchange(menu);
}

MenuEvent OrderChange::Exchange(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr || parent->Children() == nullptr) return {};
    std::vector<std::int32_t> before = parent->Children()->Counters();
    if (!parent->Children()->Reorder(m_other)) return {};
    m_other = std::move(before);
    return {MenuEvent::Kind::Reordered, m_parentId, {}, 0, {}};
}

} // namespace nesk
