#include "partedit/FormFolderTree.h"

#include "partedit/FolderList.h"
#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "shell/FileErrors.h"
#include "shell/FormIcons.h"
#include "shell/FormUtilities.h"
#include "shell/modUtilities.h"

#include <vector>

namespace nesk {

using modUtilities::ToWx;

namespace {

constexpr int ImageSize = 16;

// A folder by its own name. What a node shows could differ from it: a label is cut at control characters.
class NodeData final : public wxTreeItemData {
public:
    explicit NodeData(std::string name) : m_name(std::move(name)) {}
    const std::string& Name() const { return m_name; }

    bool filled = false;

private:
    std::string m_name;
};

NodeData& DataOf(const wxTreeCtrl& tree, const wxTreeItemId& node) {
    return *static_cast<NodeData*>(tree.GetItemData(node));
}

} // namespace

FormFolderTree::FormFolderTree(wxWindow* parent, const char* name) {
    Create(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(320, 240)),
           wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE, wxDefaultValidator, name);
    wxVector<wxBitmapBundle> images;
    images.push_back(IconBundle("folder", wxSize(ImageSize, ImageSize)));
    SetImages(images);
    Bind(wxEVT_TREE_ITEM_EXPANDING, [this](wxTreeEvent& event) {
        Fill(event.GetItem());
        event.Skip();
    });
}

std::string FormFolderTree::PathOf(const wxTreeItemId& node) const {
    std::vector<wxTreeItemId> nodes;
    for (wxTreeItemId at = node; at.IsOk() && at != GetRootItem(); at = GetItemParent(at))
        nodes.push_back(at);
    std::string path = m_root;
    for (auto at = nodes.rbegin(); at != nodes.rend(); ++at)
        path.append(path.ends_with('\\') ? "" : "\\").append(DataOf(*this, *at).Name());
    return path;
}

std::string FormFolderTree::Path() const {
    return m_root.empty() ? "" : PathOf(GetSelection());
}

wxTreeItemId FormFolderTree::AddFolder(const wxTreeItemId& parent, std::size_t position,
                                       const std::string& name) {
    const wxTreeItemId node = InsertItem(parent, position, ToWx(name), 0, 0, new NodeData(name));
    // Whether there is anything in it shows when it is opened; asking every folder now would take long.
    SetItemHasChildren(node);
    return node;
}

void FormFolderTree::Fill(const wxTreeItemId& node) {
    NodeData& data = DataOf(*this, node);
    if (data.filled) return;
    data.filled = true;
    const std::string path = PathOf(node);
    std::vector<std::string> names;
    if (const int result = FolderList::Read(path, names); result != platform::ErrorCode::Success) {
        // It may be readable later, when it is opened again.
        data.filled = false;
        return modUtilities::ReportError(FileError(result, "FormFolderTree.Fill", path));
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        AddFolder(node, i, names[i]);
    SetItemHasChildren(node, !names.empty());
}

wxTreeItemId FormFolderTree::FindOrAdd(const wxTreeItemId& parent, const std::string& name) {
    std::size_t position = 0;
    wxTreeItemIdValue cookie = nullptr;
    wxTreeItemId sameButCase;
    for (wxTreeItemId node = GetFirstChild(parent, cookie); node.IsOk();
         node = GetNextChild(parent, cookie)) {
        const std::string& listed = DataOf(*this, node).Name();
        if (listed == name) return node;
        if (!sameButCase.IsOk() && platform::EqualNoCase(listed, name)) sameButCase = node;
        if (FolderList::Before(listed, name)) ++position;
    }
    if (sameButCase.IsOk()) return sameButCase;
    std::string path = PathOf(parent);
    modUtilities::AddTrailingBackslash(path);
    return modUtilities::DirectoryExists(path + name) ? AddFolder(parent, position, name) : wxTreeItemId();
}

void FormFolderTree::SetPath(const std::string& path) {
    const FolderList::Parts parts = FolderList::Split(path);
    if (!platform::EqualNoCase(m_root, parts.root)) {
        DeleteAllItems();
        m_root = parts.root;
        const wxTreeItemId root = AddRoot(ToWx(PathOf({})), 0, 0, new NodeData(""));
        SetItemHasChildren(root);
    }
    wxTreeItemId node = GetRootItem();
    Fill(node);
    for (const std::string& name : parts.names) {
        const wxTreeItemId child = FindOrAdd(node, name);
        if (!child.IsOk()) break;
        node = child;
        Fill(node);
    }
    SelectItem(node);
    Expand(node);
    EnsureVisible(node);
}

} // namespace nesk
