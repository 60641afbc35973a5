#pragma once

#include <cstdint>
#include <vector>

namespace nesk {

class Menu;
class MenuEntry;

/// A menu as arrays in the order of the tree, parents before their children. An entry is its index; the root
/// is 0. It refers to the menu, which must outlive it and must not change.
class FlatMenu {
public:
    /// No entry.
    static constexpr int None = -1;

    explicit FlatMenu(const Menu& menu);

    /// Number of entries, the root included.
    int Count() const { return static_cast<int>(m_entries.size()); }

    const MenuEntry& Entry(int at) const { return *m_entries[Index(at)]; }

    /// The entry above; None for the root.
    int Parent(int at) const { return m_parents[Index(at)]; }

    /// One past the last entry below an entry. The entries from `at` to here are its subtree.
    int End(int at) const { return m_ends[Index(at)]; }

    /// The first child. None stands for no child.
    int FirstChild(int at) const { return End(at) > at + 1 ? at + 1 : None; }

    /// The next sibling; None for the last one.
    int NextSibling(int at) const {
        const int next = End(at);
        return at > 0 && next < End(Parent(at)) ? next : None;
    }

    /// The children in their order.
    std::vector<int> Children(int at) const;

    /// A hash of the fields of an entry, and one of the fields of its whole subtree with its shape.
    std::uint64_t Content(int at) const { return m_contents[Index(at)]; }
    std::uint64_t Subtree(int at) const { return m_subtrees[Index(at)]; }

private:
    static std::size_t Index(int at) { return static_cast<std::size_t>(at); }
    void List(const Menu& menu);

    std::vector<const MenuEntry*> m_entries;
    std::vector<int> m_parents;
    std::vector<int> m_ends;
    std::vector<std::uint64_t> m_contents;
    std::vector<std::uint64_t> m_subtrees;
};

} // namespace nesk
