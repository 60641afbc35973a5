#include "unit/versions/RandomMenu.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "versions/EntryFields.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace nesk::testing {

namespace {

std::vector<MenuEntry*> EntriesOf(Menu& menu) {
    std::vector<MenuEntry*> entries;
    std::vector<MenuEntry*> open{&menu};
    while (!open.empty()) {
        MenuEntry* entry = open.back();
        open.pop_back();
        entries.push_back(entry);
        for (int i = entry->ChildCount(); i > 0; --i)
            open.push_back(&entry->SubMenus().Item(i));
    }
    return entries;
}

bool IsIn(const MenuEntry* entry, const MenuEntry& above) {
    for (; entry != nullptr; entry = entry->ParentMenu())
        if (entry == &above) return true;
    return false;
}

// Calls `line` for each entry with its depth, in the order of the tree.
template <typename Line>
void ForEach(const Menu& menu, Line line) {
    std::vector<std::pair<const MenuEntry*, int>> open{{&menu, 0}};
    while (!open.empty()) {
        const auto [entry, depth] = open.back();
        open.pop_back();
        line(*entry, depth);
        for (int i = entry->ChildCount(); i > 0; --i)
            open.emplace_back(&entry->Children()->Item(i), depth + 1);
    }
}

} // namespace

std::string RandomMenu::Text(const char* stem, int variety) {
    const int number = Below(variety);
    return number == 0 ? "" : stem + std::to_string(number);
}

void RandomMenu::Fill(MenuItem& item) {
    item.SetCaption(Text("entry ", 30));
    item.SetGraphic(Text("picture ", 4));
    item.SetMenuType(Below(3) == 0 ? MenuItem::SubmenuType : MenuItem::PartType);
    if (item.IsPart()) item.SetProgramID(Text("program ", 12));
    item.SetHelpTopic(Below(3));
}

MenuEntry& RandomMenu::AnyParent(Menu& menu) {
    std::vector<MenuEntry*> entries = EntriesOf(menu);
    std::erase_if(entries, [](const MenuEntry* entry) { return EntryFields::IsPart(*entry); });
    MenuEntry* const any = entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))];
    return *any;
}

void RandomMenu::Add(Menu& menu) {
    MenuEntry& parent = AnyParent(menu);
    auto item = parent.SubMenus().NewItem();
    Fill(*item);
    parent.SubMenus().Insert(1 + Below(parent.ChildCount() + 1), std::move(item));
}

std::unique_ptr<Menu> RandomMenu::Make(int entries) {
    auto menu = std::make_unique<Menu>();
    menu->Initialize("C:\\Neskroot");
    for (int i = 0; i < entries; ++i)
        Add(*menu);
    return menu;
}

void RandomMenu::EditField(MenuEntry& entry) {
    switch (Below(5)) {
    case 0: return EntryFields::Set(entry, MenuKey::Caption, Text("entry ", 30));
    case 1: return EntryFields::Set(entry, MenuKey::Graphic, Text("picture ", 4));
    case 2: return EntryFields::Set(entry, MenuKey::HelpTopic, std::to_string(Below(4)));
    case 3: return EntryFields::Set(entry, MenuKey::HistoryTitle, Text("history ", 3));
    default: return EntryFields::Set(entry, MenuKey::ProgramId, Text("program ", 12));
    }
}

void RandomMenu::Move(Menu& menu, MenuItem& item) {
    MenuEntry& parent = AnyParent(menu);
    if (IsIn(&parent, item)) return;
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    const bool isSame = item.ParentMenu() == &parent;
    std::unique_ptr<MenuItem> taken = siblings.Take(siblings.PositionOf(item));
    if (!isSame) taken->SetPlace(parent, parent.NextCounter());
    parent.SubMenus().Insert(1 + Below(parent.ChildCount() + 1), std::move(taken));
}

void RandomMenu::EditOnce(Menu& menu) {
    const std::vector<MenuEntry*> entries = EntriesOf(menu);
    MenuEntry& any = *entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))];
    auto* item = dynamic_cast<MenuItem*>(&any);
    switch (item != nullptr ? Below(6) : Below(2)) {
    case 0: return EditField(any);
    case 1: return Add(menu);
    case 2: return any.ParentMenu()->SubMenus().RemoveItem(*item);
    case 3: {
        MenuItemCollection& siblings = item->ParentMenu()->SubMenus();
        auto taken = siblings.Take(siblings.PositionOf(*item));
        siblings.Insert(1 + Below(siblings.Count() + 1), std::move(taken));
        return;
    }
    default: return Move(menu, *item);
    }
}

void RandomMenu::Edit(Menu& menu, int edits) {
    for (int i = 0; i < edits; ++i)
        EditOnce(menu);
}

void RandomMenu::MoveAndAdd(Menu& menu, int edits) {
    for (int i = 0; i < edits; ++i) {
        const std::vector<MenuEntry*> entries = EntriesOf(menu);
        auto* item = dynamic_cast<MenuItem*>(
            entries[static_cast<std::size_t>(Below(static_cast<int>(entries.size())))]);
        if (item == nullptr || Below(3) == 0)
            Add(menu);
        else
            Move(menu, *item);
    }
}

std::string ContentText(const Menu& menu) {
    std::ostringstream text;
    ForEach(menu, [&](const MenuEntry& entry, int depth) {
        text << std::string(static_cast<std::size_t>(depth), ' ');
        for (const std::string& value : EntryFields::ValuesOf(entry))
            text << value << '|';
        text << '\n';
    });
    return text.str();
}

std::unique_ptr<Menu> MenuFrom(const std::string& text) {
    auto menu = std::make_unique<Menu>();
    menu->Initialize("C:\\Neskroot");
    std::vector<MenuEntry*> open{menu.get()};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t depth = line.find_first_not_of(' ');
        const std::size_t colon = line.find(':');
        const bool isPart = colon != std::string::npos;
        open.resize(depth + 1);
        MenuItem& item = open.back()->SubMenus().Add(line.substr(depth, isPart ? colon - depth : colon),
                                                     isPart ? MenuItem::PartType : MenuItem::SubmenuType);
        if (isPart) item.SetProgramID(line.substr(colon + 1));
        open.push_back(&item);
    }
    return menu;
}

std::string Outline(const Menu& menu) {
    std::string text;
    ForEach(menu, [&](const MenuEntry& entry, int depth) {
        if (depth == 0) return;
        text.append(static_cast<std::size_t>(depth) - 1, ' ').append(entry.Caption());
        if (EntryFields::IsPart(entry))
            text.append(":").append(EntryFields::TextOf(entry, MenuKey::ProgramId));
        text.append("\n");
    });
    return text;
}

MenuItem& EntryNamed(Menu& menu, const std::string& caption) {
    for (MenuEntry* entry : EntriesOf(menu))
        if (entry->Caption() == caption) return dynamic_cast<MenuItem&>(*entry);
    throw std::runtime_error("no entry named " + caption);
}

} // namespace nesk::testing
