#include "partedit/FormFolderTree.h"

#include "base/FileErrors.h"
#include "partedit/FolderList.h"
#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"
#include "widgets/UiIcons.h"

#include <memory>
#include <vector>

#include <wx/window.h>

namespace nesk {

using platform::TreeNode;
using platform::TreeView;

namespace {

constexpr int FolderImage = 0;

TreeView& MakeView(wxWindow* parent, const char* name) {
    platform::TreeStyle style;
    style.size = parent->FromDIP(wxSize(320, 240));
    return *TreeView::Create(parent, name, style);
}

// Every node can be opened. Whether a folder has subfolders is found out only then, because checking all
// folders now would be slow.
std::unique_ptr<TreeNode> NodeFor(const std::string& text, const std::string& name) {
    return std::make_unique<TreeNode>(text, FolderImage, name, true);
}

} // namespace

FormFolderTree::FormFolderTree(wxWindow* parent, const char* name) : m_view(MakeView(parent, name)) {
    m_view.SetImages({IconBundle("folder", m_view.ImageSize())});
    m_view.on.fill = [this](TreeNode& node) { Fill(node); };
}

// The control may send its last events while the window is being destroyed. No handler may run then.
FormFolderTree::~FormFolderTree() {
    m_view.on = {};
}

std::string FormFolderTree::PathOf(const TreeNode* node) const {
    std::vector<const TreeNode*> nodes;
    for (const TreeNode* at = node; at != nullptr && at->Parent() != nullptr; at = at->Parent())
        nodes.push_back(at);
    std::string path = m_root;
    for (auto at = nodes.rbegin(); at != nodes.rend(); ++at)
        path.append(path.ends_with('\\') ? "" : "\\").append((*at)->Key());
    return path;
}

std::string FormFolderTree::Path() const {
    return m_root.empty() ? "" : PathOf(m_view.Selected());
}

void FormFolderTree::Fill(TreeNode& node) {
    const std::string path = PathOf(&node);
    std::vector<std::string> names;
    if (const platform::ErrorCode result = FolderList::Read(path, names);
        result != platform::ErrorCode::Success) {
        // The folder may be readable when it is opened again.
        m_view.Unfill(node);
        return modUtilities::ReportError(FileError(result, "FormFolderTree.Fill", path));
    }
    for (const std::string& name : names)
        m_view.Append(node, NodeFor(name, name));
}

TreeNode* FormFolderTree::FindOrAdd(TreeNode& parent, const std::string& name) {
    std::size_t position = 0;
    TreeNode* sameButCase = nullptr;
    for (std::size_t i = 0; i < parent.ChildCount(); ++i) {
        TreeNode& node = parent.Child(i);
        if (node.Key() == name) return &node;
        if (sameButCase == nullptr && platform::EqualNoCase(node.Key(), name)) sameButCase = &node;
        if (FolderList::Before(node.Key(), name)) ++position;
    }
    if (sameButCase != nullptr) return sameButCase;
    std::string path = PathOf(&parent);
    modUtilities::AddTrailingBackslash(path);
    if (!modUtilities::DirectoryExists(path + name)) return nullptr;
    return &m_view.Insert(parent, position, NodeFor(name, name));
}

void FormFolderTree::SetPath(const std::string& path) {
    const FolderList::Parts parts = FolderList::Split(path);
    if (!platform::EqualNoCase(m_root, parts.root)) {
        m_root = parts.root;
        m_view.SetRoot(NodeFor(PathOf(nullptr), ""));
    }
    TreeNode* node = m_view.Root();
    m_view.Fill(*node);
    for (const std::string& name : parts.names) {
        TreeNode* const child = FindOrAdd(*node, name);
        if (child == nullptr) break;
        node = child;
        m_view.Fill(*node);
    }
    m_view.Select(node);
    if (node->ChildCount() > 0) m_view.Expand(*node);
    m_view.EnsureVisible(*node);
}

} // namespace nesk
