#include "shell/FormMenuTree.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "shell/FormIcons.h"
#include "shell/FormUtilities.h"

#include <charconv>
#include <utility>
#include <vector>

namespace nesk {

using modUtilities::ToWx;

namespace {

enum Image { FolderImage, PartImage };

constexpr int ImageSize = 20;

// Levels that are filled at once. What lies deeper is filled when its parent is expanded: the tree control
// follows expanded levels on the machine stack.
constexpr std::size_t LevelsFilledAtOnce = 200;

// A node knows the counter of its entry alone, as the entry does: whole ids would take the square of the
// depth.
class NodeData final : public wxTreeItemData {
public:
    explicit NodeData(std::int32_t counter) : m_counter(counter) {}
    std::int32_t Counter() const { return m_counter; }

    bool filled = false;

private:
    std::int32_t m_counter;
};

NodeData& DataOf(const wxTreeCtrl& tree, const wxTreeItemId& node) {
    return *static_cast<NodeData*>(tree.GetItemData(node));
}

} // namespace

FormMenuTree::FormMenuTree(wxWindow* parent, const MenuEditor& editor) : m_editor(editor) {
    Create(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
           wxTR_EDIT_LABELS | wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE, wxDefaultValidator,
           "tvMain");
    const wxSize size(ImageSize, ImageSize);
    wxVector<wxBitmapBundle> images; // in the order of Image
    images.push_back(IconBundle("folder", size));
    images.push_back(IconBundle("part", size));
    SetImages(images);
    Bind(wxEVT_TREE_ITEM_EXPANDING, &FormMenuTree::OnExpanding, this);
    // Where it is a character of its own, and where it takes two keys.
    Bind(wxEVT_KEY_DOWN, &FormMenuTree::OnKey, this);
    Bind(wxEVT_CHAR, &FormMenuTree::OnKey, this);
}

void FormMenuTree::ClearTree() {
    DeleteAllItems();
}

void FormMenuTree::BuildTree() {
    Freeze();
    ClearTree();
    if (Menu* menu = m_editor.OpenMenu()) {
        const wxTreeItemId root = AddRoot(ToWx(menu->Caption()), FolderImage, FolderImage, new NodeData(0));
        AddChildNodes(*menu, root);
        Expand(root);
        SelectItem(root);
    }
    Thaw();
}

wxTreeItemId FormMenuTree::AddNode(const wxTreeItemId& parent, std::size_t position, const MenuEntry& entry) {
    const auto& item = static_cast<const MenuItem&>(entry);
    const int image = item.IsPart() ? PartImage : FolderImage;
    return InsertItem(parent, position, ToWx(item.Caption()), image, image, new NodeData(item.Counter()));
}

void FormMenuTree::AddChildNodes(MenuEntry& entry, const wxTreeItemId& node) {
    struct Level {
        MenuEntry* entry;
        wxTreeItemId node;
        int added;
    };
    std::vector<Level> levels{{&entry, node, 0}};
    DataOf(*this, node).filled = true;
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.added == level.entry->ChildCount()) {
            levels.pop_back();
            continue;
        }
        MenuItem& child = level.entry->SubMenus().Item(++level.added);
        const int image = child.IsPart() ? PartImage : FolderImage;
        const wxTreeItemId childNode =
            AppendItem(level.node, ToWx(child.Caption()), image, image, new NodeData(child.Counter()));
        if (child.ChildCount() == 0) {
            DataOf(*this, childNode).filled = true;
        } else if (levels.size() < LevelsFilledAtOnce) {
            DataOf(*this, childNode).filled = true;
            levels.push_back({&child, childNode, 0});
        } else {
            SetItemHasChildren(childNode);
        }
    }
}

void FormMenuTree::FillNode(const wxTreeItemId& node) {
    if (DataOf(*this, node).filled) return;
    if (MenuEntry* entry = m_editor.Find(KeyOf(node))) AddChildNodes(*entry, node);
}

void FormMenuTree::OnExpanding(wxTreeEvent& event) {
    FillNode(event.GetItem());
    event.Skip();
}

// The key that expands everything below a node. The tree control would follow a deep menu until the machine
// stack ends.
void FormMenuTree::OnKey(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const wxTreeItemId node = GetSelection();
    const bool expands = key == '*' || key == WXK_MULTIPLY || key == WXK_NUMPAD_MULTIPLY;
    if (!expands || !node.IsOk()) return event.Skip();
    Freeze();
    ExpandBelow(node);
    Thaw();
}

void FormMenuTree::ExpandBelow(const wxTreeItemId& node) {
    std::vector<std::pair<wxTreeItemId, std::size_t>> found{{node, 1}};
    while (!found.empty()) {
        const auto [at, level] = found.back();
        found.pop_back();
        if (!ItemHasChildren(at)) continue;
        Expand(at);
        if (level == LevelsFilledAtOnce) continue;
        wxTreeItemIdValue cookie = nullptr;
        for (wxTreeItemId child = GetFirstChild(at, cookie); child.IsOk(); child = GetNextChild(at, cookie))
            found.emplace_back(child, level + 1);
    }
}

std::string FormMenuTree::KeyOf(const wxTreeItemId& node) const {
    if (!node.IsOk()) return "";
    std::vector<std::int32_t> counters;
    const wxTreeItemId root = GetRootItem();
    for (wxTreeItemId at = node; at.IsOk() && at != root; at = GetItemParent(at))
        counters.push_back(DataOf(*this, at).Counter());
    std::string key = "R";
    for (auto counter = counters.rbegin(); counter != counters.rend(); ++counter)
        key.append(1, '.').append(std::to_string(*counter));
    return key;
}

wxTreeItemId FormMenuTree::NodeOf(const std::string& id) {
    // Most changes concern the entry that the user has selected.
    if (const wxTreeItemId selected = GetSelection(); selected.IsOk() && KeyOf(selected) == id)
        return selected;
    if (GetCount() == 0 || !id.starts_with('R')) return {};
    wxTreeItemId node = GetRootItem();
    std::string_view rest = std::string_view(id).substr(1);
    while (node.IsOk() && rest.starts_with('.')) {
        std::int32_t counter = 0;
        const auto [end, error] = std::from_chars(rest.data() + 1, rest.data() + rest.size(), counter);
        if (error != std::errc()) return {};
        rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
        FillNode(node);
        // By the cookie: GetNextSibling may look for its node among all siblings first.
        wxTreeItemIdValue cookie = nullptr;
        wxTreeItemId child = GetFirstChild(node, cookie);
        while (child.IsOk() && DataOf(*this, child).Counter() != counter)
            child = GetNextChild(node, cookie);
        node = child;
    }
    return node;
}

void FormMenuTree::SelectKey(const std::string& id) {
    const wxTreeItemId node = NodeOf(id);
    if (!node.IsOk()) return;
    SelectItem(node);
    EnsureVisible(node);
}

void FormMenuTree::Follow(const MenuEvent& event) {
    switch (event.kind) {
    case MenuEvent::Kind::None: break;
    case MenuEvent::Kind::Added: Place(event); break;
    case MenuEvent::Kind::Removed:
        if (const wxTreeItemId node = NodeOf(event.id); node.IsOk()) Delete(node);
        break;
    case MenuEvent::Kind::Moved: {
        Freeze();
        const wxTreeItemId node = NodeOf(event.id);
        const bool expanded = node.IsOk() && IsExpanded(node);
        if (node.IsOk()) Delete(node);
        Place(event);
        SelectKey(event.id);
        if (expanded) Expand(NodeOf(event.id));
        Thaw();
        break;
    }
    case MenuEvent::Kind::Edited:
        if (const wxTreeItemId node = NodeOf(event.id); node.IsOk())
            SetItemText(node, ToWx(m_editor.Find(event.id)->Caption()));
        break;
    }
}

// Inserts the node of an entry, with everything below it, where the event says.
void FormMenuTree::Place(const MenuEvent& event) {
    const wxTreeItemId parent = NodeOf(event.parentId);
    MenuEntry* entry = m_editor.Find(event.id);
    if (!parent.IsOk() || entry == nullptr) return;
    if (!DataOf(*this, parent).filled) return FillNode(parent);
    const wxTreeItemId node = AddNode(parent, static_cast<std::size_t>(event.position) - 1, *entry);
    AddChildNodes(*entry, node);
}

} // namespace nesk
