#include "versions/FlatMenu.h"

#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "versions/TextHash.h"

namespace nesk {

namespace {

std::uint64_t HashOf(const MenuEntry& entry) {
    TextHash hash;
    hash.Add(entry.Caption());
    hash.Add(entry.Graphic());
    if (entry.ParentMenu() == nullptr) return hash.Value();
    const auto& item = static_cast<const MenuItem&>(entry);
    hash.Add(item.Preview());
    hash.Add(item.HelpFile());
    hash.Add(static_cast<std::uint64_t>(static_cast<std::uint32_t>(item.HelpTopic())));
    hash.Add(item.MenuType());
    hash.Add(item.ProgramID());
    hash.Add(item.HistoryDir());
    hash.Add(item.HistoryTitle());
    return hash.Value();
}

} // namespace

FlatMenu::FlatMenu(const Menu& menu) {
    List(menu);
    m_subtrees = m_contents;
    // Children come after their parents, so each subtree is complete when its turn comes. The sum of a
    // subtree is handed up from its last child to its first, which makes it depend on the order.
    for (int at = Count() - 1; at > 0; --at) {
        // Both are added: an entry like its only child must not cancel it out.
        TextHash hash;
        hash.Add(m_subtrees[Index(Parent(at))]);
        hash.Add(m_subtrees[Index(at)]);
        m_subtrees[Index(Parent(at))] = hash.Value();
    }
}

void FlatMenu::List(const Menu& menu) {
    // An entry whose children are being listed, and the number of those already listed.
    struct Open {
        int at;
        int listed;
    };
    const auto add = [this](const MenuEntry& entry, int parent) {
        m_entries.push_back(&entry);
        m_parents.push_back(parent);
        m_ends.push_back(Count());
        m_contents.push_back(HashOf(entry));
    };
    add(menu, None);
    std::vector<Open> open{{0, 0}};
    while (!open.empty()) {
        Open& top = open.back();
        const MenuEntry& entry = Entry(top.at);
        if (top.listed == entry.ChildCount()) {
            m_ends[Index(top.at)] = Count();
            open.pop_back();
            continue;
        }
        const MenuItem& child = entry.Children()->Item(++top.listed);
        add(child, top.at);
        if (child.ChildCount() > 0) open.push_back({Count() - 1, 0});
    }
}

std::vector<int> FlatMenu::Children(int at) const {
    std::vector<int> children;
    for (int child = FirstChild(at); child != None; child = NextSibling(child))
        children.push_back(child);
    return children;
}

} // namespace nesk
