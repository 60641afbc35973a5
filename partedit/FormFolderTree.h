#pragma once

#include "platform/UiTreeView.h"

#include <string>

namespace nesk {

/// A list of the folders of one drive, or of one share of the network, as a tree. A folder's content is read
/// when it is opened, so that neither size nor links that lead back make it wait. The selected folder is the
/// one it stands at. The key of a node is the folder's own name: a label may be cut at control characters.
class FormFolderTree {
public:
    /// @param name  control name, as "Dir1"
    FormFolderTree(wxWindow* parent, const char* name);
    ~FormFolderTree();
    FormFolderTree(const FormFolderTree&) = delete;
    FormFolderTree& operator=(const FormFolderTree&) = delete;

    /// The control, which the parent window owns.
    platform::TreeView& View() { return m_view; }
    wxWindow& Window() { return m_view.Window(); }

    /// Windows path of the folder it stands at, without a trailing "\" unless that is a drive's root.
    std::string Path() const;

    /// Goes to a folder, on another drive as well, and opens it. Where a level of the path does not exist, it
    /// goes to the level above. A folder that was made in the meantime is found.
    void SetPath(const std::string& path);

    /// What is shown: a drive as "C:\", in capitals, or a share as "\\server\share\"; "" before SetPath.
    const std::string& Root() const { return m_root; }

private:
    std::string PathOf(const platform::TreeNode* node) const;
    platform::TreeNode* FindOrAdd(platform::TreeNode& parent, const std::string& name);
    void Fill(platform::TreeNode& node);

    std::string m_root;
    platform::TreeView& m_view;
};

} // namespace nesk
