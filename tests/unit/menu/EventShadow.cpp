#include "unit/menu/EventShadow.h"

#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace nesk::testing {

namespace {

std::vector<std::string> IdsBelow(const MenuEntry& entry) {
    std::vector<std::string> ids;
    for (int i = 1; i <= entry.ChildCount(); ++i)
        ids.push_back(entry.Children()->Item(i).ID());
    return ids;
}

std::string TextsOf(const MenuEntry& entry) {
    std::string texts(entry.Caption());
    const auto append = [&](std::string_view text) { texts.append("\n").append(text); };
    append(entry.Graphic());
    const auto* item = dynamic_cast<const MenuItem*>(&entry);
    if (item == nullptr) return texts;
    for (const std::string_view text : {item->MenuType(), item->Preview(), item->ProgramID(),
                                        item->HelpFile(), item->HistoryDir(), item->HistoryTitle()})
        append(text);
    append(std::to_string(item->HelpTopic()));
    return texts;
}

bool IsWithin(const std::string& id, const std::string& above) {
    return id.starts_with(above) && (id.size() == above.size() || id[above.size()] == '.');
}

} // namespace

void EventShadow::Reset(const MenuEntry& menu) {
    m_rows.clear();
    Add(menu);
}

void EventShadow::Add(const MenuEntry& entry) {
    m_rows[entry.ID()] = {IdsBelow(entry), TextsOf(entry)};
    for (int i = 1; i <= entry.ChildCount(); ++i)
        Add(entry.Children()->Item(i));
}

void EventShadow::Follow(const MenuEvent& event, const MenuEntry& menu) {
    const auto insert = [&] {
        std::vector<std::string>& siblings = ChildrenOf(event.parentId);
        const auto place = std::clamp<std::ptrdiff_t>(event.position - 1, 0, std::ssize(siblings));
        siblings.insert(siblings.begin() + place, event.id);
    };
    switch (event.kind) {
    case MenuEvent::Kind::None: break;
    case MenuEvent::Kind::Edited: m_rows[event.id].texts = TextsOf(*menu.Find(event.id)); break;
    case MenuEvent::Kind::Reordered: ChildrenOf(event.id) = IdsBelow(*menu.Find(event.id)); break;
    case MenuEvent::Kind::Removed:
        std::erase(ChildrenOf(MenuId::OfParent(event.id)), event.id);
        std::erase_if(m_rows, [&](const auto& row) { return IsWithin(row.first, event.id); });
        break;
    case MenuEvent::Kind::Added:
        insert();
        Add(*menu.Find(event.id));
        break;
    case MenuEvent::Kind::Moved: {
        const std::string former = event.formerId.empty() ? event.id : event.formerId;
        std::erase(ChildrenOf(MenuId::OfParent(former)), former);
        insert();
        if (former == event.id) break;
        const auto renamed = [&](std::string id) {
            return IsWithin(id, former) ? id.replace(0, former.size(), event.id) : id;
        };
        std::map<std::string, Row> rows;
        for (auto& [id, row] : m_rows) {
            std::transform(row.children.begin(), row.children.end(), row.children.begin(), renamed);
            rows[renamed(id)] = std::move(row);
        }
        m_rows = std::move(rows);
    }
    }
}

std::string EventShadow::DifferenceFrom(const MenuEntry& menu) const {
    EventShadow expected;
    expected.Reset(menu);
    if (m_rows == expected.m_rows) return "";
    for (const auto& [id, row] : expected.m_rows) {
        const auto own = m_rows.find(id);
        if (own == m_rows.end() || own->second.children != row.children)
            return "the events do not tell what is below " + id;
        if (own->second.texts != row.texts) return "the events do not tell the texts of " + id;
    }
    return "the events leave an entry that is not there";
}

} // namespace nesk::testing
