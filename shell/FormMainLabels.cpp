// In-place editing of captions, the context menu and keys: what the main window does inside its tree.

#include "menu/MenuText.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormUtilities.h"
#include "shell/Messages.h"

#include <memory>

#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/textctrl.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ToWx;

void FormMain::OnBeginLabelEdit(wxTreeEvent& event) {
    m_editingLabel = true;
    UpdateFileMenus();
    // The text box is made after this event.
    CallAfter([this] { FilterLabelEdit(); });
    event.Skip();
}

// Keeps line breaks, which would break the menu file, out of the text box, pasted ones included.
void FormMain::FilterLabelEdit() {
    wxTextCtrl* box = tvMain->GetEditControl();
    if (box == nullptr) return;
    box->Bind(wxEVT_TEXT, [box](wxCommandEvent& event) {
        const std::string text = FromWx(box->GetValue());
        if (const std::string line = MenuText::OnOneLine(text); line != text) {
            box->ChangeValue(ToWx(line));
            box->SetInsertionPointEnd();
        }
        event.Skip();
    });
}

// Takes a caption that is being typed. False when it is refused: a message comes, and what was typed after
// it.
bool FormMain::FinishLabelEdit() {
    m_captionRefused = false;
    if (m_editingLabel) tvMain->EndEditLabel(tvMain->GetSelection(), false);
    return !m_captionRefused;
}

void FormMain::OnEndLabelEdit(wxTreeEvent& event) {
    // Wine's tree reports the end of an edit once more when the text box, going, loses the focus: with what
    // was typed, even if that had been called off or refused.
    if (!m_editingLabel) return event.Veto();
    m_editingLabel = false;
    const std::string id = tvMain->KeyOf(event.GetItem());
    if (id.empty()) event.Veto();
    if (!event.IsEditCancelled() && !id.empty()) {
        const wxString text = event.GetLabel();
        try {
            m_editor.SetCaption(id, FromWx(text));
        } catch (const NeskError& error) {
            event.Veto();
            m_captionRefused = true;
            // The tree is still busy ending the edit.
            CallAfter([this, error, id, text] {
                ShowError(Message::CommandFailed, error);
                EditLabelAgain(id, text);
            });
        }
    }
    CallAfter([this] { UpdateFileMenus(); });
}

// What was typed and refused comes back, to be corrected.
void FormMain::EditLabelAgain(const std::string& id, const wxString& text) {
    const wxTreeItemId node = tvMain->NodeOf(id);
    if (!node.IsOk()) return;
    tvMain->EditLabel(node);
    if (wxTextCtrl* box = tvMain->GetEditControl()) box->ChangeValue(text);
}

void FormMain::OnContextMenu(wxTreeEvent& event) {
    FinishLabelEdit();
    if (event.GetItem().IsOk()) tvMain->SelectItem(event.GetItem());
    UpdateFileMenus();
    wxMenu menu;
    for (const MainCommandInfo& info : MainCommandTable()) {
        if (info.menu != Message::MenuMenu) continue;
        if (info.separatorBefore) menu.AppendSeparator();
        const wxMenuItem* item = ItemOf(info.command);
        menu.Append(item->GetId(), item->GetItemLabel(), item->GetHelp())->Enable(item->IsEnabled());
    }
    PopupMenu(&menu);
}

// A double click, or Enter, on an entry.
void FormMain::OnActivated(wxTreeEvent& event) {
    // The root has nothing to edit; there the tree may do what it always does.
    if (event.GetItem() == tvMain->GetRootItem()) return event.Skip();
    OnCommand(MainCommand::Edit);
}

// Not every toolkit lets a menu have arrow keys as accelerators: there the tree would take them for its own.
void FormMain::OnTreeKey(wxKeyEvent& event) {
    for (const MainCommandInfo& info : MainCommandTable()) {
        const wxMenuItem* item = ItemOf(info.command);
        const std::unique_ptr<wxAcceleratorEntry> accelerator(item->GetAccel());
        if (!accelerator || accelerator->GetKeyCode() != event.GetKeyCode()) continue;
        if (accelerator->GetFlags() != event.GetModifiers() || !item->IsEnabled()) continue;
        return OnCommand(info.command);
    }
    event.Skip();
}

} // namespace nesk
