#include "journal/JournalTree.h"

#include "base/NeskError.h"
#include "menu/Menu.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuText.h"

#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace nesk::JournalTree {

namespace {

constexpr int LargestCounter = std::numeric_limits<std::int32_t>::max() - 1;

// A text of an entry. One that no file can store would make the whole restored menu impossible to save.
std::string_view ReadField(JournalDecoder& in) {
    const std::string_view text = in.Text();
    if (MenuText::IsPlain(text)) return text;
    try {
        MenuText::Check(text, "JournalTree.ReadField");
    } catch (const NeskError&) {
        throw JournalDamage("a text cannot be stored");
    }
    return text;
}

int ReadCount(JournalDecoder& in) {
    return in.NumberFrom(0, MenuItemCollection::MaxCount);
}

// Appends the entries below an entry in the order of the tree, each with the number of its children.
void AppendBelow(JournalEncoder& out, const MenuEntry& entry) {
    struct Open {
        const MenuEntry* entry;
        int written;
    };
    std::vector<Open> open{{&entry, 0}};
    out.Number(static_cast<std::uint64_t>(entry.ChildCount()));
    while (!open.empty()) {
        Open& top = open.back();
        if (top.written == top.entry->ChildCount()) {
            open.pop_back();
            continue;
        }
        const MenuItem& item = top.entry->Children()->Item(++top.written);
        out.Number(static_cast<std::uint64_t>(item.Counter()));
        AppendFields(out, item);
        out.Number(static_cast<std::uint64_t>(item.ChildCount()));
        if (item.ChildCount() > 0) open.push_back({&item, 0});
    }
}

// Adds the entries that AppendBelow wrote to an entry without children.
void ReadBelow(JournalDecoder& in, MenuEntry& entry) {
    struct Open {
        MenuEntry* entry;
        int left;
    };
    std::vector<Open> open{{&entry, ReadCount(in)}};
    while (!open.empty()) {
        Open& top = open.back();
        if (top.left == 0) {
            open.pop_back();
            continue;
        }
        --top.left;
        MenuEntry& parent = *top.entry;
        MenuItem& item = parent.SubMenus().Append(MenuItem::CreateWith(parent, ReadCounter(in, parent)));
        ReadFields(in, item);
        if (const int count = ReadCount(in); count > 0) open.push_back({&item, count});
    }
}

} // namespace

std::int32_t ReadCounter(JournalDecoder& in, MenuEntry& parent, const MenuItem* but) {
    const std::int32_t counter = in.NumberFrom(1, LargestCounter);
    const MenuItem* const holder = parent.Children() != nullptr && !parent.IsNewCounter(counter)
                                       ? parent.Children()->FindCounter(counter)
                                       : nullptr;
    if (holder != nullptr && holder != but) throw JournalDamage("two entries have the same id");
    return counter;
}

void AppendId(JournalEncoder& out, std::string_view id) {
    std::string_view rest = id.substr(MenuId::Root.size());
    std::vector<std::int32_t> counters;
    while (const auto counter = MenuId::TakeCounter(rest))
        counters.push_back(*counter);
    out.Number(counters.size());
    for (const std::int32_t counter : counters)
        out.Number(static_cast<std::uint64_t>(counter));
}

MenuEntry* ReadId(JournalDecoder& in, Menu& menu) {
    MenuEntry* entry = &menu;
    for (std::uint64_t left = in.Number(); left > 0; --left) {
        const std::int32_t counter = in.NumberFrom(1, LargestCounter);
        if (entry != nullptr)
            entry = entry->Children() != nullptr ? entry->Children()->FindCounter(counter) : nullptr;
    }
    return entry;
}

void AppendFields(JournalEncoder& out, const MenuEntry& entry) {
    out.Text(entry.Caption());
    out.Text(entry.Graphic());
    const auto* item = dynamic_cast<const MenuItem*>(&entry);
    if (item == nullptr) return;
    out.Text(item->MenuType());
    out.Text(item->Preview());
    out.Text(item->HelpFile());
    out.SignedNumber(item->HelpTopic());
    out.Text(item->ProgramID());
    out.Text(item->HistoryDir());
    out.Text(item->HistoryTitle());
}

void ReadFields(JournalDecoder& in, MenuEntry& entry) {
    entry.SetCaption(ReadField(in));
    entry.SetGraphic(ReadField(in));
    auto* item = dynamic_cast<MenuItem*>(&entry);
    if (item == nullptr) return;
    item->SetMenuType(ReadField(in));
    item->SetPreview(ReadField(in));
    item->SetHelpFile(ReadField(in));
    const std::int64_t topic = in.SignedNumber();
    if (!std::in_range<std::int32_t>(topic)) throw JournalDamage("a help topic is out of range");
    item->SetHelpTopic(static_cast<std::int32_t>(topic));
    item->SetProgramID(ReadField(in));
    item->SetHistoryDir(ReadField(in));
    item->SetHistoryTitle(ReadField(in));
}

void AppendItem(JournalEncoder& out, const MenuItem& item) {
    out.Number(static_cast<std::uint64_t>(item.Counter()));
    AppendFields(out, item);
    AppendBelow(out, item);
}

std::unique_ptr<MenuItem> ReadItem(JournalDecoder& in, MenuEntry& parent) {
    std::unique_ptr<MenuItem> item = MenuItem::CreateWith(parent, ReadCounter(in, parent));
    ReadFields(in, *item);
    ReadBelow(in, *item);
    return item;
}

void AppendMenu(JournalEncoder& out, const Menu& menu) {
    AppendFields(out, menu);
    AppendBelow(out, menu);
}

void ReadMenu(JournalDecoder& in, Menu& menu) {
    menu.Initialize(std::string(menu.RootDirectory()));
    ReadFields(in, menu);
    ReadBelow(in, menu);
}

} // namespace nesk::JournalTree
