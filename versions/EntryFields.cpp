#include "versions/EntryFields.h"

#include "base/modConvert.h"
#include "menu/MenuItem.h"

#include <algorithm>

namespace nesk::EntryFields {

namespace {

// Only the root has no parent, and every other entry is an item.
const MenuItem* AsItem(const MenuEntry& entry) {
    return entry.ParentMenu() != nullptr ? static_cast<const MenuItem*>(&entry) : nullptr;
}

MenuItem* AsItem(MenuEntry& entry) {
    return entry.ParentMenu() != nullptr ? static_cast<MenuItem*>(&entry) : nullptr;
}

} // namespace

std::string_view TextOf(const MenuEntry& entry, MenuKey field) {
    if (field == MenuKey::Caption) return entry.Caption();
    if (field == MenuKey::Graphic) return entry.Graphic();
    const MenuItem* item = AsItem(entry);
    if (item == nullptr) return {};
    switch (field) {
    case MenuKey::Preview: return item->Preview();
    case MenuKey::HelpFile: return item->HelpFile();
    case MenuKey::MenuType: return item->MenuType();
    case MenuKey::ProgramId: return item->ProgramID();
    case MenuKey::HistoryDir: return item->HistoryDir();
    case MenuKey::HistoryTitle: return item->HistoryTitle();
    default: return {};
    }
}

std::int32_t TopicOf(const MenuEntry& entry) {
    const MenuItem* item = AsItem(entry);
    return item != nullptr ? item->HelpTopic() : 0;
}

std::string ValueOf(const MenuEntry& entry, MenuKey field) {
    return field == MenuKey::HelpTopic ? std::to_string(TopicOf(entry)) : std::string(TextOf(entry, field));
}

Values ValuesOf(const MenuEntry& entry) {
    Values values;
    for (const MenuKey field : All)
        values[static_cast<std::size_t>(field)] = ValueOf(entry, field);
    return values;
}

bool IsSame(const MenuEntry& one, const MenuEntry& other, MenuKey field) {
    return field == MenuKey::HelpTopic ? TopicOf(one) == TopicOf(other)
                                       : TextOf(one, field) == TextOf(other, field);
}

bool AreSame(const MenuEntry& one, const MenuEntry& other) {
    return std::all_of(All.begin(), All.end(), [&](MenuKey field) { return IsSame(one, other, field); });
}

void Set(MenuEntry& entry, MenuKey field, const std::string& value) {
    if (field == MenuKey::Caption) return entry.SetCaption(value);
    if (field == MenuKey::Graphic) return entry.SetGraphic(value);
    MenuItem* item = AsItem(entry);
    if (item == nullptr) return;
    switch (field) {
    case MenuKey::Preview: return item->SetPreview(value);
    case MenuKey::HelpFile: return item->SetHelpFile(value);
    case MenuKey::HelpTopic: return item->SetHelpTopic(modConvert::CLng(value));
    case MenuKey::MenuType: return item->SetMenuType(value);
    case MenuKey::ProgramId: return item->SetProgramID(value);
    case MenuKey::HistoryDir: return item->SetHistoryDir(value);
    case MenuKey::HistoryTitle: return item->SetHistoryTitle(value);
    default: return;
    }
}

void Copy(const MenuEntry& from, MenuEntry& to) {
    to.SetCaption(from.Caption());
    to.SetGraphic(from.Graphic());
    const MenuItem* source = AsItem(from);
    MenuItem* target = AsItem(to);
    if (source == nullptr || target == nullptr) return;
    target->SetPreview(source->Preview());
    target->SetHelpFile(source->HelpFile());
    target->SetHelpTopic(source->HelpTopic());
    target->SetMenuType(source->MenuType());
    target->SetProgramID(source->ProgramID());
    target->SetHistoryDir(source->HistoryDir());
    target->SetHistoryTitle(source->HistoryTitle());
}

bool IsPart(const MenuEntry& entry) {
    const MenuItem* item = AsItem(entry);
    return item != nullptr && item->IsPart();
}

} // namespace nesk::EntryFields
