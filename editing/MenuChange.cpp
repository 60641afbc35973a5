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
    return {kind, item.ID(), item.ParentMenu()->ID(), position, {}};
}

MenuEvent PlainEvent(MenuEvent::Kind kind, const std::string& id) {
    return {kind, id, {}, 0, {}};
}

// Approximate memory of a change that keeps a removed item. The item's texts are not counted, because they
// are in the tree's arena.
std::size_t BytesOf(const MenuItem* removed) {
    return removed != nullptr ? static_cast<std::size_t>(removed->CountBelow() + 1) * sizeof(MenuItem) : 0;
}

bool Report(const MenuEvent& event, const MenuEventHandler& report) {
    if (event.kind == MenuEvent::Kind::None) return false;
    report(event);
    return true;
}

// Removes an item from its parent, and stores its former place in `parentId` and `position`.
std::unique_ptr<MenuItem> Detach(MenuItem& item, std::string& parentId, int& position) {
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    parentId = item.ParentMenu()->ID();
    position = siblings.PositionOf(item);
    return siblings.Take(position);
}

} // namespace

bool SingleChange::Apply(Menu& menu, const MenuEventHandler& report) {
    return Report(Do(menu), report);
}

bool SingleChange::Revert(Menu& menu, const MenuEventHandler& report) {
    return Report(Undo(menu), report);
}

AddChange::AddChange(std::string parentId, std::string caption, std::string menuType)
    : m_parentId(std::move(parentId)), m_caption(std::move(caption)), m_menuType(std::move(menuType)) {}

AddChange::~AddChange() = default;

std::size_t AddChange::Bytes() const {
    return sizeof *this + m_parentId.size() + m_caption.size() + m_id.size() + BytesOf(m_removed.get());
}

MenuEvent AddChange::Do(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr) return {};
    // The item is created only once. It keeps its id when it is put back, because later changes refer to that
    // id.
    MenuItem& item = m_removed ? parent->SubMenus().Append(std::move(m_removed))
                               : parent->SubMenus().Add(m_caption, m_menuType);
    m_id = item.ID();
    return PlacedEvent(MenuEvent::Kind::Added, item, parent->ChildCount());
}

MenuEvent AddChange::Undo(Menu& menu) {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr) return {};
    int position = 0;
    m_memory = menu.Memory();
    m_removed = Detach(*item, m_parentId, position);
    return PlainEvent(MenuEvent::Kind::Removed, m_id);
}

RemoveChange::RemoveChange(std::string id) : m_id(std::move(id)) {}

RemoveChange::~RemoveChange() = default;

std::size_t RemoveChange::Bytes() const {
    return sizeof *this + m_id.size() + m_parentId.size() + BytesOf(m_removed.get());
}

MenuEvent RemoveChange::Do(Menu& menu) {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr) return {};
    m_memory = menu.Memory();
    m_removed = Detach(*item, m_parentId, m_position);
    return PlainEvent(MenuEvent::Kind::Removed, m_id);
}

MenuEvent RemoveChange::Undo(Menu& menu) {
    MenuEntry* parent = menu.Find(m_parentId);
    if (parent == nullptr || !m_removed) return {};
    MenuItem& item = parent->SubMenus().Insert(m_position, std::move(m_removed));
    return PlacedEvent(MenuEvent::Kind::Added, item, m_position);
}

MoveChange::MoveChange(std::string id, Direction direction) : m_id(std::move(id)), m_direction(direction) {}

std::size_t MoveChange::Bytes() const {
    return sizeof *this + m_id.size();
}

MenuEvent MoveChange::Do(Menu& menu) {
    return Move(menu, m_direction);
}

MenuEvent MoveChange::Undo(Menu& menu) {
    return Move(menu, m_direction == Direction::Up ? Direction::Down : Direction::Up);
}

MenuEvent MoveChange::Move(Menu& menu, Direction direction) const {
    MenuItem* item = FindItem(menu, m_id);
    if (item == nullptr || !(direction == Direction::Up ? item->MoveUp() : item->MoveDown())) return {};
    return PlacedEvent(MenuEvent::Kind::Moved, *item, item->ParentMenu()->SubMenus().PositionOf(*item));
}

CaptionChange::CaptionChange(std::string id, std::string caption)
    : m_id(std::move(id)), m_other(std::move(caption)) {}

std::size_t CaptionChange::Bytes() const {
    return sizeof *this + m_id.size() + m_other.size();
}

MenuEvent CaptionChange::Do(Menu& menu) {
    return Exchange(menu);
}

MenuEvent CaptionChange::Undo(Menu& menu) {
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

std::size_t GraphicChange::Bytes() const {
    return sizeof *this + m_id.size() + m_other.size();
}

MenuEvent GraphicChange::Do(Menu& menu) {
    return Exchange(menu);
}

MenuEvent GraphicChange::Undo(Menu& menu) {
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

std::size_t PartChange::Bytes() const {
    return sizeof *this + m_id.size() + m_other.graphic.size() + m_other.preview.size() +
           m_other.programId.size() + m_other.helpFile.size() + m_other.historyDir.size() +
           m_other.historyTitle.size();
}

MenuEvent PartChange::Do(Menu& menu) {
    return Exchange(menu);
}

MenuEvent PartChange::Undo(Menu& menu) {
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
