#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace nesk::platform {

/// One entry of a tree view: what it shows, where it is, and whether it is expanded. It knows no window, so
/// that all views and the search share it. A view owns its root; a node owns its children. Only views change
/// nodes.
class TreeNode {
public:
    /// @param text      what is shown, in UTF-8
    /// @param image     0-based index of its picture in those of the view
    /// @param key       what the owner of the view knows the node by
    /// @param fillLater the node has children, which are asked for when they are needed
    TreeNode(std::string text, int image, std::string key, bool fillLater = false);
    ~TreeNode();
    TreeNode(const TreeNode&) = delete;
    TreeNode& operator=(const TreeNode&) = delete;

    const std::string& Text() const { return m_text; }

    /// What is shown after the text, less prominent; "" for nothing. The search by typing does not look at
    /// it.
    const std::string& Detail() const { return m_detail; }
    void SetDetail(std::string detail) { m_detail = std::move(detail); }

    int Image() const { return m_image; }
    const std::string& Key() const { return m_key; }
    void SetKey(std::string key) { m_key = std::move(key); }

    /// Null for the root.
    TreeNode* Parent() const { return m_parent; }

    /// 0-based position among its siblings; takes constant time.
    std::size_t Index() const { return m_index; }

    /// The children that are there; none before they were asked for.
    std::size_t ChildCount() const { return m_children.size(); }
    TreeNode& Child(std::size_t index) const { return *m_children[index]; }

    /// False while the children have yet to be asked for.
    bool IsFilled() const { return m_filled; }

    /// True when there are children, or may be some.
    bool MayHaveChildren() const { return !m_filled || !m_children.empty(); }

    bool IsExpanded() const { return m_expanded; }

    /// True for the node itself and all below it.
    bool IsWithin(const TreeNode& node) const;

    /// True when all nodes above are expanded, so that it has a row.
    bool HasRow() const;

    /// The row below and above, by what is expanded; null at the end and at the beginning.
    TreeNode* NextRow() const;
    TreeNode* PreviousRow() const;

    // For views.
    void SetText(std::string text) { m_text = std::move(text); }
    void SetExpanded(bool expanded) { m_expanded = expanded; }
    void SetFilled(bool filled) { m_filled = filled; }

    /// Takes a node as child. `index` is at most ChildCount().
    TreeNode& Insert(std::size_t index, std::unique_ptr<TreeNode> child);

    /// Gives a child away.
    std::unique_ptr<TreeNode> Take(std::size_t index);

    /// What the native control knows the node by.
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
