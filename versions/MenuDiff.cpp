#include "versions/MenuDiff.h"

#include "menu/Menu.h"
#include "versions/EntryFields.h"
#include "versions/FlatMenu.h"
#include "versions/Moves.h"
#include "versions/TreeMatch.h"

#include <algorithm>
#include <utility>

namespace nesk {

namespace {

constexpr int None = FlatMenu::None;

// An entry of both menus together: its index in each, None where it does not exist.
struct Both {
    int before;
    int after;
};

// Makes the nodes of a difference.
class NodeMaker {
public:
    NodeMaker(const FlatMenu& before, const FlatMenu& after, const TreeMatch& match)
        : m_one(before)
        , m_other(after)
        , m_match(match)
        , m_moved(MovesBetween(before, after, match))
        , m_leadsAfter(static_cast<std::size_t>(after.Count()), false) {
        FindAffected();
    }

    std::vector<MenuDiff::Node> Make() {
        std::vector<MenuDiff::Node> nodes;
        if (!m_leadsAfter[0]) return nodes;
        // An entry that waits for its turn, and the node above it.
        struct Waiting {
            Both both;
            int parent;
        };
        std::vector<Waiting> waiting{{{0, 0}, MenuDiff::None}};
        while (!waiting.empty()) {
            const auto [both, parent] = waiting.back();
            waiting.pop_back();
            const int node = static_cast<int>(nodes.size());
            nodes.push_back(NodeOf(both, parent));
            const std::vector<Both> children = ChildrenOf(both);
            for (auto child = children.rbegin(); child != children.rend(); ++child)
                waiting.push_back({*child, node});
        }
        for (auto node = nodes.rbegin(); node != nodes.rend(); ++node) {
            const int at = static_cast<int>(nodes.rend() - node) - 1;
            node->end = std::max(node->end, at + 1);
            if (node->parent == MenuDiff::None) continue;
            int& end = nodes[static_cast<std::size_t>(node->parent)].end;
            end = std::max(end, node->end);
        }
        return nodes;
    }

private:
    bool IsChanged(int after) const { return m_one.Content(m_match.Before(after)) != m_other.Content(after); }

    // Marks the affected entries and all that lead to them.
    void FindAffected() {
        for (int at = m_one.Count() - 1; at >= 0; --at) {
            if (m_match.After(at) != None) continue;
            const int parent = m_one.Parent(at);
            if (const int shown = m_match.After(parent); shown != None)
                m_leadsAfter[static_cast<std::size_t>(shown)] = true;
        }
        for (int at = m_other.Count() - 1; at >= 0; --at) {
            const auto index = static_cast<std::size_t>(at);
            if (m_match.Before(at) == None || m_moved[index] || IsChanged(at)) m_leadsAfter[index] = true;
            if (m_leadsAfter[index] && at > 0)
                m_leadsAfter[static_cast<std::size_t>(m_other.Parent(at))] = true;
        }
    }

    MenuDiff::Node NodeOf(Both both, int parent) const {
        MenuDiff::Node node;
        node.parent = parent;
        if (both.before != None) node.before = &m_one.Entry(both.before);
        if (both.after == None) return node;
        node.after = &m_other.Entry(both.after);
        if (both.before == None) return node;
        node.isMoved = m_moved[static_cast<std::size_t>(both.after)];
        node.isInOther =
            both.after > 0 && m_match.After(m_one.Parent(both.before)) != m_other.Parent(both.after);
        for (const MenuKey field : EntryFields::All)
            if (!EntryFields::IsSame(*node.before, *node.after, field))
                node.fields.push_back({field, EntryFields::ValueOf(*node.before, field),
                                       EntryFields::ValueOf(*node.after, field)});
        return node;
    }

    // The removed children of a former entry that stand before its child `until`, from `at` on.
    void AddRemoved(int& at, int until, std::vector<Both>& children) const {
        for (; at != None && at != until; at = m_one.NextSibling(at))
            if (m_match.After(at) == None) children.push_back({at, None});
    }

    // The children to show, in their order.
    std::vector<Both> ChildrenOf(Both both) const {
        std::vector<Both> children;
        int former = both.before != None ? m_one.FirstChild(both.before) : None;
        if (both.after != None) {
            for (int at = m_other.FirstChild(both.after); at != None; at = m_other.NextSibling(at)) {
                const int one = m_match.Before(at);
                // A child that stayed in its place stands after what was removed before it.
                const bool stayed = one != None && !m_moved[static_cast<std::size_t>(at)];
                if (stayed) {
                    AddRemoved(former, one, children);
                    if (former != None) former = m_one.NextSibling(former);
                }
                if (m_leadsAfter[static_cast<std::size_t>(at)]) children.push_back({one, at});
            }
        }
        AddRemoved(former, None, children);
        return children;
    }

    const FlatMenu& m_one;
    const FlatMenu& m_other;
    const TreeMatch& m_match;
    std::vector<bool> m_moved;
    std::vector<bool> m_leadsAfter;
};

} // namespace

MenuDiff::MenuDiff(const Menu& before, const Menu& after) : m_before(before), m_after(after) {
    const FlatMenu one(before);
    const FlatMenu other(after);
    if (one.Subtree(0) == other.Subtree(0)) return;
    Build(one, other, TreeMatch(one, other));
}

void MenuDiff::Build(const FlatMenu& before, const FlatMenu& after, const TreeMatch& match) {
    m_nodes = NodeMaker(before, after, match).Make();
    for (const Node& node : m_nodes) {
        if (node.IsAdded()) ++m_added;
        if (node.IsRemoved()) ++m_removed;
        if (node.isMoved) ++m_moved;
        if (node.IsChanged()) ++m_changed;
    }
}

} // namespace nesk
