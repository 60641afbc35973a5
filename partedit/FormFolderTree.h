#pragma once

#include "platform/UiTreeView.h"

#include <string>

namespace nesk {

/// A tree of the folders of one drive or of one network share. The contents of a folder are read when it is
/// opened, so that neither large drives nor circular links cause a delay. The current folder is the selected
/// one. The key of a node is the folder's name, because a label may be truncated at control characters.
class FormFolderTree {
public:
    /// @param name  control name, for example "Dir1"
    FormFolderTree(wxWindow* parent, const char* name);
    ~FormFolderTree();
    FormFolderTree(const FormFolderTree&) = delete;
    FormFolderTree& operator=(const FormFolderTree&) = delete;

    /// The control. The parent window owns it.
    platform::TreeView& View() { return m_view; }
    wxWindow& Window() { return m_view.Window(); }

    /// Windows path of the current folder. Only the root of a drive has a trailing "\".
    std::string Path() const;

    /// Selects a folder, also on another drive, and opens it. When a level of the path does not exist,
    /// selects the level above it. Finds a folder that was created after the tree was read.
    void SetPath(const std::string& path);

    /// The root of the tree: a drive in upper case, for example "C:\", or a share, for example
    /// "\\server\share\"; "" before SetPath.
    const std::string& Root() const { return m_root; }

private:
    std::string PathOf(const platform::TreeNode* node) const;
    platform::TreeNode* FindOrAdd(platform::TreeNode& parent, const std::string& name);
    void Fill(platform::TreeNode& node);

    std::string m_root;
    platform::TreeView& m_view;
};

} // namespace nesk
