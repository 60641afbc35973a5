// Keys, in-place editing of captions and the context menu: the behaviour of the main window inside its tree.

#include "base/Messages.h"
#include "menu/MenuText.h"
#include "shell/FieldMessage.h"
#include "shell/FormDetails.h"
#include "shell/FormFinder.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormProblems.h"
#include "widgets/UiUtilities.h"

#include <cstddef>
#include <memory>
#include <set>

#include <wx/accel.h>
#include <wx/menu.h>
#include <wx/utils.h>

namespace nesk {

using platform::TreeNode;

namespace {

// Maps a key of the numeric keypad to the same key of the main block.
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

// Commands of several menus stand in one, where two may have the same access key; the first one keeps it.
wxString WithFreeKey(const wxString& label, std::set<wxUniChar>& taken) {
    const int at = label.Find('&');
    if (at == wxNOT_FOUND || static_cast<std::size_t>(at) + 1 >= label.length()) return label;
    const wxUniChar key = wxString(label[static_cast<std::size_t>(at) + 1]).Lower()[0];
    if (taken.insert(key).second) return label;
    return modUtilities::ToWx(FieldMessage::PlainLabel(modUtilities::FromWx(label)));
}

bool IsKey(const wxAcceleratorEntry& accelerator, const wxKeyEvent& event) {
    return accelerator.GetKeyCode() == MainKey(event.GetKeyCode()) &&
           accelerator.GetFlags() == event.GetModifiers();
}

} // namespace

void FormMain::BindTree() {
    platform::TreeEvents& on = tvMain->View().on;
    on.selectionChanged = [this] {
        UpdateFileMenus();
        ShowSelectionInPreview();
    };
    on.activated = [this](TreeNode& node) { return OnActivated(node); };
    on.contextMenu = [this](TreeNode*, wxPoint at) { OnContextMenu(tvMain->Window(), at); };
    // While a caption is being edited, Del must edit the text.
    on.renameBegins = [this](TreeNode&) { UpdateFileMenus(); };
    on.renameEnds = [this](TreeNode& node, const std::string* text) { OnEndLabelEdit(node, text); };
    // A line break would damage the menu file, so it cannot even be pasted.
    on.correctLabel = [](const std::string& text) { return MenuText::OnOneLine(text); };
    BindDrag();
    Bind(wxEVT_CHAR_HOOK, &FormMain::OnCharHook, this);
}

// Handles the keys of all commands. The key of a disabled command does nothing. If it reached the tree, the
// tree would handle it as a key of its own and select another entry.
void FormMain::OnCharHook(wxKeyEvent& event) {
    if (m_finder->OnCharHook(event)) return;
    if (pnProblems != nullptr && pnProblems->OnCharHook(event)) return;
    if (pnDetails != nullptr && pnDetails->OnCharHook(event)) return;
    if (event.GetKeyCode() == WXK_F6 && !event.HasAnyModifiers()) return GoToNextPane();
    const bool typing = tvMain->View().Edited() != nullptr;
    for (const MainCommandInfo& info : MainCommandTable()) {
        const wxMenuItem* item = ItemOf(info.command);
        const std::unique_ptr<wxAcceleratorEntry> accelerator(item->GetAccel());
        wxAcceleratorEntry other;
        const bool hasOther = info.otherKey != nullptr && other.FromString(info.otherKey);
        if (!(accelerator && IsKey(*accelerator, event)) && !(hasOther && IsKey(other, event))) continue;
        // Keys without modifiers edit the caption, and so do those of the Edit menu.
        if (typing && (!event.HasAnyModifiers() || info.editsText)) break;
        if (item->IsEnabled())
            OnCommand(info.command);
        else
            wxBell();
        return;
    }
    event.Skip();
}

// Ends the edit of a caption or a field and accepts the text. Returns false when the text is refused; then a
// message appears, and the refused text again.
bool FormMain::FinishLabelEdit() {
    m_captionRefused = false;
    tvMain->View().EndLabelEdit(true);
    if (m_captionRefused) return false;
    return pnDetails == nullptr || pnDetails->Commit();
}

void FormMain::OnEndLabelEdit(TreeNode& node, const std::string* text) {
    bool isRefused = false;
    if (text != nullptr) {
        const std::string id = FormMenuTree::KeyOf(&node);
        try {
            if (id == m_addedId)
                m_editor.NameAdded(id, *text);
            else
                m_editor.SetCaption(id, *text);
        } catch (const NeskError& error) {
            isRefused = m_captionRefused = true;
            // The tree is still ending the edit.
            CallAfter([this, error, id, typed = *text] {
                ShowError(Message::CommandFailed, error);
                EditLabelAgain(id, typed);
            });
        }
    }
    if (!isRefused) m_addedId.clear();
    CallAfter([this, isRefused] {
        UpdateFileMenus();
        tvMain->UpdateMarks();
        if (!isRefused) ReturnToProblems();
    });
}

// Edits the caption again with the refused text, so that the user can correct it.
void FormMain::EditLabelAgain(const std::string& id, const std::string& text) {
    TreeNode* const node = tvMain->NodeOf(id);
    if (node == nullptr) return;
    tvMain->View().EditLabel(*node);
    tvMain->View().SetEditText(text);
}

// An entry must be visible before it is changed or removed.
void FormMain::ShowSelected() {
    if (TreeNode* node = tvMain->View().Selected()) tvMain->View().EnsureVisible(*node);
}

void FormMain::OnContextMenu(wxWindow& window, wxPoint at) {
    FinishLabelEdit();
    UpdateFileMenus();
    wxMenu menu;
    auto moving = std::make_unique<wxMenu>();
    auto finding = std::make_unique<wxMenu>();
    std::set<wxUniChar> keys;
    const auto append = [&](wxMenu& target, const MainCommandInfo& info) {
        if (info.separatorBefore && target.GetMenuItemCount() > 0) target.AppendSeparator();
        const wxMenuItem* item = ItemOf(info.command);
        // The two submenus hold commands of one menu each.
        const wxString label =
            &target == &menu ? WithFreeKey(item->GetItemLabel(), keys) : item->GetItemLabel();
        target.Append(item->GetId(), label, item->GetHelp())->Enable(item->IsEnabled());
    };
    const auto appendAll = [&](int which) {
        for (const MainCommandInfo& info : MainCommandTable()) {
            if (info.menu != which) continue;
            switch (info.places.inContextMenu) {
            case ContextPlace::None: break;
            case ContextPlace::Menu: append(menu, info); break;
            case ContextPlace::MoveSubmenu: append(*moving, info); break;
            case ContextPlace::FindSubmenu: append(*finding, info); break;
            }
        }
    };
    // What is done to entries first, then what is done with the clipboard.
    appendAll(Message::MenuMenu);
    menu.AppendSubMenu(moving.release(), WithFreeKey(modUtilities::ResText(Message::MoveSubmenu), keys));
    menu.AppendSeparator();
    appendAll(Message::MenuEdit);
    menu.AppendSubMenu(finding.release(), WithFreeKey(modUtilities::ResText(Message::FindSubmenu), keys));
    appendAll(Message::MenuView);
    window.PopupMenu(&menu, at);
}

// Handles a double click or Enter on an entry.
bool FormMain::OnActivated(TreeNode& node) {
    // The root has nothing to edit, so the tree keeps its default behaviour there.
    if (node.Parent() == nullptr) return false;
    OnCommand(MainCommand::Edit);
    return true;
}

} // namespace nesk
