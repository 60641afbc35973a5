#include "versions/MergeNodes.h"

#include <cstdint>
#include <unordered_map>

namespace nesk {

MergeNodes::MergeNodes(const FlatMenu& base, const FlatMenu& ours, const FlatMenu& theirs)
    : m_base(base), m_menus{&ours, &theirs} {
    for (const Side side : Sides) {
        m_at[Index(side)].assign(static_cast<std::size_t>(base.Count()), None);
        m_nodes[Index(side)].assign(static_cast<std::size_t>(Menu(side).Count()), None);
        TakeMatched(side, TreeMatch(base, Menu(side)));
    }
    TakeAdded();
}

int MergeNodes::Add() {
    for (std::vector<int>& at : m_at)
        at.push_back(None);
    return Count() - 1;
}

void MergeNodes::Place(Side side, int at, int node) {
    m_at[Index(side)][static_cast<std::size_t>(node)] = at;
    m_nodes[Index(side)][static_cast<std::size_t>(at)] = node;
}

void MergeNodes::TakeMatched(Side side, const TreeMatch& match) {
    for (int node = 0; node < BaseCount(); ++node)
        if (const int at = match.After(node); at != None) Place(side, at, node);
}

// The children of a node in a side that have no node yet.
std::vector<int> MergeNodes::NewChildren(Side side, int node) const {
    std::vector<int> children;
    const int at = At(side, node);
    if (at == None) return children;
    const FlatMenu& menu = Menu(side);
    for (int child = menu.FirstChild(at); child != None; child = menu.NextSibling(child))
        if (NodeOf(side, child) == None) children.push_back(child);
    return children;
}

// Gives the added entries their nodes, those of a submenu before those below them.
void MergeNodes::TakeAdded() {
    for (const Side side : Sides) {
        for (int at = 0; at < Menu(side).Count(); ++at) {
            // Parents come first, so the entry has its node already.
            const int node = NodeOf(side, at);
            const std::vector<int> added = NewChildren(side, node);
            if (added.empty()) continue;
            const std::vector<int> others = NewChildren(OtherOf(side), node);
            if (side == Side::Ours)
                TakeAddedBelow(added, others);
            else
                TakeAddedBelow(others, added);
        }
    }
}

// Entries that both sides added are paired: equal subtrees first, then submenus that differ below.
void MergeNodes::TakeAddedBelow(const std::vector<int>& ours, const std::vector<int>& theirs) {
    const FlatMenu& ourMenu = Menu(Side::Ours);
    const FlatMenu& theirMenu = Menu(Side::Theirs);
    for (const auto hash : {&FlatMenu::Subtree, &FlatMenu::Content}) {
        // In the reverse order, so that the first is at the end.
        std::unordered_map<std::uint64_t, std::vector<int>> free;
        for (auto at = theirs.rbegin(); at != theirs.rend(); ++at)
            if (NodeOf(Side::Theirs, *at) == None) free[(theirMenu.*hash)(*at)].push_back(*at);
        for (const int at : ours) {
            if (NodeOf(Side::Ours, at) != None) continue;
            const auto found = free.find((ourMenu.*hash)(at));
            if (found == free.end() || found->second.empty()) continue;
            const int node = Add();
            Place(Side::Ours, at, node);
            Place(Side::Theirs, found->second.back(), node);
            found->second.pop_back();
        }
    }
    for (const int at : ours)
        if (NodeOf(Side::Ours, at) == None) Place(Side::Ours, at, Add());
    for (const int at : theirs)
        if (NodeOf(Side::Theirs, at) == None) Place(Side::Theirs, at, Add());
}

int MergeNodes::Parent(Side side, int node) const {
    const int at = At(side, node);
    const int parent = at != None ? Menu(side).Parent(at) : None;
    return parent != None ? NodeOf(side, parent) : None;
}

std::vector<int> MergeNodes::Children(Side side, int node) const {
    std::vector<int> children;
    const int at = At(side, node);
    if (at == None) return children;
    const FlatMenu& menu = Menu(side);
    for (int child = menu.FirstChild(at); child != None; child = menu.NextSibling(child))
        children.push_back(NodeOf(side, child));
    return children;
}

const MenuEntry* MergeNodes::Entry(Side side, int node) const {
    const int at = At(side, node);
    return at != None ? &Menu(side).Entry(at) : nullptr;
}

} // namespace nesk
