#include "platform/TreeNode.h"

#include <utility>

namespace nesk::platform {

TreeNode::TreeNode(std::string text, int image, std::string key, bool fillLater)
    : m_text(std::move(text)), m_key(std::move(key)), m_image(image), m_filled(!fillLater) {}

// Iterative: recursion could overflow the stack in a deep tree.
TreeNode::~TreeNode() {
    std::vector<std::unique_ptr<TreeNode>> nodes = std::move(m_children);
    while (!nodes.empty()) {
        const std::unique_ptr<TreeNode> node = std::move(nodes.back());
        nodes.pop_back();
        for (std::unique_ptr<TreeNode>& child : node->m_children)
            nodes.push_back(std::move(child));
        node->m_children.clear();
    }
}

bool TreeNode::IsWithin(const TreeNode& node) const {
    const TreeNode* at = this;
    while (at != nullptr && at != &node)
        at = at->m_parent;
    return at != nullptr;
}

bool TreeNode::HasRow() const {
    for (const TreeNode* at = m_parent; at != nullptr; at = at->m_parent)
        if (!at->m_expanded) return false;
    return true;
}

TreeNode* TreeNode::NextRow() const {
    if (m_expanded && !m_children.empty()) return m_children.front().get();
    for (const TreeNode* at = this; at->m_parent != nullptr; at = at->m_parent)
        if (at->m_index + 1 < at->m_parent->m_children.size())
            return at->m_parent->m_children[at->m_index + 1].get();
    return nullptr;
}

TreeNode* TreeNode::PreviousRow() const {
    if (m_parent == nullptr || m_index == 0) return m_parent;
    TreeNode* at = m_parent->m_children[m_index - 1].get();
    while (at->m_expanded && !at->m_children.empty())
        at = at->m_children.back().get();
    return at;
}

TreeNode& TreeNode::Insert(std::size_t index, std::unique_ptr<TreeNode> child) {
    child->m_parent = this;
    m_children.insert(m_children.begin() + static_cast<std::ptrdiff_t>(index), std::move(child));
    Renumber(index);
    return *m_children[index];
}

std::unique_ptr<TreeNode> TreeNode::Take(std::size_t index) {
    std::unique_ptr<TreeNode> child = std::move(m_children[index]);
    m_children.erase(m_children.begin() + static_cast<std::ptrdiff_t>(index));
    child->m_parent = nullptr;
    child->m_index = 0;
    Renumber(index);
    return child;
}

void TreeNode::Renumber(std::size_t from) {
    for (std::size_t i = from; i < m_children.size(); ++i)
        m_children[i]->m_index = i;
}

} // namespace nesk::platform
