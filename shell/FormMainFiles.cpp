// Files that are dropped on entries in the tree and in the preview.

#include "base/FileDropMessages.h"
#include "base/Messages.h"
#include "checking/FieldEdit.h"
#include "checking/FileDrop.h"
#include "menu/MenuEntry.h"
#include "partedit/FormAddParts.h"
#include "partedit/FoundParts.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <wx/utils.h>

namespace nesk {

void FormMain::BindFiles() {
    platform::TreeEvents& on = tvMain->View().on;
    // The free area below the rows is the end of the menu.
    const auto idOf = [this](const platform::TreeNode* node) {
        return node != nullptr ? FormMenuTree::KeyOf(node) : FormMenuTree::KeyOf(tvMain->View().Root());
    };
    on.mayDropFiles = [this, idOf](const std::vector<std::string>& paths, const platform::TreeNode* node) {
        return MayDropFiles(paths, {idOf(node), node != nullptr});
    };
    on.droppedFiles = [this, idOf](const std::vector<std::string>& paths, const platform::TreeNode* node) {
        OnDroppedFiles(paths, {idOf(node), node != nullptr}, tvMain->Window());
    };
}

// Returns whether files may be dropped at a place, and shows in the status bar what that does, or why not.
bool FormMain::MayDropFiles(const std::vector<std::string>& paths, const FilePlace& place) {
    const MenuEntry* entry = m_editor.Find(place.id);
    if (entry == nullptr) return false;
    if (!m_draggedFiles || m_draggedFiles->Paths() != paths)
        m_draggedFiles = std::make_unique<FileDrop>(paths);
    const FileDrop::Effect effect = m_draggedFiles->At(*entry, place.isOnEntry);
    ShowDragText(effect.text);
    return effect.action != FileDrop::Action::Refuse;
}

void FormMain::OnDragLeft() {
    m_draggedFiles.reset();
    ShowDragText("");
}

void FormMain::ShowDragText(const std::string& text) {
    const wxString shown = modUtilities::ToWx(text);
    if (sbMain->GetStatusText(FormStatusBar::HelpPanel) != shown)
        SetStatusText(shown, FormStatusBar::HelpPanel);
}

// @param window  where the files were dropped
void FormMain::OnDroppedFiles(const std::vector<std::string>& paths, const FilePlace& place,
                              wxWindow& window) {
    if (!m_editor.IsOpen() || !FinishLabelEdit()) return;
    // The other program has the focus.
    Raise();
    window.SetFocus();
    const MenuEntry* entry = m_editor.Find(place.id);
    if (entry == nullptr) return;
    FileDrop drop(paths);
    {
        const wxBusyCursor busy;
        drop.LookNow();
    }
    const FileDrop::Effect effect = drop.At(*entry, place.isOnEntry);
    switch (effect.action) {
    case FileDrop::Action::SetPicture: SetDroppedPicture(place.id, paths.front()); break;
    case FileDrop::Action::AddParts:
        tvMain->SelectKeys(FormAddParts(this, m_editor, m_memory).Invoke(place.id, JoinedPartFolders(paths)));
        break;
    case FileDrop::Action::Look:
    case FileDrop::Action::Refuse:
        Ask(modStringRes::FormatResString(Message::FileDropFailed, effect.text), Message::ErrorTitle,
            wxOK | wxICON_ERROR);
        break;
    }
}

void FormMain::SetDroppedPicture(const std::string& id, const std::string& path) {
    try {
        FieldEdit::Set(m_editor, {id}, TextField::Picture, path);
        tvMain->SelectKey(id);
    } catch (const NeskError& error) {
        ShowRefusal(Message::FileDropFailed, error);
    }
}

} // namespace nesk
