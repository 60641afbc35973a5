#include "versions/ConflictText.h"

#include "base/VersionMessages.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modStringRes.h"
#include "versions/DifferenceText.h"
#include "versions/EntryFields.h"

#include <algorithm>

namespace nesk::ConflictText {

namespace {

using Kind = MergeConflict::Kind;
using modStringRes::FormatResString;
using modStringRes::LoadResString;

// The most captions that a text lists. A tree may be much deeper, and a submenu much larger.
constexpr int MostCaptions = 8;
constexpr const char* Omission = "...";

std::string CaptionOf(const MenuEntry& entry) {
    return DifferenceText::Value(std::string(entry.Caption()));
}

// The captions from the root to an entry; of a deep one only the last.
std::string PathOf(const MenuEntry& entry) {
    std::vector<const MenuEntry*> path;
    const MenuEntry* at = &entry;
    for (; at != nullptr && path.size() < MostCaptions; at = at->ParentMenu())
        path.push_back(at);
    std::string text = at != nullptr ? Omission : "";
    for (auto step = path.rbegin(); step != path.rend(); ++step)
        text = text.empty() ? CaptionOf(**step)
                            : FormatResString(Message::ConflictPlaceJoin, text, CaptionOf(**step));
    return text;
}

std::string OrderOf(const MenuEntry& entry) {
    const int count = entry.ChildCount();
    std::string text;
    for (int i = 1; i <= std::min(count, MostCaptions); ++i) {
        const std::string caption = CaptionOf(entry.Children()->Item(i));
        text = text.empty() ? caption : FormatResString(Message::DifferenceJoin, text, caption);
    }
    return count > MostCaptions ? FormatResString(Message::DifferenceJoin, text, Omission) : text;
}

// What a menu has that is not the other one of a removal.
std::string TextOf(const MergeConflict& conflict, const MenuEntry& entry) {
    switch (conflict.kind) {
    case Kind::Place:
    case Kind::Nesting:
        return entry.ParentMenu() != nullptr
                   ? FormatResString(Message::ConflictInSubmenu, PathOf(*entry.ParentMenu()))
                   : "";
    case Kind::Order: return OrderOf(entry);
    case Kind::Field: return DifferenceText::Value(EntryFields::ValueOf(entry, conflict.field));
    case Kind::Removal: break;
    }
    return LoadResString(Message::ConflictKept);
}

} // namespace

std::string Place(const MergeConflict& conflict) {
    const MenuEntry* entry = conflict.base != nullptr ? conflict.base : conflict.ours;
    return PathOf(entry != nullptr ? *entry : *conflict.theirs);
}

std::string Subject(const MergeConflict& conflict) {
    switch (conflict.kind) {
    case Kind::Removal: return LoadResString(Message::ConflictPresenceLabel);
    case Kind::Place: return LoadResString(Message::ConflictPlaceLabel);
    case Kind::Nesting: return LoadResString(Message::ConflictNestingLabel);
    case Kind::Order: return LoadResString(Message::ConflictOrderLabel);
    case Kind::Field: break;
    }
    return DifferenceText::FieldName(conflict.field);
}

std::string BaseValue(const MergeConflict& conflict) {
    return conflict.base != nullptr ? TextOf(conflict, *conflict.base) : "";
}

std::string Value(const MergeConflict& conflict, Side side) {
    const MenuEntry* entry = side == Side::Ours ? conflict.ours : conflict.theirs;
    if (entry == nullptr) return LoadResString(Message::ConflictRemoved);
    if (conflict.kind == Kind::Removal) return LoadResString(Message::ConflictKeptChanged);
    return TextOf(conflict, *entry);
}

} // namespace nesk::ConflictText
