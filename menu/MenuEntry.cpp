#include "menu/MenuEntry.h"

#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <charconv>
#include <limits>
#include <vector>

namespace nesk {

namespace {

// Takes ".<counter>" off the front of an id. 0 when that is not what stands there; counters are written
// without leading zeros, so that every entry has one id.
std::int32_t TakeCounter(std::string_view& rest) {
    if (rest.size() < 2 || rest[0] != '.' || rest[1] < '1' || rest[1] > '9') return 0;
    std::int32_t counter = 0;
    const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), counter);
    if (error != std::errc()) return 0;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return counter;
}

} // namespace

MenuEntry::MenuEntry() = default;

MenuEntry::~MenuEntry() = default;

std::string MenuEntry::ID() const {
    std::vector<std::int32_t> counters;
    const MenuEntry* entry = this;
    for (; entry->ParentMenu() != nullptr; entry = entry->ParentMenu())
        counters.push_back(entry->CounterInParent());
    std::string id = "R";
    for (auto counter = counters.rbegin(); counter != counters.rend(); ++counter)
        id.append(1, '.').append(std::to_string(*counter));
    return id;
}

std::string MenuEntry::NextID() {
    return ID() + "." + std::to_string(NextCounter());
}

std::int32_t MenuEntry::NextCounter() {
    if (m_nextCounter == std::numeric_limits<std::int32_t>::max())
        throw NeskError(RuntimeError::Overflow, "MenuItem.NextID", Message::Overflow);
    return m_nextCounter++;
}

MenuItemCollection& MenuEntry::SubMenus() {
    // Made when first needed: most entries are part buttons, which never have children.
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

MenuEntry* MenuEntry::Find(const std::string& sKey) {
    const std::string own = ID();
    if (!sKey.starts_with(own)) return nullptr;
    std::string_view rest = std::string_view(sKey).substr(own.size());
    MenuEntry* entry = this;
    while (!rest.empty()) {
        const std::int32_t counter = TakeCounter(rest);
        if (counter == 0 || !entry->m_subMenus) return nullptr;
        entry = entry->m_subMenus->FindCounter(counter);
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
