// The main window's commands for the selected entries.

#include "shell/FormMain.h"

#include "base/Messages.h"
#include "menu/FormSelectMenuPicture.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "partedit/FormAddParts.h"
#include "partedit/FormEditPart.h"
#include "partedit/FormEditParts.h"
#include "shell/FormMenuTree.h"
#include "shell/FormMoveTo.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiClipboard.h"
#include "widgets/UiUtilities.h"

#include <numeric>
#include <unordered_set>

#include <wx/defs.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

namespace {

// The entry to select when entries have been removed: the sibling after the last of them, else the one
// before it, else their parent.
std::string NearestTo(const MenuEditor& editor, const EntryIds& ids) {
    const auto* last = dynamic_cast<const MenuItem*>(editor.Find(ids.back()));
    if (last == nullptr) return "";
    const MenuEntry& parent = *last->ParentMenu();
    const MenuItemCollection& siblings = *parent.Children();
    const int position = siblings.PositionOf(*last);
    if (position < siblings.Count()) return siblings.Item(position + 1).ID();
    const std::unordered_set<std::string> removed(ids.begin(), ids.end());
    for (int before = position - 1; before > 0; --before)
        if (std::string id = siblings.Item(before).ID(); !removed.contains(id)) return id;
    return parent.ID();
}

std::int64_t CountBelow(const MenuEditor& editor, const EntryIds& ids) {
    return std::accumulate(ids.begin(), ids.end(), std::int64_t{0},
                           [&](std::int64_t sum, const std::string& id) {
                               const MenuEntry* entry = editor.Find(id);
                               return entry != nullptr ? sum + entry->CountBelow() : sum;
                           });
}

} // namespace

// The selected entries without those below another one of them.
EntryIds FormMain::SelectedEntries() const {
    return m_editor.IsOpen() ? Uppermost(*m_editor.OpenMenu(), tvMain->SelectedKeys()) : EntryIds{};
}

// --- moving ---

void FormMain::MoveUp() {
    if (FinishLabelEdit() && m_editor.MoveUp(SelectedEntries())) ShowSelected();
}

void FormMain::MoveDown() {
    if (FinishLabelEdit() && m_editor.MoveDown(SelectedEntries())) ShowSelected();
}

void FormMain::MoveOut() {
    if (FinishLabelEdit()) tvMain->SelectKeys(m_editor.MoveOut(SelectedEntries()));
}

void FormMain::MoveIn() {
    if (FinishLabelEdit()) tvMain->SelectKeys(m_editor.MoveIn(SelectedEntries()));
}

void FormMain::MoveTo() {
    if (!FinishLabelEdit()) return;
    const EntryIds ids = SelectedEntries();
    const std::string target = FormMoveTo(this, m_editor).Choose(ids);
    if (!target.empty()) tvMain->SelectKeys(m_editor.MoveTo(ids, target, 0));
}

void FormMain::SortSubmenusFirst() {
    if (FinishLabelEdit()) m_editor.Sort(m_editor.SortTarget(SelectedEntries()), true);
}

void FormMain::SortMixed() {
    if (FinishLabelEdit()) m_editor.Sort(m_editor.SortTarget(SelectedEntries()), false);
}

// --- adding many parts ---

void FormMain::AddParts() {
    if (!FinishLabelEdit()) return;
    const std::string target = m_editor.AddPartsTarget(SelectedEntries());
    tvMain->SelectKeys(FormAddParts(this, m_editor, m_memory).Invoke(target));
}

// --- clipboard ---

bool FormMain::CopySelected() {
    const wxBusyCursor busy;
    const EntryIds ids = SelectedEntries();
    if (ids.empty()) return false;
    Clipboard::SetText(m_editor.CopyText(ids));
    return true;
}

void FormMain::Cut() {
    if (FinishLabelEdit() && CopySelected()) RemoveEntries(SelectedEntries(), &MenuEditor::Cut);
}

void FormMain::Copy() {
    if (FinishLabelEdit()) CopySelected();
}

void FormMain::Paste() {
    if (!FinishLabelEdit()) return;
    const EntryIds ids = SelectedEntries();
    const auto* last = ids.empty() ? nullptr : dynamic_cast<const MenuItem*>(m_editor.Find(ids.back()));
    // The root has no place after it.
    if (last == nullptr) return PasteAt(m_editor.OpenMenu()->ID(), 0);
    const MenuEntry& parent = *last->ParentMenu();
    PasteAt(parent.ID(), parent.Children()->PositionOf(*last) + 1);
}

void FormMain::PasteInside() {
    if (FinishLabelEdit()) PasteAt(tvMain->SelectedKey(), 1);
}

void FormMain::PasteAt(const std::string& parentId, int position) {
    try {
        const wxBusyCursor busy;
        const std::optional<std::string> text = Clipboard::Text();
        if (!text) throw NeskError(5000, "FormMain.Paste", Message::ClipboardHasNoText);
        tvMain->SelectKeys(m_editor.Paste(*text, parentId, position));
    } catch (const NeskError& error) {
        if (error.line == 0) return ShowRefusal(Message::PasteFailed, error);
        Ask(FormatResString(Message::PasteBadText, modUtilities::MessageText(error), error.line),
            Message::ErrorTitle, wxOK | wxICON_ERROR);
    }
}

void FormMain::Duplicate() {
    if (!FinishLabelEdit()) return;
    const wxBusyCursor busy;
    tvMain->SelectKeys(m_editor.Duplicate(SelectedEntries()));
}

void FormMain::SelectAll() {
    if (FinishLabelEdit()) tvMain->SelectMore();
}

// --- removing and editing ---

void FormMain::Remove() {
    const EntryIds ids = SelectedEntries();
    if (ids.empty()) return;
    const MenuEntry* entry = m_editor.Find(ids.front());
    if (entry == m_editor.OpenMenu()) {
        Ask(LoadResString(Message::RootNotRemovable), Message::NoticeTitle, wxOK | wxICON_INFORMATION);
        return;
    }
    const std::int64_t below = CountBelow(m_editor, ids);
    const bool isOne = ids.size() == 1;
    const std::string alsoRemoved =
        below == 0 ? ""
                   : FormatResString(isOne ? Message::RemovedBelow : Message::RemovedBelowSeveral, below);
    const std::string text =
        isOne ? FormatResString(Message::ConfirmRemove, alsoRemoved, std::string(entry->Caption()))
              : FormatResString(Message::ConfirmRemoveSeveral, std::to_string(ids.size()), alsoRemoved);
    if (Ask(text, Message::ConfirmTitle, wxYES_NO | wxICON_QUESTION) == wxID_YES)
        RemoveEntries(ids, &MenuEditor::Remove);
}

void FormMain::RemoveEntries(const EntryIds& ids, bool (MenuEditor::*remove)(const EntryIds&)) {
    if (ids.empty()) return;
    const std::string next = NearestTo(m_editor, ids);
    if ((m_editor.*remove)(ids)) tvMain->SelectKey(next);
}

void FormMain::EditSelected() {
    if (!FinishLabelEdit()) return;
    const EntryIds selected = tvMain->SelectedKeys();
    if (selected.size() > 1) return EditParts(selected);
    const std::string id = tvMain->SelectedKey();
    const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(id));
    if (item == nullptr) return;
    if (item->IsPart()) {
        PartFields fields = PartFieldsOf(*item);
        FormEditPart dialog(this, wxGetDisplaySize().x);
        if (dialog.Edit(std::string(item->Caption()), fields)) m_editor.SetPart(id, fields);
    } else {
        std::string graphic(item->Graphic());
        FormSelectMenuPicture dialog(this);
        if (dialog.Display(graphic)) m_editor.SetGraphic(id, graphic);
    }
}

void FormMain::EditParts(const EntryIds& ids) {
    std::vector<PartFields> parts;
    for (const std::string& id : ids)
        if (const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(id));
            item != nullptr && item->IsPart())
            parts.push_back(PartFieldsOf(*item));
    if (parts.empty()) return;
    if (const auto fields = FormEditParts(this).Edit(parts)) m_editor.SetParts(ids, *fields);
}

} // namespace nesk
