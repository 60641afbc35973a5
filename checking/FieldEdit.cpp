#include "checking/FieldEdit.h"

#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"

#include <utility>
#include <vector>

namespace nesk::FieldEdit {

namespace {

const MenuItem* PartOf(const MenuEntry& entry) {
    if (entry.ParentMenu() == nullptr) return nullptr;
    const auto& item = static_cast<const MenuItem&>(entry);
    return item.IsPart() ? &item : nullptr;
}

// The text in the fields of a part; null for the caption.
std::string PartFields::*MemberOf(TextField field) {
    switch (field) {
    case TextField::Program: return &PartFields::programId;
    case TextField::Picture: return &PartFields::graphic;
    case TextField::Preview: return &PartFields::preview;
    case TextField::HelpFile: return &PartFields::helpFile;
    case TextField::HistoryDir: return &PartFields::historyDir;
    case TextField::HistoryTitle: return &PartFields::historyTitle;
    default: return nullptr;
    }
}

// Changes the caption or the picture of entries of any kind, as one step.
bool ChangeEntries(MenuEditor& editor, const EntryIds& ids, TextField field, const std::string& text) {
    const bool isCaption = field == TextField::Caption;
    EntryIds changed;
    for (const std::string& id : ids)
        if (const MenuEntry* entry = editor.Find(id); entry != nullptr && FieldText(*entry, field) != text)
            changed.push_back(id);
    if (changed.empty()) return false;
    const auto set = [&](const std::string& id) {
        return isCaption ? editor.SetCaption(id, text) : editor.SetGraphic(id, text);
    };
    if (changed.size() == 1) return set(changed.front());
    MenuEditor::Group group(editor, {Message::ChangePartSeveral, {std::to_string(changed.size())}},
                            changed.size());
    for (const std::string& id : changed)
        set(id);
    group.Commit();
    return true;
}

} // namespace

bool Has(const MenuEntry& entry, TextField field) {
    return field == TextField::Caption || field == TextField::Picture || PartOf(entry) != nullptr;
}

std::string Stored(const MenuEntry& entry, TextField field) {
    if (!Has(entry, field)) return "";
    if (field == TextField::Program) return std::string(PartOf(entry)->ProgramID());
    return std::string(FieldText(entry, field));
}

bool Set(MenuEditor& editor, const EntryIds& ids, TextField field, const std::string& text) {
    if (field == TextField::Caption || field == TextField::Picture)
        return ChangeEntries(editor, ids, field, text);
    std::string PartFields::*const member = MemberOf(field);
    if (member == nullptr) return false;
    return ChangeParts(editor, ids, [&](const MenuItem&, PartFields& fields) { fields.*member = text; });
}

bool ChangeParts(MenuEditor& editor, const EntryIds& ids,
                 const std::function<void(const MenuItem&, PartFields&)>& change) {
    EntryIds changed;
    std::vector<PartFields> fields;
    for (const std::string& id : ids) {
        const MenuEntry* entry = editor.Find(id);
        const MenuItem* part = entry != nullptr ? PartOf(*entry) : nullptr;
        if (part == nullptr) continue;
        PartFields after = PartFieldsOf(*part);
        change(*part, after);
        if (after == PartFieldsOf(*part)) continue;
        changed.push_back(id);
        fields.push_back(std::move(after));
    }
    if (changed.empty()) return false;
    if (changed.size() == 1) return editor.SetPart(changed.front(), fields.front());
    MenuEditor::Group group(editor, {Message::ChangePartSeveral, {std::to_string(changed.size())}},
                            changed.size());
    for (std::size_t i = 0; i < changed.size(); ++i)
        editor.SetPart(changed[i], fields[i]);
    group.Commit();
    return true;
}

bool SetHelpTopic(MenuEditor& editor, const EntryIds& ids, std::int32_t topic) {
    return ChangeParts(editor, ids, [&](const MenuItem&, PartFields& fields) { fields.helpTopic = topic; });
}

} // namespace nesk::FieldEdit
