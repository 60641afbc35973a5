#include "editing/MoveToChange.h"

#include "base/Messages.h"
#include "menu/Menu.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <utility>

namespace nesk {

namespace {

// Takes the item out of its parent and gives it another place. When there is no room for it, nothing has
// changed.
void Transplant(MenuItem& item, MenuEntry& parent, std::int32_t counter, int position) {
    MenuItemCollection& target = parent.SubMenus();
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    if (&target != &siblings) target.ReserveOne();
    std::unique_ptr<MenuItem> taken = siblings.Take(siblings.PositionOf(item));
    taken->SetPlace(parent, counter);
    target.Insert(position, std::move(taken));
}

NeskError Refusal(int messageId, std::string argument = {}) {
    return {5000, "MenuEditor.MoveTo", messageId, {std::move(argument)}};
}

} // namespace

MoveToChange::MoveToChange(std::string id, std::string parentId, int position, Parents parents)
    : m_id(std::move(id)), m_parentId(std::move(parentId)), m_position(position), m_parents(parents) {}

std::optional<NeskError> MoveToChange::WhyNot(const Menu& menu, const std::string& id,
                                              const std::string& parentId, Parents parents) {
    const MenuEntry* entry = menu.Find(id);
    const MenuEntry* parent = menu.Find(parentId);
    if (entry == nullptr || parent == nullptr) return std::nullopt;
    if (entry == &menu) return Refusal(Message::RootStays);
    for (const MenuEntry* at = parent; at != nullptr; at = at->ParentMenu())
        if (at == entry) return Refusal(Message::MoveIntoItself, std::string(entry->Caption()));
    const auto* target = dynamic_cast<const MenuItem*>(parent);
    if (parents == Parents::Submenus && target != nullptr && target->IsPart())
        return Refusal(Message::MoveIntoPart, std::string(parent->Caption()));
    if (entry->ParentMenu() != parent && parent->ChildCount() >= MenuItemCollection::MaxCount)
        return NeskError(RuntimeError::Overflow, "MenuEditor.MoveTo", Message::TooManyChildren);
    return std::nullopt;
}

MenuEvent MoveToChange::Do(Menu& menu) {
    auto* item = dynamic_cast<MenuItem*>(menu.Find(m_id));
    MenuEntry* parent = menu.Find(m_parentId);
    if (auto refusal = WhyNot(menu, m_id, m_parentId, m_parents)) throw *std::move(refusal);
    if (item == nullptr || parent == nullptr) return {};
    MenuEntry& oldParent = *item->ParentMenu();
    const bool isOther = &oldParent != parent;
    const int last = parent->ChildCount() + (isOther ? 1 : 0);
    const int position = m_position < 1 || m_position > last ? last : m_position;
    m_oldPosition = oldParent.SubMenus().PositionOf(*item);
    if (!isOther && position == m_oldPosition) return {};
    m_oldCounter = item->Counter();
    // Before anything is taken: there may be no counter left.
    if (m_newCounter == 0) m_newCounter = isOther ? parent->NextCounter() : m_oldCounter;
    Transplant(*item, *parent, m_newCounter, position);
    m_newId = item->ID();
    return {MenuEvent::Kind::Moved, m_newId, m_parentId, position, isOther ? m_id : ""};
}

MenuEvent MoveToChange::Undo(Menu& menu) {
    auto* item = dynamic_cast<MenuItem*>(menu.Find(m_newId));
    MenuEntry* parent = menu.Find(MenuId::OfParent(m_id));
    if (item == nullptr || parent == nullptr) return {};
    Transplant(*item, *parent, m_oldCounter, m_oldPosition);
    return {MenuEvent::Kind::Moved, m_id, parent->ID(), m_oldPosition, m_newId != m_id ? m_newId : ""};
}

} // namespace nesk
