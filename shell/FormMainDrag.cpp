// Dragging in the main window's tree and preview, and between two windows of the program.

#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/FormMain.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPreview.h"
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

// What is shown may be only some of the entries, so the position is that of the entry among all its siblings.
DropPlace PlaceOf(const MenuEditor& editor, const EntryDrop& drop) {
    const auto* item = dynamic_cast<const MenuItem*>(editor.Find(drop.id));
    if (drop.where == EntryDrop::Where::On || item == nullptr) return {drop.id, 0};
    const MenuEntry& parent = *item->ParentMenu();
    const int position = parent.Children()->PositionOf(*item);
    return {parent.ID(), drop.where == EntryDrop::Where::Before ? position : position + 1};
}

// A drop in the tree.
EntryDrop DropOf(const TreeDrop& drop) {
    using Where = EntryDrop::Where;
    const Where where = drop.where == TreeDrop::Where::Before ? Where::Before
                        : drop.where == TreeDrop::Where::On   ? Where::On
                                                              : Where::After;
    return {FormMenuTree::KeyOf(drop.node), where, drop.copies};
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
std::string DraggedText(const MenuEditor& editor, const EntryIds& dragged) {
    if (dragged.empty()) return modStringRes::LoadResString(Message::DropFromOther);
    const EntryIds ids = Uppermost(*editor.OpenMenu(), dragged);
    if (ids.size() != 1) return modStringRes::FormatResString(Message::DropOfSeveral, ids.size());
    const MenuEntry* entry = editor.Find(ids.front());
    return entry != nullptr ? modStringRes::FormatResString(Message::DropOfOne, ShortCaption(*entry)) : "";
}

// What a drop at a place does.
std::string DropText(const MenuEditor& editor, const EntryIds& dragged, const EntryDrop& drop) {
    using Where = EntryDrop::Where;
    const MenuEntry* entry = editor.Find(drop.id);
    if (entry == nullptr) return "";
    // There is no place before or after the main menu.
    const Where where = entry == editor.OpenMenu() ? Where::On : drop.where;
    int textId = drop.copies ? Message::DropCopiesInto : Message::DropMovesInto;
    if (where == Where::Before) textId = drop.copies ? Message::DropCopiesBefore : Message::DropMovesBefore;
    if (where == Where::After) textId = drop.copies ? Message::DropCopiesAfter : Message::DropMovesAfter;
    return modStringRes::FormatResString(textId, ShortCaption(*entry), DraggedText(editor, dragged));
}

} // namespace

void FormMain::BindDrag() {
    BindFiles();
    platform::TreeEvents& on = tvMain->View().on;
    on.mayDrop = [this](const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
        // What is not dragged from the tree may be dragged from the preview.
        return MayDrop(nodes.empty() ? DraggedInPreview() : KeysOf(nodes), DropOf(drop));
    };
    on.dropped = [this](const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
        OnDropped(KeysOf(nodes), DropOf(drop));
    };
    on.dragLeft = [this] { OnDragLeft(); };
    on.dragText = [this](const std::vector<TreeNode*>& nodes) {
        return m_editor.CopyText(Uppermost(*m_editor.OpenMenu(), KeysOf(nodes)));
    };
    on.droppedText = [this](const std::string& text, const TreeDrop& drop) {
        const EntryIds ids = DraggedInPreview();
        if (ids.empty()) return OnDroppedText(text, DropOf(drop), tvMain->Window());
        // The entries are moved here, so the preview must not remove them.
        pnPreview->ForgetDragged();
        CallAfter([this, ids, entryDrop = DropOf(drop)] { OnDropped(ids, entryDrop); });
        return true;
    };
    on.dragTaken = [this](const std::vector<TreeNode*>& nodes) {
        RemoveEntries(Uppermost(*m_editor.OpenMenu(), KeysOf(nodes)), &MenuEditor::Remove);
    };
}

EntryIds FormMain::DraggedInTree() const {
    return KeysOf(tvMain->View().Dragged());
}

EntryIds FormMain::DraggedInPreview() const {
    return pnPreview != nullptr ? pnPreview->Dragged() : EntryIds{};
}

// Returns whether entries may be dropped at a place, and shows in the status bar what that does, or why not.
// @param ids  none when the entries come from another window
bool FormMain::MayDrop(const EntryIds& ids, const EntryDrop& drop) {
    const std::string parentId = PlaceOf(m_editor, drop).parentId;
    std::optional<NeskError> refusal = m_editor.WhyNotMoveTo(ids, parentId);
    const bool needsRoom = drop.copies || ids.empty();
    if (!refusal && needsRoom)
        refusal = m_editor.WhyNotCopyTo(std::max(ids.size(), std::size_t{1}), parentId);
    ShowDragText(refusal ? modUtilities::MessageText(*refusal) : DropText(m_editor, ids, drop));
    return !refusal;
}

void FormMain::OnDropped(const EntryIds& dragged, const EntryDrop& drop) {
    if (!m_editor.IsOpen()) return;
    const EntryIds ids = Uppermost(*m_editor.OpenMenu(), dragged);
    const DropPlace place = PlaceOf(m_editor, drop);
    try {
        const wxBusyCursor busy;
        tvMain->SelectKeys(drop.copies ? m_editor.CopyTo(ids, place.parentId, place.position)
                                       : m_editor.MoveTo(ids, place.parentId, place.position));
    } catch (const NeskError& error) {
        ShowRefusal(Message::DropFailed, error);
    }
}

// @param window  where the text was dropped
bool FormMain::OnDroppedText(const std::string& text, const EntryDrop& drop, wxWindow& window) {
    const DropPlace place = PlaceOf(m_editor, drop);
    try {
        const wxBusyCursor busy;
        tvMain->SelectKeys(m_editor.Paste(text, place.parentId, place.position));
        // The user goes on with what came. The other window holds the focus until the drag has ended.
        CallAfter([this, &window] {
            Raise();
            window.SetFocus();
        });
        return true;
    } catch (const NeskError& error) {
        // The other window waits until the drag has ended.
        CallAfter([this, error] { ShowRefusal(Message::DropFailed, error); });
        return false;
    }
}

} // namespace nesk
