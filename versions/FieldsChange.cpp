#include "versions/FieldsChange.h"

#include "menu/Menu.h"

#include <utility>

namespace nesk {

FieldsChange::FieldsChange(std::string id, EntryFields::Values fields)
    : m_id(std::move(id)), m_other(std::move(fields)) {}

std::size_t FieldsChange::Bytes() const {
    std::size_t bytes = sizeof *this + m_id.size();
    for (const std::string& value : m_other)
        bytes += value.size();
    return bytes;
}

MenuEvent FieldsChange::Do(Menu& menu) {
    return Exchange(menu);
}

MenuEvent FieldsChange::Undo(Menu& menu) {
    return Exchange(menu);
}

MenuEvent FieldsChange::Exchange(Menu& menu) {
    MenuEntry* entry = menu.Find(m_id);
    if (entry == nullptr) return {};
    EntryFields::Values before = EntryFields::ValuesOf(*entry);
    for (const MenuKey field : EntryFields::All) {
        const auto index = static_cast<std::size_t>(field);
        // Each set text takes memory.
        if (m_other[index] != before[index]) EntryFields::Set(*entry, field, m_other[index]);
    }
    m_other = std::move(before);
    return {MenuEvent::Kind::Edited, m_id, {}, 0, {}};
}

} // namespace nesk
