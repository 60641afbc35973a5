// The main window's Edit menu.

#include "shell/FormMain.h"

#include "base/Messages.h"
#include "base/UnsavedMessages.h"
#include "editing/ChangeText.h"
#include "platform/SystemQuestion.h"
#include "shell/FormDetails.h"
#include "shell/FormMenuTree.h"
#include "shell/FormUndoHistory.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/control.h>
#include <wx/menu.h>
#include <wx/wupdlock.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

// The text of the Undo or Redo command. A tab in a caption would end the text before its key.
wxString CommandText(int plainId, int withChangeId, const std::vector<ChangeName>& names) {
    if (names.empty()) return ResText(plainId);
    wxString change = wxControl::EscapeMnemonics(ToWx(ChangeText(names.front())));
    change.Replace("\t", " ");
    return ToWx(FormatResString(withChangeId, modUtilities::FromWx(change)));
}

} // namespace

void FormMain::UpdateUndoTexts() {
    const UndoStack& history = m_editor.History();
    const auto show = [](wxMenuItem& item, const wxString& text) {
        if (item.GetItemLabel() != text) item.SetItemLabel(text);
    };
    // Typing in a field is undone first, and is no change with a name.
    const bool isTyping = pnDetails != nullptr && pnDetails->HasTyping();
    show(*mnuEditUndo, CommandText(Message::Undo, Message::UndoChange,
                                   isTyping ? std::vector<ChangeName>() : history.UndoNames(1)));
    show(*mnuEditRedo, CommandText(Message::Redo, Message::RedoChange, history.RedoNames(1)));
}

void FormMain::Undo() {
    // What is typed into a field is no change of the menu yet.
    if (pnDetails != nullptr && pnDetails->UndoTyping()) return;
    if (FinishLabelEdit() && MayUndo(1)) m_editor.Undo();
}

// A user who takes back the last change does not expect that this overwrites what others have saved.
bool FormMain::MayUndo(std::size_t count) {
    const std::vector<ChangeName> names = m_editor.History().UndoNames(count);
    const bool isTheirs = std::any_of(names.begin(), names.end(), [](const ChangeName& name) {
        return name.textId == Message::OtherLoadUndo || name.textId == Message::MergeUndo;
    });
    if (!isTheirs) return true;
    return platform::AskYesOrNo(this, LoadResString(Message::OtherUndoConfirm),
                                LoadResString(Message::ConfirmTitle))
        .value_or(false);
}

void FormMain::Redo() {
    // Entries that were removed are not there; the tree has selected the one beside them.
    if (FinishLabelEdit() && m_editor.Redo()) tvMain->SelectKeys(m_editor.LastIds());
}

void FormMain::UndoHistory() {
    if (!FinishLabelEdit()) return;
    FormUndoHistory dialog(this);
    const std::size_t count = dialog.Choose(m_editor.History().UndoNames());
    if (count == 0 || !MayUndo(count)) return;
    const wxWindowUpdateLocker locker(&tvMain->Window());
    for (std::size_t i = 0; i < count; ++i)
        m_editor.Undo();
}

} // namespace nesk
