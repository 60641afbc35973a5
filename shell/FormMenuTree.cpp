#include "shell/FormMenuTree.h"

#include "base/Messages.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modStringRes.h"
#include "widgets/UiIcons.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string_view>
#include <utility>
#include <vector>

#include <wx/window.h>
#include <wx/wupdlock.h>

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
    m_lastExpanded.reset();
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

// --- what undo and redo show again ---

class FormMenuTree::ViewContext final : public EditContext {
public:
    explicit ViewContext(FormMenuTree& tree) : m_tree(tree) {
        for (const TreeNode* node : tree.m_view.Selection())
            m_selected.push_back(KeyOf(node));
        m_current = tree.SelectedKey();
        const TreeView::Scroll scroll = tree.m_view.ScrollPosition();
        m_top = KeyOf(scroll.top);
        m_offset = scroll.offset;
        Ids expanded = ExpandedFrom(*tree.m_view.Root(), std::string(MenuId::Root));
        m_isShared = tree.m_lastExpanded != nullptr && *tree.m_lastExpanded == expanded;
        if (!m_isShared) tree.m_lastExpanded = std::make_shared<const Ids>(std::move(expanded));
        m_expanded = tree.m_lastExpanded;
    }

    void Restore() override {
        const wxWindowUpdateLocker locker(&m_tree.Window());
        m_tree.ShowExpanded(*m_expanded);
        std::vector<TreeNode*> nodes;
        for (const std::string& id : m_selected)
            if (TreeNode* node = m_tree.NodeOf(id)) nodes.push_back(node);
        TreeNode* const current = m_tree.NodeOf(m_current);
        if (nodes.empty() || current == nullptr) return;
        m_tree.m_view.SelectAll(nodes, current);
        if (TreeNode* top = m_tree.NodeOf(m_top); top != nullptr && top->HasRow())
            m_tree.m_view.SetScrollPosition({top, m_offset});
        m_tree.m_view.EnsureVisible(*current);
    }

    std::size_t Bytes() const override {
        std::size_t bytes = sizeof *this + m_current.size() + m_top.size() + BytesOf(m_selected);
        return m_isShared ? bytes : bytes + BytesOf(*m_expanded);
    }

private:
    static std::size_t BytesOf(const Ids& ids) {
        std::size_t bytes = 0;
        for (const std::string& id : ids)
            bytes += sizeof(std::string) + id.size();
        return bytes;
    }

    FormMenuTree& m_tree;
    Ids m_selected;
    std::string m_current;
    std::shared_ptr<const Ids> m_expanded;
    bool m_isShared = false; // an earlier context has the same list
    std::string m_top;
    int m_offset = 0;
};

std::unique_ptr<EditContext> FormMenuTree::Context() {
    if (m_view.Root() == nullptr) return nullptr;
    return std::make_unique<ViewContext>(*this);
}

// Ids of the expanded entries that can be seen, from top to bottom, each before those below it.
// @param id  id of the node, with which the ids begin
FormMenuTree::Ids FormMenuTree::ExpandedFrom(const TreeNode& node, const std::string& id) {
    Ids expanded;
    std::vector<std::pair<const TreeNode*, std::string>> open{{&node, id}};
    while (!open.empty()) {
        const auto [at, own] = std::move(open.back());
        open.pop_back();
        if (!at->IsExpanded()) continue;
        for (std::size_t i = at->ChildCount(); i > 0; --i)
            if (const TreeNode& child = at->Child(i - 1); child.IsExpanded())
                open.emplace_back(&child, own + "." + child.Key());
        expanded.push_back(own);
    }
    return expanded;
}

// Expands and collapses entries until just these are expanded.
void FormMenuTree::ShowExpanded(const Ids& expanded) {
    const Ids now = ExpandedFrom(*m_view.Root(), std::string(MenuId::Root));
    if (now == expanded) return;
    const std::set<std::string_view> wanted(expanded.begin(), expanded.end());
    // From below, so that an entry can still be found when its parent is collapsed.
    for (auto id = now.rbegin(); id != now.rend(); ++id)
        if (TreeNode* node = NodeOf(*id); node != nullptr && !wanted.contains(*id)) m_view.Collapse(*node);
    const std::set<std::string_view> shown(now.begin(), now.end());
    for (const std::string& id : expanded)
        if (!shown.contains(id))
            if (TreeNode* node = NodeOf(id)) m_view.Expand(*node);
}

// --- changes ---

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
        Ids expanded;
        if (node != nullptr) {
            expanded = ExpandedFrom(*node, event.id);
            m_view.Remove(*node);
        }
        Place(event);
        for (const std::string& id : expanded)
            if (TreeNode* placed = NodeOf(id)) m_view.Expand(*placed);
    }
    SelectKey(event.id);
    Window().Thaw();
}

} // namespace nesk
