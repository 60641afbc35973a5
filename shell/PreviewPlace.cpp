#include "shell/PreviewPlace.h"

#include "menu/MenuId.h"
#include "menu/MenuItem.h"

namespace nesk {

namespace {

bool IsWithin(const std::string& id, const std::string& above) {
    return id.starts_with(above) && (id.size() == above.size() || id[above.size()] == '.');
}

bool IsSubmenu(const MenuEntry* entry) {
    const auto* item = dynamic_cast<const MenuItem*>(entry);
    return entry != nullptr && (item == nullptr || !item->IsPart());
}

} // namespace

bool PreviewPlace::Show(const std::string& id) {
    if (id.empty() || id == m_id) return false;
    m_id = id;
    return true;
}

// The submenu that is selected or holds the selected entry; "" for none.
std::string PreviewPlace::PlaceFor(const std::string& selected) const {
    const MenuEntry* entry = selected.empty() ? nullptr : m_editor.Find(selected);
    if (entry == nullptr) return "";
    return IsSubmenu(entry) ? selected : MenuId::OfParent(selected);
}

bool PreviewPlace::SetPinned(bool pinned) {
    m_isPinned = pinned;
    if (pinned || (!m_selected.empty() && MenuId::OfParent(m_selected) == m_id)) return false;
    return Show(PlaceFor(m_selected));
}

bool PreviewPlace::Follow(const std::string& selected, bool isHere) {
    if (selected == m_selected) return false;
    m_selected = selected;
    if (m_isPinned || (isHere && MenuId::OfParent(selected) == m_id)) return false;
    return Show(PlaceFor(selected));
}

bool PreviewPlace::Open(const std::string& id) {
    if (!IsSubmenu(m_editor.Find(id))) return false;
    Show(id);
    return true;
}

std::string PreviewPlace::Up() {
    const std::string parent = MenuId::OfParent(m_id);
    if (parent.empty()) return "";
    std::string left = m_id;
    m_id = parent;
    return left;
}

void PreviewPlace::OnMenuReplaced() {
    m_id = m_editor.IsOpen() ? std::string(MenuId::Root) : std::string();
    m_selected.clear();
    m_isPinned = false;
}

void PreviewPlace::OnMenuEvent(const MenuEvent& event) {
    if (event.kind == MenuEvent::Kind::Removed && IsWithin(m_id, event.id)) {
        m_id = MenuId::OfParent(event.id);
        m_isPinned = false;
    }
    if (event.kind != MenuEvent::Kind::Moved || event.formerId.empty()) return;
    for (std::string* id : {&m_id, &m_selected})
        if (IsWithin(*id, event.formerId)) id->replace(0, event.formerId.size(), event.id);
}

} // namespace nesk
