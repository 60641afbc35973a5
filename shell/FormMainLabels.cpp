// Keys, in-place editing of captions and the context menu: what the main window does inside its tree.

#include "base/Messages.h"
#include "menu/MenuText.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "widgets/UiUtilities.h"

#include <memory>

#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/utils.h>

namespace nesk {

using platform::TreeNode;

namespace {

// The key of the main block that a key of the number block stands for.
int MainKey(int key) {
    switch (key) {
    case WXK_NUMPAD_UP: return WXK_UP;
    case WXK_NUMPAD_DOWN: return WXK_DOWN;
    case WXK_NUMPAD_LEFT: return WXK_LEFT;
    case WXK_NUMPAD_RIGHT: return WXK_RIGHT;
    case WXK_NUMPAD_DELETE: return WXK_DELETE;
    case WXK_NUMPAD_F2: return WXK_F2;
    default: return key;
    }
}

} // namespace

void FormMain::BindTree() {
    platform::TreeEvents& on = tvMain->View().on;
    on.selectionChanged = [this] { UpdateFileMenus(); };
    on.activated = [this](TreeNode& node) { return OnActivated(node); };
    on.contextMenu = [this](TreeNode* node, wxPoint at) { OnContextMenu(node, at); };
    // While a caption is typed, Del belongs to the text.
    on.renameBegins = [this](TreeNode&) { UpdateFileMenus(); };
    on.renameEnds = [this](TreeNode& node, const std::string* text) { OnEndLabelEdit(node, text); };
    // A line break, which would break the menu file, cannot even be pasted.
    on.correctLabel = [](const std::string& text) { return MenuText::OnOneLine(text); };
    Bind(wxEVT_CHAR_HOOK, &FormMain::OnCharHook, this);
}

// A key of a command belongs to the command alone. A disabled one does nothing: the tree would take it for a
// key of its own, and select another entry.
void FormMain::OnCharHook(wxKeyEvent& event) {
    const bool typing = tvMain->View().Edited() != nullptr;
    for (const MainCommandInfo& info : MainCommandTable()) {
        const wxMenuItem* item = ItemOf(info.command);
        const std::unique_ptr<wxAcceleratorEntry> accelerator(item->GetAccel());
        if (!accelerator || accelerator->GetKeyCode() != MainKey(event.GetKeyCode())) continue;
        if (accelerator->GetFlags() != event.GetModifiers()) continue;
        // Plain keys type and delete characters.
        if (typing && !event.HasAnyModifiers()) break;
        if (item->IsEnabled())
            OnCommand(info.command);
        else
            wxBell();
        return;
    }
    event.Skip();
}

// Takes a caption that is being typed. False when it is refused: a message comes, and what was typed after
// it.
bool FormMain::FinishLabelEdit() {
    m_captionRefused = false;
    tvMain->View().EndLabelEdit(true);
    return !m_captionRefused;
}

void FormMain::OnEndLabelEdit(TreeNode& node, const std::string* text) {
    if (text != nullptr) {
        const std::string id = FormMenuTree::KeyOf(&node);
        try {
            m_editor.SetCaption(id, *text);
        } catch (const NeskError& error) {
            m_captionRefused = true;
            // The tree is still busy ending the edit.
            CallAfter([this, error, id, typed = *text] {
                ShowError(Message::CommandFailed, error);
                EditLabelAgain(id, typed);
            });
        }
    }
    CallAfter([this] { UpdateFileMenus(); });
}

// What was typed and refused comes back, to be corrected.
void FormMain::EditLabelAgain(const std::string& id, const std::string& text) {
    TreeNode* const node = tvMain->NodeOf(id);
    if (node == nullptr) return;
    tvMain->View().EditLabel(*node);
    tvMain->View().SetEditText(text);
}

// Nothing is changed or removed that is out of sight.
void FormMain::ShowSelected() {
    if (TreeNode* node = tvMain->View().Selected()) tvMain->View().EnsureVisible(*node);
}

void FormMain::OnContextMenu(TreeNode* node, wxPoint at) {
    FinishLabelEdit();
    if (node != nullptr) tvMain->View().Select(node);
    UpdateFileMenus();
    wxMenu menu;
    for (const MainCommandInfo& info : MainCommandTable()) {
        if (info.menu != Message::MenuMenu) continue;
        if (info.separatorBefore) menu.AppendSeparator();
        const wxMenuItem* item = ItemOf(info.command);
        menu.Append(item->GetId(), item->GetItemLabel(), item->GetHelp())->Enable(item->IsEnabled());
    }
    tvMain->Window().PopupMenu(&menu, at);
}

// A double click, or Enter, on an entry.
bool FormMain::OnActivated(TreeNode& node) {
    // The root has nothing to edit; there the tree may do what it always does.
    if (node.Parent() == nullptr) return false;
    OnCommand(MainCommand::Edit);
    return true;
}

} // namespace nesk
