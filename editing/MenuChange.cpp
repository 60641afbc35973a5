#include "editing/MenuChange.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <utility>

namespace nesk {

namespace {

MenuItem* FindItem(Menu& menu, const std::string& id) {
    return dynamic_cast<MenuItem*>(menu.Find(id));
}

MenuEvent PlacedEvent(MenuEvent::Kind kind, const MenuItem& item, int position) {
    return {kind, item.ID(), item.ParentMenu()->ID(), position};
}

MenuEvent PlainEvent(MenuEvent::Kind kind, const std::string& id) {
    return {kind, id, "", 0};
}

// Takes an item out of its parent; where it stood is left in `parentId` and `position`.
std::unique_ptr<MenuItem> TakeOut(MenuItem& item, std::string& parentId, int& position) {
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    parentId = item.ParentMenu()->ID();
    position = siblings.PositionOf(item);
    return siblings.Take(position);
}

} // namespace

AddChange::AddChange(std::string parentId, std::string caption, std::string menuType)
    : m_parentId(std::move(parentId)), m_caption(std::move(caption)), m_menuType(std::move(menuType)) {}

AddChange::~AddChange() = default;

MenuEvent AddChange::Apply(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr) return {};
    // Made once: an entry that comes back keeps its id, by which later changes know it.
    MenuItem& item = m_removed ? parent->SubMenus().Append(std::move(m_removed))
                               : parent->SubMenus().Add(m_caption, m_menuType);
    m_id = item.ID();
    return PlacedEvent(MenuEvent::Kind::Added, item, parent->ChildCount());
}

MenuEvent AddChange::Revert(Menu& menu) {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr) return {};
    int position = 0;
    m_memory = menu.Memory();
    m_removed = TakeOut(*item, m_parentId, position);
    return PlainEvent(MenuEvent::Kind::Removed, m_id);
}

RemoveChange::RemoveChange(std::string id) : m_id(std::move(id)) {}

RemoveChange::~RemoveChange() = default;

MenuEvent RemoveChange::Apply(Menu& menu) {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr) return {};
    m_memory = menu.Memory();
    m_removed = TakeOut(*item, m_parentId, m_position);
    return PlainEvent(MenuEvent::Kind::Removed, m_id);
}

MenuEvent RemoveChange::Revert(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr || !m_removed) return {};
    MenuItem& item = parent->SubMenus().Insert(m_position, std::move(m_removed));
    return PlacedEvent(MenuEvent::Kind::Added, item, m_position);
}

MoveChange::MoveChange(std::string id, Direction direction) : m_id(std::move(id)), m_direction(direction) {}

MenuEvent MoveChange::Apply(Menu& menu) {
    return Move(menu, m_direction);
}

MenuEvent MoveChange::Revert(Menu& menu) {
    return Move(menu, m_direction == Direction::Up ? Direction::Down : Direction::Up);
}

MenuEvent MoveChange::Move(Menu& menu, Direction direction) const {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr || !(direction == Direction::Up ? item->MoveUp() : item->MoveDown())) return {};
    return PlacedEvent(MenuEvent::Kind::Moved, *item, item->ParentMenu()->SubMenus().PositionOf(*item));
}

CaptionChange::CaptionChange(std::string id, std::string caption)
    : m_id(std::move(id)), m_other(std::move(caption)) {}

MenuEvent CaptionChange::Apply(Menu& menu) {
    return Exchange(menu);
}

MenuEvent CaptionChange::Revert(Menu& menu) {
    return Exchange(menu);
}

MenuEvent CaptionChange::Exchange(Menu& menu) {
    MenuEntry* entry = menu.Find(m_id);
    if (entry == nullptr) return {};
    std::string before(entry->Caption());
    entry->SetCaption(m_other);
    m_other = std::move(before);
    return PlainEvent(MenuEvent::Kind::Edited, m_id);
}

GraphicChange::GraphicChange(std::string id, std::string graphic)
    : m_id(std::move(id)), m_other(std::move(graphic)) {}

MenuEvent GraphicChange::Apply(Menu& menu) {
    return Exchange(menu);
}

MenuEvent GraphicChange::Revert(Menu& menu) {
    return Exchange(menu);
}

MenuEvent GraphicChange::Exchange(Menu& menu) {
    MenuEntry* entry = menu.Find(m_id);
    if (entry == nullptr) return {};
    std::string before(entry->Graphic());
    entry->SetGraphic(m_other);
    m_other = std::move(before);
    return PlainEvent(MenuEvent::Kind::Edited, m_id);
}

PartChange::PartChange(std::string id, PartFields fields) : m_id(std::move(id)), m_other(std::move(fields)) {}

MenuEvent PartChange::Apply(Menu& menu) {
    return Exchange(menu);
}

MenuEvent PartChange::Revert(Menu& menu) {
    return Exchange(menu);
}

MenuEvent PartChange::Exchange(Menu& menu) {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr) return {};
    PartFields before = PartFieldsOf(*item);
    ApplyPartFields(*item, m_other);
    m_other = std::move(before);
    return PlainEvent(MenuEvent::Kind::Edited, m_id);
}

} // namespace nesk
