#include "menu/MenuEntry.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <limits>
#include <vector>

namespace nesk {

MenuEntry::MenuEntry() = default;

MenuEntry::~MenuEntry() = default;

std::string MenuEntry::ID() const {
    std::vector<std::int32_t> counters;
    const MenuEntry* entry = this;
    for (; entry->ParentMenu() != nullptr; entry = entry->ParentMenu())
        counters.push_back(entry->CounterInParent());
    std::string id(MenuId::Root);
    for (auto counter = counters.rbegin(); counter != counters.rend(); ++counter)
        id.append(1, '.').append(MenuId::LastPart(*counter));
    return id;
}

std::string MenuEntry::NextID() {
    return MenuId::OfChild(ID(), NextCounter());
}

std::int32_t MenuEntry::NextCounter() {
    if (m_nextCounter == std::numeric_limits<std::int32_t>::max())
        throw NeskError(RuntimeError::Overflow, "MenuItem.NextID", Message::Overflow);
    return m_nextCounter++;
}

MenuItemCollection& MenuEntry::SubMenus() {
    // Created on demand: most entries are part buttons, which never have children.
    if (!m_subMenus) {
        m_subMenus = MenuItemCollection::Create(*m_arena);
        m_subMenus->Initialize(*this);
    }
    return *m_subMenus;
}

int MenuEntry::ChildCount() const {
    return m_subMenus ? m_subMenus->Count() : 0;
}

std::int64_t MenuEntry::CountBelow() const {
    std::int64_t count = 0;
    std::vector<const MenuEntry*> entries{this};
    while (!entries.empty()) {
        const MenuEntry* const entry = entries.back();
        entries.pop_back();
        const int children = entry->ChildCount();
        count += children;
        for (int i = 1; i <= children; ++i)
            entries.push_back(&entry->Children()->Item(i));
    }
    return count;
}

const MenuEntry* MenuEntry::Find(const std::string& sKey) const {
    return FindFrom(*this, sKey);
}

MenuEntry* MenuEntry::Find(const std::string& sKey) {
    return FindFrom(*this, sKey);
}

// Works for const and for mutable entries.
template <typename Entry>
Entry* MenuEntry::FindFrom(Entry& first, const std::string& key) {
    const std::string own = first.ID();
    if (!key.starts_with(own)) return nullptr;
    std::string_view rest = std::string_view(key).substr(own.size());
    Entry* entry = &first;
    while (!rest.empty()) {
        const auto counter = MenuId::TakeCounter(rest);
        if (!counter || !entry->m_subMenus) return nullptr;
        entry = entry->Children()->FindCounter(*counter);
        if (entry == nullptr) return nullptr;
    }
    return entry;
}

void MenuEntry::ReleaseChildren() {
    m_subMenus.reset();
}

void MenuEntry::Terminate() {
    if (m_subMenus) m_subMenus->Terminate();
    m_subMenus.reset();
}

} // namespace nesk
