// Merges three menus made from arbitrary bytes: an entry is made of a few bytes, and the sides are copies of
// the base with edits. Whatever they contain, the rules of merging hold, and the open menu becomes the merged
// one and back.

#include "base/ByteSink.h"
#include "base/ByteSource.h"
#include "base/NeskError.h"
#include "editing/MenuEditor.h"
#include "fuzz/Fuzz.h"
#include "menu/BlockParser.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"
#include "versions/EntryFields.h"
#include "versions/MenuDiff.h"
#include "versions/MenuMerge.h"
#include "versions/MenuUpdate.h"
#include "versions/WithEntriesOf.h"

#include <algorithm>
#include <vector>

namespace nesk::fuzz {

namespace {

// Menus with more entries only slow the run down.
constexpr std::size_t MostBytes = 600;

// The bytes of an input, one after another; zeros after the last one.
class Bytes {
public:
    explicit Bytes(const std::string& input) : m_input(input) {}

    bool AtEnd() const { return m_at >= m_input.size(); }

    unsigned Next() { return AtEnd() ? 0U : static_cast<unsigned char>(m_input[m_at++]); }

    // A number from 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(Next()) % count; }

private:
    const std::string& m_input;
    std::size_t m_at = 0;
};

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

std::string TextOf(const Menu& menu) {
    std::string text;
    std::vector<std::pair<const MenuEntry*, int>> open{{&menu, 0}};
    while (!open.empty()) {
        const auto [entry, depth] = open.back();
        open.pop_back();
        text.append(std::to_string(depth));
        for (const std::string& value : EntryFields::ValuesOf(*entry))
            text.append("|").append(value);
        text.append("\n");
        for (int i = entry->ChildCount(); i > 0; --i)
            open.emplace_back(&entry->Children()->Item(i), depth + 1);
    }
    return text;
}

MenuEntry& Any(Menu& menu, Bytes& bytes) {
    const std::vector<MenuEntry*> entries = EntriesOf(menu);
    MenuEntry* const any = entries[static_cast<std::size_t>(bytes.Below(static_cast<int>(entries.size())))];
    return *any;
}

void Add(Menu& menu, Bytes& bytes) {
    MenuItemCollection& children = Any(menu, bytes).SubMenus();
    auto item = children.NewItem();
    item->SetCaption(std::string(1, static_cast<char>('a' + bytes.Below(8))));
    item->SetMenuType(bytes.Below(2) == 0 ? MenuItem::SubmenuType : MenuItem::PartType);
    children.Insert(1 + bytes.Below(children.Count() + 1), std::move(item));
}

void Move(Menu& menu, MenuItem& item, Bytes& bytes) {
    MenuEntry& parent = Any(menu, bytes);
    for (const MenuEntry* above = &parent; above != nullptr; above = above->ParentMenu())
        if (above == &item) return;
    MenuItemCollection& siblings = item.ParentMenu()->SubMenus();
    const bool isSame = item.ParentMenu() == &parent;
    auto taken = siblings.Take(siblings.PositionOf(item));
    if (!isSame) taken->SetPlace(parent, parent.NextCounter());
    parent.SubMenus().Insert(1 + bytes.Below(parent.ChildCount() + 1), std::move(taken));
}

void Edit(Menu& menu, Bytes& bytes) {
    for (int edits = bytes.Below(16); edits > 0; --edits) {
        MenuEntry& entry = Any(menu, bytes);
        auto* item = dynamic_cast<MenuItem*>(&entry);
        const int kind = bytes.Below(5);
        if (kind == 0 || item == nullptr)
            Add(menu, bytes);
        else if (kind == 1)
            item->ParentMenu()->SubMenus().RemoveItem(*item);
        else if (kind == 2)
            EntryFields::Set(entry, EntryFields::Texts[static_cast<std::size_t>(bytes.Below(8))],
                             std::string(1, static_cast<char>('a' + bytes.Below(8))));
        else
            Move(menu, *item, bytes);
    }
}

std::unique_ptr<Menu> Loaded(const std::string& file) {
    auto menu = std::make_unique<Menu>();
    menu->Initialize("C:\\Neskroot");
    BlockParser parser(MenuKeys);
    parser.Open(std::make_unique<TextSource>(file, ""));
    Require(MenuReader(parser).ReadMenu(*menu), "a merged menu is loaded to its end");
    return menu;
}

void CheckUpdate(const Menu& from, const Menu& to) {
    MenuEditor editor;
    static_cast<void>(editor.Open("C:\\Neskroot", "C:\\Neskroot\\none.cfg"));
    UpdateOpenMenu(editor, from, {});
    Require(TextOf(*editor.OpenMenu()) == TextOf(from), "an empty menu becomes any other");
    const bool differs = UpdateOpenMenu(editor, to, {});
    Require(TextOf(*editor.OpenMenu()) == TextOf(to), "a menu becomes any other");
    Require(!differs || editor.Undo(), "that can be undone");
    Require(TextOf(*editor.OpenMenu()) == TextOf(from), "undoing it gives the former menu");
}

void CheckRestoring(const Menu& version, const Menu& now, Bytes& bytes) {
    const MenuDiff difference(version, now);
    Require(difference.IsEmpty() == (TextOf(version) == TextOf(now)), "only equal menus have no difference");
    Require(TextOf(*WithEntriesOf(difference, {})) == TextOf(now), "restoring nothing changes nothing");
    if (difference.IsEmpty()) return;
    Require(TextOf(*WithEntriesOf(difference, {0})) == TextOf(version), "restoring all gives the version");
    std::vector<std::size_t> chosen;
    for (std::size_t i = 1; i < difference.Nodes().size(); ++i)
        if (bytes.Below(3) == 0) chosen.push_back(i);
    WithEntriesOf(difference, chosen);
}

void MergeMenus(const std::string& input) {
    Bytes bytes(input);
    Menu base;
    base.Initialize("C:\\Neskroot");
    for (int entries = bytes.Below(32); entries > 0; --entries)
        Add(base, bytes);
    const auto ours = base.Compacted();
    const auto theirs = base.Compacted();
    Edit(*ours, bytes);
    Edit(*theirs, bytes);

    Require(TextOf(*MenuMerge(base, *ours, base).Result()) == TextOf(*ours),
            "an unchanged side changes nothing");
    Require(TextOf(*MenuMerge(base, base, *ours).Result()) == TextOf(*ours), "nor does it as ours");
    MenuMerge merge(base, *ours, *theirs);
    MenuMerge mirror(base, *theirs, *ours);
    Require(merge.Conflicts().size() == mirror.Conflicts().size(), "both directions have the same conflicts");
    for (std::size_t i = 0; i < merge.Conflicts().size(); ++i) {
        const MergeConflict& one = merge.Conflicts()[i];
        const Side side = bytes.Below(2) == 0 ? Side::Ours : Side::Theirs;
        const auto other = std::find_if(
            mirror.Conflicts().begin(), mirror.Conflicts().end(), [&](const MergeConflict& each) {
                return each.kind == one.kind && each.field == one.field && each.base == one.base &&
                       each.ours == one.theirs && each.theirs == one.ours;
            });
        Require(other != mirror.Conflicts().end(), "each conflict has its mirror");
        mirror.Choose(static_cast<std::size_t>(other - mirror.Conflicts().begin()), OtherOf(side));
        merge.Choose(i, side);
    }
    const auto result = merge.Result();
    Require(TextOf(*result) == TextOf(*mirror.Result()), "both directions give the same menu");
    std::string file;
    TextSink sink(file);
    MenuWriter(sink).WriteMenu(*result);
    Require(TextOf(*Loaded(file)) == TextOf(*result), "a merged menu is loaded as it was saved");
    CheckUpdate(*ours, *result);
    CheckRestoring(base, *ours, bytes);
}

} // namespace

} // namespace nesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    if (size > MostBytes) return 0;
    const Surroundings surroundings(1033);
    MergeMenus(nesk::fuzz::TextOf(data, size));
    return 0;
}
