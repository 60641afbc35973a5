#include "editing/MenuCounts.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"

#include <vector>

namespace nesk {

namespace {

// Adds the numbers of the entries below `top`.
void AddBelow(const MenuEntry& top, EntryNumbers& numbers) {
    std::vector<const MenuEntry*> parents{&top};
    while (!parents.empty()) {
        const MenuEntry& parent = *parents.back();
        parents.pop_back();
        const int count = parent.ChildCount();
        for (int i = 1; i <= count; ++i) {
            const MenuItem& item = parent.Children()->Item(i);
            ++(item.IsPart() ? numbers.parts : numbers.submenus);
            if (item.ChildCount() > 0) parents.push_back(&item);
        }
    }
}

} // namespace

MenuCounts::MenuCounts(MenuEditor& editor) : m_editor(editor) {
    m_editor.AddListener(*this);
}

MenuCounts::~MenuCounts() {
    m_editor.RemoveListener(*this);
}

void MenuCounts::OnMenuEvent(const MenuEvent& event) {
    switch (event.kind) {
    case MenuEvent::Kind::Added: {
        const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(event.id));
        if (item == nullptr) break;
        ++(item->IsPart() ? m_numbers.parts : m_numbers.submenus);
        AddBelow(*item, m_numbers);
        break;
    }
    // The entry and those below it are gone already.
    case MenuEvent::Kind::Removed: m_isKnown = false; break;
    case MenuEvent::Kind::None:
    case MenuEvent::Kind::Moved:
    case MenuEvent::Kind::Reordered:
    case MenuEvent::Kind::Edited: break;
    }
}

const EntryNumbers& MenuCounts::Numbers() {
    if (!m_isKnown) {
        m_numbers = {};
        if (const Menu* menu = m_editor.OpenMenu()) AddBelow(*menu, m_numbers);
        m_isKnown = true;
    }
    return m_numbers;
}

} // namespace nesk
