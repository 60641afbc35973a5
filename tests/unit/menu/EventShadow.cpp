#include "unit/menu/EventShadow.h"

#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <algorithm>
#include <utility>

namespace nesk::testing {

namespace {

std::vector<std::string> IdsBelow(const MenuEntry& entry) {
    std::vector<std::string> ids;
    for (int i = 1; i <= entry.ChildCount(); ++i)
        ids.push_back(entry.Children()->Item(i).ID());
    return ids;
}

bool IsWithin(const std::string& id, const std::string& above) {
    return id.starts_with(above) && (id.size() == above.size() || id[above.size()] == '.');
}

} // namespace

void EventShadow::Reset(const MenuEntry& menu) {
    m_children.clear();
    Add(menu);
}

void EventShadow::Add(const MenuEntry& entry) {
    m_children[entry.ID()] = IdsBelow(entry);
    for (int i = 1; i <= entry.ChildCount(); ++i)
        Add(entry.Children()->Item(i));
}

void EventShadow::Erase(const std::string& id) {
    std::erase(m_children[MenuId::OfParent(id)], id);
}

void EventShadow::Follow(const MenuEvent& event, const MenuEntry& menu) {
    const auto insert = [&] {
        std::vector<std::string>& siblings = m_children[event.parentId];
        const auto place = std::clamp<std::ptrdiff_t>(event.position - 1, 0, std::ssize(siblings));
        siblings.insert(siblings.begin() + place, event.id);
    };
    switch (event.kind) {
    case MenuEvent::Kind::None:
    case MenuEvent::Kind::Edited: break;
    case MenuEvent::Kind::Reordered: m_children[event.id] = IdsBelow(*menu.Find(event.id)); break;
    case MenuEvent::Kind::Removed:
        Erase(event.id);
        std::erase_if(m_children, [&](const auto& below) { return IsWithin(below.first, event.id); });
        break;
    case MenuEvent::Kind::Added:
        insert();
        Add(*menu.Find(event.id));
        break;
    case MenuEvent::Kind::Moved: {
        const std::string former = event.formerId.empty() ? event.id : event.formerId;
        Erase(former);
        insert();
        if (former == event.id) break;
        const auto renamed = [&](std::string id) {
            return IsWithin(id, former) ? id.replace(0, former.size(), event.id) : id;
        };
        std::map<std::string, std::vector<std::string>> children;
        for (auto& [id, ids] : m_children) {
            std::transform(ids.begin(), ids.end(), ids.begin(), renamed);
            children[renamed(id)] = std::move(ids);
        }
        m_children = std::move(children);
    }
    }
}

std::string EventShadow::DifferenceFrom(const MenuEntry& menu) const {
    EventShadow expected;
    expected.Reset(menu);
    if (m_children == expected.m_children) return "";
    for (const auto& [id, ids] : expected.m_children)
        if (const auto own = m_children.find(id); own == m_children.end() || own->second != ids)
            return "the events do not tell what is below " + id;
    return "the events leave an entry that is not there";
}

} // namespace nesk::testing
