#include "shell/FormMenuTree.h"

#include "base/Messages.h"
#include "editing/EntryMark.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/modStringRes.h"
#include "widgets/UiIcons.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <set>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include <wx/window.h>
#include <wx/wupdlock.h>

namespace nesk {

using platform::TreeNode;
using platform::TreeView;

namespace {

// Indexes of the pictures. A picture with an overlay says what is wrong with the entry.
enum Image { FolderImage, PartImage, MarkedPartImage, MarkedFolderImage };

// From this number of events on, building the tree again is faster than following each event.
constexpr std::size_t ManyEvents = 100;

// From this number of ids on, siblings are looked up in a table.
constexpr std::size_t ManyIds = 16;

} // namespace

FormMenuTree::FormMenuTree(wxWindow* parent, const MenuEditor& editor)
    : m_editor(editor), m_view(*TreeView::Create(parent, "tvMain", {.multiple = true, .drag = true})) {
    const wxSize size = m_view.ImageSize();
    // In the order of Image.
    m_view.SetImages({IconBundle("folder", size), IconBundle("part", size), IconBundle("part+warning", size),
                      IconBundle("folder+warning", size)});
    m_view.SetAccessibleName(modStringRes::LoadResString(Message::TreeName));
    m_view.on.fill = [this](TreeNode& node) { Fill(node); };
}

// The control may send its last events while the window is being destroyed. No handler may run then.
FormMenuTree::~FormMenuTree() {
    m_view.on = {};
}

int FormMenuTree::ImageOf(const MenuEntry& entry) const {
    const auto* item = dynamic_cast<const MenuItem*>(&entry);
    const bool isPart = item != nullptr && item->IsPart();
    const bool isMarked =
        (m_hasProblem && m_hasProblem(entry)) || (isPart && EntryMarkOf(*item) == EntryMark::NoProgram);
    if (isPart) return isMarked ? MarkedPartImage : PartImage;
    return isMarked ? MarkedFolderImage : FolderImage;
}

std::unique_ptr<TreeNode> FormMenuTree::NodeFor(const MenuItem& item) const {
    return std::make_unique<TreeNode>(std::string(item.Caption()), ImageOf(item),
                                      MenuId::LastPart(item.Counter()), item.ChildCount() > 0);
}

// Goes through the nodes and their entries side by side: the nodes are in the order of the entries, of which
// a filter may hide some.
void FormMenuTree::UpdateMarks() {
    const Menu* menu = m_editor.OpenMenu();
    if (menu == nullptr || m_view.Root() == nullptr || m_toRestore) return;
    // GTK calls the edit of a caption off when a row changes. The marks are updated when the edit ends.
    if (m_view.Edited() != nullptr) return;
    std::vector<std::pair<TreeNode*, int>> changed; // nodes and their pictures
    std::vector<std::pair<TreeNode*, const MenuEntry*>> levels{{m_view.Root(), menu}};
    while (!levels.empty()) {
        const auto [node, entry] = levels.back();
        levels.pop_back();
        if (const int image = ImageOf(*entry); node->Image() != image) changed.emplace_back(node, image);
        int child = 0;
        for (std::size_t i = 0; i < node->ChildCount(); ++i) {
            const std::string& key = node->Child(i).Key();
            const MenuItem* item = nullptr;
            while (child < entry->ChildCount()) {
                item = &entry->Children()->Item(++child);
                if (MenuId::LastPart(item->Counter()) == key) break;
                item = nullptr;
            }
            if (item == nullptr) break;
            levels.emplace_back(&node->Child(i), item);
        }
    }
    // A few rows are drawn one by one, many all at once.
    std::optional<wxWindowUpdateLocker> locker;
    if (changed.size() > ManyIds) locker.emplace(&Window());
    for (const auto& [node, image] : changed)
        m_view.SetImage(*node, image);
}

void FormMenuTree::ClearTree() {
    m_lastExpanded.reset();
    m_toRestore.reset();
    m_events = 0;
    m_view.Clear();
}

void FormMenuTree::BuildTree() {
    ClearTree();
    const Menu* menu = m_editor.OpenMenu();
    if (menu == nullptr) return;
    Window().Freeze();
    TreeNode& root = m_view.SetRoot(std::make_unique<TreeNode>(
        std::string(menu->Caption()), ImageOf(*menu), std::string(MenuId::Root), menu->ChildCount() > 0));
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
    const std::vector<bool> isShown = m_filter ? m_filter(*entry) : std::vector<bool>();
    for (int i = 1; i <= count; ++i)
        if (isShown.empty() || isShown[static_cast<std::size_t>(i) - 1])
            m_view.Append(node, NodeFor(entry->Children()->Item(i)));
}

std::string FormMenuTree::KeyOf(const TreeNode* node) {
    std::vector<std::string_view> keys;
    for (const TreeNode* at = node; at != nullptr; at = at->Parent())
        keys.push_back(at->Key());
    std::reverse(keys.begin(), keys.end());
    return MenuId::Join(keys);
}

EntryIds FormMenuTree::SelectedKeys() const {
    const std::vector<TreeNode*> nodes = m_view.Selection();
    EntryIds ids;
    ids.reserve(nodes.size());
    std::transform(nodes.begin(), nodes.end(), std::back_inserter(ids), KeyOf);
    return ids;
}

TreeNode* FormMenuTree::NodeOf(const std::string& id) {
    return FindNode(id, TreeView::Missing::Create);
}

// The node of an entry; null when it was not created yet.
TreeNode* FormMenuTree::ExistingNodeOf(const std::string& id) const {
    return FindNode(id, TreeView::Missing::Stay);
}

TreeNode* FormMenuTree::FindNode(const std::string& id, TreeView::Missing missing) const {
    // Most changes concern the selected entry.
    if (TreeNode* selected = m_view.Selected(); selected != nullptr && KeyOf(selected) == id) return selected;
    return m_view.NodeAt(MenuId::Parts(id), missing);
}

// The nodes of the entries that exist.
std::vector<TreeNode*> FormMenuTree::NodesOf(const EntryIds& ids) {
    std::vector<TreeNode*> nodes;
    std::string parentId;
    std::unordered_map<std::string_view, TreeNode*> siblings;
    for (const std::string& id : ids) {
        const std::string above = MenuId::OfParent(id);
        if (ids.size() < ManyIds || above.empty()) {
            if (TreeNode* node = NodeOf(id)) nodes.push_back(node);
            continue;
        }
        if (above != parentId) {
            parentId = above;
            siblings.clear();
            TreeNode* const parent = NodeOf(above);
            if (parent != nullptr) m_view.Fill(*parent);
            for (std::size_t i = 0; parent != nullptr && i < parent->ChildCount(); ++i)
                siblings.emplace(parent->Child(i).Key(), &parent->Child(i));
        }
        if (const auto found = siblings.find(MenuId::Parts(id).back()); found != siblings.end())
            nodes.push_back(found->second);
    }
    return nodes;
}

void FormMenuTree::SelectKey(const std::string& id) {
    SelectKeys({id});
}

void FormMenuTree::SelectKeys(const EntryIds& ids) {
    const std::vector<TreeNode*> nodes = NodesOf(ids);
    if (nodes.empty()) return;
    m_view.SelectAll(nodes, nodes.front());
    m_view.EnsureVisible(*nodes.front());
}

void FormMenuTree::SelectMore() {
    TreeNode* const current = m_view.Selected() != nullptr ? m_view.Selected() : m_view.Root();
    if (current == nullptr) return;
    const std::vector<TreeNode*> selected = m_view.Selection();
    std::vector<TreeNode*> nodes;
    if (const TreeNode* parent = current->Parent(); parent != nullptr)
        for (std::size_t i = 0; i < parent->ChildCount(); ++i)
            nodes.push_back(&parent->Child(i));
    const std::unordered_set<const TreeNode*> chosen(selected.begin(), selected.end());
    if (std::all_of(nodes.begin(), nodes.end(),
                    [&](const TreeNode* node) { return chosen.contains(node); })) {
        nodes.clear();
        for (TreeNode* node = m_view.Root()->NextRow(); node != nullptr; node = node->NextRow())
            nodes.push_back(node);
    }
    if (!nodes.empty()) m_view.SelectAll(nodes, current->Parent() != nullptr ? current : nodes.front());
}

void FormMenuTree::ExpandBelow(const std::string& id) {
    TreeNode* const node = NodeOf(id);
    if (node == nullptr) return;
    const wxWindowUpdateLocker locker(&Window());
    m_view.ExpandBelow(*node);
}

void FormMenuTree::CollapseAll() {
    TreeNode* const root = m_view.Root();
    if (root == nullptr) return;
    const wxWindowUpdateLocker locker(&Window());
    // Entries may be expanded inside a collapsed one. They are collapsed too, from below.
    std::vector<TreeNode*> nodes{root};
    for (std::size_t at = 0; at < nodes.size(); ++at)
        for (std::size_t i = 0; i < nodes[at]->ChildCount(); ++i)
            nodes.push_back(&nodes[at]->Child(i));
    for (auto node = nodes.rbegin(); *node != root; ++node)
        if ((*node)->IsExpanded()) m_view.Collapse(**node);
}

// --- what undo and redo show again ---

class FormMenuTree::ViewContext final : public EditContext {
public:
    explicit ViewContext(FormMenuTree& tree)
        : m_tree(tree), m_selected(tree.SelectedKeys()), m_current(tree.SelectedKey()) {
        const TreeView::Scroll scroll = tree.m_view.ScrollPosition();
        m_top = KeyOf(scroll.top);
        m_offset = scroll.offset;
        EntryIds expanded = ExpandedFrom(*tree.m_view.Root(), std::string(MenuId::Root));
        m_isShared = tree.m_lastExpanded != nullptr && *tree.m_lastExpanded == expanded;
        if (!m_isShared) tree.m_lastExpanded = std::make_shared<const EntryIds>(std::move(expanded));
        m_expanded = tree.m_lastExpanded;
    }

    void Restore() override {
        const wxWindowUpdateLocker locker(&m_tree.Window());
        if (m_tree.m_toRestore) m_tree.BuildTree();
        Show();
    }

    // Shows the same again in a tree that is up to date.
    void Show() {
        m_tree.ShowExpanded(*m_expanded);
        std::vector<TreeNode*> nodes = m_tree.NodesOf(m_selected);
        TreeNode* current = m_tree.NodeOf(m_current);
        // An entry that was removed meanwhile leaves the selection to the nearest one above it.
        for (std::string id = m_current; nodes.empty() && !id.empty();) {
            id = MenuId::OfParent(id);
            current = m_tree.NodeOf(id);
            if (current != nullptr) nodes.push_back(current);
        }
        if (nodes.empty()) return;
        if (current == nullptr) current = nodes.front();
        m_tree.m_view.SelectAll(nodes, current);
        if (TreeNode* top = m_tree.NodeOf(m_top); top != nullptr && top->HasRow())
            m_tree.m_view.SetScrollPosition({top, m_offset});
        m_tree.m_view.EnsureVisible(*current);
    }

    // Follows an entry that got another id, with all entries below it.
    void Rename(const std::string& before, const std::string& after) {
        const auto rename = [&](std::string& id) {
            const bool isWithin =
                id.starts_with(before) && (id.size() == before.size() || id[before.size()] == '.');
            if (isWithin) id.replace(0, before.size(), after);
        };
        auto expanded = std::make_shared<EntryIds>(*m_expanded);
        std::for_each(expanded->begin(), expanded->end(), rename);
        m_expanded = std::move(expanded);
        std::for_each(m_selected.begin(), m_selected.end(), rename);
        rename(m_current);
        rename(m_top);
    }

    std::size_t Bytes() const override {
        std::size_t bytes = sizeof *this + m_current.size() + m_top.size() + BytesOf(m_selected);
        return m_isShared ? bytes : bytes + BytesOf(*m_expanded);
    }

private:
    static std::size_t BytesOf(const EntryIds& ids) {
        std::size_t bytes = 0;
        for (const std::string& id : ids)
            bytes += sizeof(std::string) + id.size();
        return bytes;
    }

    FormMenuTree& m_tree;
    EntryIds m_selected;
    std::string m_current;
    std::shared_ptr<const EntryIds> m_expanded;
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
EntryIds FormMenuTree::ExpandedFrom(const TreeNode& node, const std::string& id) {
    EntryIds expanded;
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
void FormMenuTree::ShowExpanded(const EntryIds& expanded) {
    const EntryIds now = ExpandedFrom(*m_view.Root(), std::string(MenuId::Root));
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

void FormMenuTree::Expect(std::size_t events) {
    if (events > ManyEvents && !m_toRestore && m_view.Root() != nullptr)
        m_toRestore = std::make_unique<ViewContext>(*this);
}

void FormMenuTree::Follow(const MenuEvent& event) {
    // The number of events is not always known before.
    Expect(event.kind == MenuEvent::Kind::Reordered ? ManyEvents + 1 : ++m_events);
    if (m_toRestore) {
        if (!event.formerId.empty()) m_toRestore->Rename(event.formerId, event.id);
        return;
    }
    switch (event.kind) {
    case MenuEvent::Kind::None:
    case MenuEvent::Kind::Reordered: break;
    case MenuEvent::Kind::Added: Place(event); break;
    case MenuEvent::Kind::Removed: Remove(event.id); break;
    case MenuEvent::Kind::Moved: Move(event); break;
    case MenuEvent::Kind::Edited:
        if (TreeNode* node = ExistingNodeOf(event.id)) Describe(*node, *m_editor.Find(event.id));
        break;
    }
}

void FormMenuTree::Settle() {
    m_events = 0;
    if (!m_toRestore) return;
    const wxWindowUpdateLocker locker(&Window());
    const std::unique_ptr<ViewContext> context = std::move(m_toRestore);
    BuildTree();
    context->Show();
}

// Shows the caption and the picture that the entry has now.
void FormMenuTree::Describe(TreeNode& node, const MenuEntry& entry) {
    m_view.SetText(node, std::string(entry.Caption()));
    m_view.SetImage(node, ImageOf(entry));
}

// Adds the node of a new entry at the position of the event. When its siblings have no nodes yet, the entry
// gets its node together with them.
void FormMenuTree::Place(const MenuEvent& event) {
    TreeNode* const parent = NodeOf(event.parentId);
    const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(event.id));
    if (parent == nullptr || item == nullptr) return;
    if (parent->IsFilled())
        m_view.Insert(*parent, IndexFor(*parent, event), NodeFor(*item));
    else
        m_view.Fill(*parent);
}

void FormMenuTree::Remove(const std::string& id) {
    if (TreeNode* node = ExistingNodeOf(id)) return m_view.Remove(*node);
    // It had no node. A parent that has no children left must not look as if it had some.
    const std::string parentId = MenuId::OfParent(id);
    const MenuEntry* parent = m_editor.Find(parentId);
    TreeNode* const node = ExistingNodeOf(parentId);
    if (parent != nullptr && parent->ChildCount() == 0 && node != nullptr) m_view.Fill(*node);
}

// The position of an entry among the nodes of its siblings. With a filter, not all siblings have nodes.
std::size_t FormMenuTree::IndexFor(const TreeNode& parent, const MenuEvent& event) const {
    if (!m_filter) return static_cast<std::size_t>(event.position) - 1;
    const MenuItemCollection& siblings = *m_editor.Find(event.parentId)->Children();
    std::set<std::string> before;
    for (int i = 1; i < event.position; ++i)
        before.insert(MenuId::LastPart(siblings.Item(i).Counter()));
    std::size_t index = 0;
    for (std::size_t i = 0; i < parent.ChildCount(); ++i)
        if (before.contains(parent.Child(i).Key())) ++index;
    return index;
}

void FormMenuTree::Move(const MenuEvent& event) {
    const wxWindowUpdateLocker locker(&Window());
    TreeNode* const node = NodeOf(event.formerId.empty() ? event.id : event.formerId);
    TreeNode* const parent = NodeOf(event.parentId);
    if (node != nullptr && parent != nullptr && parent->IsFilled()) {
        m_view.Move(*node, *parent, IndexFor(*parent, event));
        node->SetKey(std::string(MenuId::Parts(event.id).back()));
        return;
    }
    // The children of the new parent have no nodes yet. The entry gets its node together with them.
    EntryIds expanded;
    bool isSelected = false;
    if (node != nullptr) {
        expanded = ExpandedFrom(*node, event.id);
        const std::vector<TreeNode*> selection = m_view.Selection();
        isSelected = std::find(selection.begin(), selection.end(), node) != selection.end();
        m_view.Remove(*node);
    }
    Place(event);
    for (const std::string& id : expanded)
        if (TreeNode* placed = NodeOf(id)) m_view.Expand(*placed);
    if (isSelected) SelectKey(event.id);
}

} // namespace nesk
