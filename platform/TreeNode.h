#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace nesk::platform {

/// One entry of a tree view: what it shows, its position, and whether it is expanded. It does not depend on
/// any window, so all views and the type-ahead search share it. A view owns its root; a node owns its
/// children. Only views change nodes.
class TreeNode {
public:
    /// @param text      the shown text, in UTF-8
    /// @param image     0-based index into the pictures of the view
    /// @param key       identifies the node for the owner of the view
    /// @param fillLater the node has children, which are requested when they are needed
    TreeNode(std::string text, int image, std::string key, bool fillLater = false);
    ~TreeNode();
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    const std::string& Text() const { return m_text; }

    /// Shown after the text, less prominently; "" for nothing. The type-ahead search ignores it.
    const std::string& Detail() const { return m_detail; }
    void SetDetail(std::string detail) { m_detail = std::move(detail); }

    int Image() const { return m_image; }
    const std::string& Key() const { return m_key; }
    void SetKey(std::string key) { m_key = std::move(key); }

    /// Null for the root.
    TreeNode* Parent() const { return m_parent; }

    /// 0-based position among its siblings; takes constant time.
    std::size_t Index() const { return m_index; }

    /// Number of children added so far; 0 before they were requested.
    std::size_t ChildCount() const { return m_children.size(); }
    TreeNode& Child(std::size_t index) const { return *m_children[index]; }

    /// False until the children have been requested.
    bool IsFilled() const { return m_filled; }

    /// True when the node has children or has not been filled yet.
    bool MayHaveChildren() const { return !m_filled || !m_children.empty(); }

    bool IsExpanded() const { return m_expanded; }

    /// True when `node` is this node or one of its ancestors.
    bool IsWithin(const TreeNode& node) const;

    /// True when all ancestors are expanded, so that the node has a row.
    bool HasRow() const;

    /// The row below or above, depending on which nodes are expanded; null at the end or the beginning.
    TreeNode* NextRow() const;
    TreeNode* PreviousRow() const;

    // For use by views only.
    void SetText(std::string text) { m_text = std::move(text); }
    void SetImage(int image) { m_image = image; }
    void SetExpanded(bool expanded) { m_expanded = expanded; }
    void SetFilled(bool filled) { m_filled = filled; }

    /// Inserts a child and takes ownership. `index` is at most ChildCount().
    TreeNode& Insert(std::size_t index, std::unique_ptr<TreeNode> child);

    /// Removes a child and passes ownership to the caller.
    std::unique_ptr<TreeNode> Take(std::size_t index);

    /// Identifies the node for the native control.
    void* native = nullptr;

private:
    void Renumber(std::size_t from);

    std::string m_text;
    std::string m_detail;
    std::string m_key;
    std::vector<std::unique_ptr<TreeNode>> m_children;
    TreeNode* m_parent = nullptr;
    std::size_t m_index = 0;
    int m_image;
    bool m_filled;
    bool m_expanded = false;
};

} // namespace nesk::platform
