#include "shell/FormMenuTree.h"

#include "base/Messages.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modStringRes.h"
#include "widgets/UiIcons.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include <wx/window.h>

namespace nesk {

using platform::TreeNode;
using platform::TreeView;

namespace {

enum Image { FolderImage, PartImage };

std::unique_ptr<TreeNode> NodeFor(const MenuItem& item) {
    return std::make_unique<TreeNode>(std::string(item.Caption()), item.IsPart() ? PartImage : FolderImage,
                                      MenuId::LastPart(item.Counter()), item.ChildCount() > 0);
}

} // namespace

FormMenuTree::FormMenuTree(wxWindow* parent, const MenuEditor& editor)
    : m_editor(editor), m_view(*TreeView::Create(parent, "tvMain", {})) {
    const wxSize size = m_view.ImageSize();
    m_view.SetImages({IconBundle("folder", size), IconBundle("part", size)}); // in the order of Image
    m_view.SetAccessibleName(modStringRes::LoadResString(Message::TreeName));
    m_view.on.fill = [this](TreeNode& node) { Fill(node); };
}

// The control may send its last events while the window is being destroyed. No handler may run then.
FormMenuTree::~FormMenuTree() {
    m_view.on = {};
}

void FormMenuTree::ClearTree() {
    m_view.Clear();
}

void FormMenuTree::BuildTree() {
    ClearTree();
    const Menu* menu = m_editor.OpenMenu();
    if (menu == nullptr) return;
    Window().Freeze();
    TreeNode& root = m_view.SetRoot(std::make_unique<TreeNode>(
        std::string(menu->Caption()), FolderImage, std::string(MenuId::Root), menu->ChildCount() > 0));
    m_view.Expand(root);
    m_view.Select(&root);
    Window().Thaw();
}

// Creates nodes only for the children that are about to be shown, so that a menu of any size and depth opens
// at once.
void FormMenuTree::Fill(TreeNode& node) {
    const MenuEntry* entry = m_editor.Find(KeyOf(&node));
    if (entry == nullptr) return;
    const int count = entry->ChildCount();
    for (int i = 1; i <= count; ++i)
        m_view.Append(node, NodeFor(entry->Children()->Item(i)));
}

std::string FormMenuTree::KeyOf(const TreeNode* node) {
    std::vector<std::string_view> keys;
    for (const TreeNode* at = node; at != nullptr; at = at->Parent())
        keys.push_back(at->Key());
    std::reverse(keys.begin(), keys.end());
    return MenuId::Join(keys);
}

TreeNode* FormMenuTree::NodeOf(const std::string& id) {
    // Most changes concern the selected entry.
    if (TreeNode* selected = m_view.Selected(); selected != nullptr && KeyOf(selected) == id) return selected;
    const std::vector<std::string_view> parts = MenuId::Parts(id);
    TreeNode* node = m_view.Root();
    if (node == nullptr || node->Key() != parts.front()) return nullptr;
    for (std::size_t level = 1; level < parts.size() && node != nullptr; ++level) {
        m_view.Fill(*node);
        TreeNode* found = nullptr;
        for (std::size_t i = 0; i < node->ChildCount() && found == nullptr; ++i)
            if (node->Child(i).Key() == parts[level]) found = &node->Child(i);
        node = found;
    }
    return node;
}

void FormMenuTree::SelectKey(const std::string& id) {
    TreeNode* const node = NodeOf(id);
    if (node == nullptr) return;
    m_view.Select(node);
    m_view.EnsureVisible(*node);
}

void FormMenuTree::Follow(const MenuEvent& event) {
    switch (event.kind) {
    case MenuEvent::Kind::None: break;
    case MenuEvent::Kind::Added: Place(event); break;
    case MenuEvent::Kind::Removed:
        if (TreeNode* node = NodeOf(event.id)) m_view.Remove(*node);
        break;
    case MenuEvent::Kind::Moved: Move(event); break;
    case MenuEvent::Kind::Edited:
        if (TreeNode* node = NodeOf(event.id))
            m_view.SetText(*node, std::string(m_editor.Find(event.id)->Caption()));
        break;
    }
}

// Adds the node of a new entry at the position of the event. When its siblings have no nodes yet, the entry
// gets its node together with them.
void FormMenuTree::Place(const MenuEvent& event) {
    TreeNode* const parent = NodeOf(event.parentId);
    const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(event.id));
    if (parent == nullptr || item == nullptr) return;
    if (parent->IsFilled())
        m_view.Insert(*parent, static_cast<std::size_t>(event.position) - 1, NodeFor(*item));
    else
        m_view.Fill(*parent);
}

void FormMenuTree::Move(const MenuEvent& event) {
    Window().Freeze();
    TreeNode* const node = NodeOf(event.formerId.empty() ? event.id : event.formerId);
    TreeNode* const parent = NodeOf(event.parentId);
    if (node != nullptr && parent != nullptr && parent->IsFilled()) {
        m_view.Move(*node, *parent, static_cast<std::size_t>(event.position) - 1);
        node->SetKey(std::string(MenuId::Parts(event.id).back()));
    } else {
        // The children of the new parent have no nodes yet. The entry gets its node together with them.
        if (node != nullptr) m_view.Remove(*node);
        Place(event);
    }
    SelectKey(event.id);
    Window().Thaw();
}

} // namespace nesk
