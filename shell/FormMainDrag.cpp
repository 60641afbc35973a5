// Dragging in the main window's tree, and between two windows of the program.

#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <iterator>

#include <wx/utils.h>

namespace nesk {

using platform::TreeDrop;
using platform::TreeNode;

namespace {

constexpr std::size_t LongestCaption = 25;

// The place of a drop: a parent, and the position before which the entries go; 0 for the end.
struct DropPlace {
    std::string parentId;
    int position;
};

// The rows may be only some of the entries, so the position is that of the entry and not that of its row.
DropPlace PlaceOf(const MenuEditor& editor, const TreeDrop& drop) {
    const std::string id = FormMenuTree::KeyOf(drop.node);
    const auto* item = dynamic_cast<const MenuItem*>(editor.Find(id));
    if (drop.where == TreeDrop::Where::On || item == nullptr) return {id, 0};
    const MenuEntry& parent = *item->ParentMenu();
    const int position = parent.Children()->PositionOf(*item);
    return {parent.ID(), drop.where == TreeDrop::Where::Before ? position : position + 1};
}

EntryIds KeysOf(const std::vector<TreeNode*>& nodes) {
    EntryIds ids;
    ids.reserve(nodes.size());
    std::transform(nodes.begin(), nodes.end(), std::back_inserter(ids), FormMenuTree::KeyOf);
    return ids;
}

std::string ShortCaption(const MenuEntry& entry) {
    return modUtilities::Shortened(std::string(entry.Caption()), LongestCaption);
}

// What is dragged.
std::string DraggedText(const MenuEditor& editor, const std::vector<TreeNode*>& nodes) {
    if (nodes.empty()) return modStringRes::LoadResString(Message::DropFromOther);
    const EntryIds ids = Uppermost(*editor.OpenMenu(), KeysOf(nodes));
    if (ids.size() != 1) return modStringRes::FormatResString(Message::DropOfSeveral, ids.size());
    const MenuEntry* entry = editor.Find(ids.front());
    return entry != nullptr ? modStringRes::FormatResString(Message::DropOfOne, ShortCaption(*entry)) : "";
}

// What a drop at a place does.
std::string DropText(const MenuEditor& editor, const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
    using Where = TreeDrop::Where;
    const MenuEntry* entry = editor.Find(FormMenuTree::KeyOf(drop.node));
    if (entry == nullptr) return "";
    // There is no place before or after the main menu.
    const Where where = entry == editor.OpenMenu() ? Where::On : drop.where;
    int textId = drop.copies ? Message::DropCopiesInto : Message::DropMovesInto;
    if (where == Where::Before) textId = drop.copies ? Message::DropCopiesBefore : Message::DropMovesBefore;
    if (where == Where::After) textId = drop.copies ? Message::DropCopiesAfter : Message::DropMovesAfter;
    return modStringRes::FormatResString(textId, ShortCaption(*entry), DraggedText(editor, nodes));
}

} // namespace

void FormMain::BindDrag() {
    platform::TreeEvents& on = tvMain->View().on;
    on.mayDrop = [this](const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
        return MayDrop(nodes, drop);
    };
    on.dropped = [this](const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
        OnDropped(nodes, drop);
    };
    on.dragLeft = [this] { SetStatusText("", FormStatusBar::HelpPanel); };
    on.dragText = [this](const std::vector<TreeNode*>& nodes) {
        return m_editor.CopyText(Uppermost(*m_editor.OpenMenu(), KeysOf(nodes)));
    };
    on.droppedText = [this](const std::string& text, const TreeDrop& drop) {
        return OnDroppedText(text, drop);
    };
    on.dragTaken = [this](const std::vector<TreeNode*>& nodes) {
        RemoveEntries(Uppermost(*m_editor.OpenMenu(), KeysOf(nodes)), &MenuEditor::Remove);
    };
}

// Returns whether entries may be dropped at a place, and shows in the status bar what that does, or why not.
// @param nodes  none when the entries come from another window
bool FormMain::MayDrop(const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
    const std::string parentId = PlaceOf(m_editor, drop).parentId;
    std::optional<NeskError> refusal = m_editor.WhyNotMoveTo(KeysOf(nodes), parentId);
    const bool needsRoom = drop.copies || nodes.empty();
    if (!refusal && needsRoom)
        refusal = m_editor.WhyNotCopyTo(std::max(nodes.size(), std::size_t{1}), parentId);
    const wxString text =
        modUtilities::ToWx(refusal ? modUtilities::MessageText(*refusal) : DropText(m_editor, nodes, drop));
    if (sbMain->GetStatusText(FormStatusBar::HelpPanel) != text)
        SetStatusText(text, FormStatusBar::HelpPanel);
    return !refusal;
}

void FormMain::OnDropped(const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
    const EntryIds ids = Uppermost(*m_editor.OpenMenu(), KeysOf(nodes));
    const DropPlace place = PlaceOf(m_editor, drop);
    try {
        const wxBusyCursor busy;
        tvMain->SelectKeys(drop.copies ? m_editor.CopyTo(ids, place.parentId, place.position)
                                       : m_editor.MoveTo(ids, place.parentId, place.position));
    } catch (const NeskError& error) {
        ShowRefusal(Message::DropFailed, error);
    }
}

bool FormMain::OnDroppedText(const std::string& text, const TreeDrop& drop) {
    const DropPlace place = PlaceOf(m_editor, drop);
    try {
        const wxBusyCursor busy;
        tvMain->SelectKeys(m_editor.Paste(text, place.parentId, place.position));
        // The user goes on with what came. The other window holds the focus until the drag has ended.
        CallAfter([this] {
            Raise();
            tvMain->Window().SetFocus();
        });
        return true;
    } catch (const NeskError& error) {
        // The other window waits until the drag has ended.
        CallAfter([this, error] { ShowRefusal(Message::DropFailed, error); });
        return false;
    }
}

} // namespace nesk
