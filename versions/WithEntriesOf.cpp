#include "versions/WithEntriesOf.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "versions/ChildCount.h"
#include "versions/EntryFields.h"
#include "versions/MergeNodes.h"
#include "versions/StrongGroups.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <utility>

namespace nesk {

namespace {

constexpr int None = MergeNodes::None;
// The version is the base and one side, so the nodes that are not in it were added since.
constexpr Side Now = Side::Ours;
constexpr Side Then = Side::Theirs;

class Restoration {
public:
    Restoration(const MenuDiff& difference, const std::vector<std::size_t>& chosen)
        : m_now(difference.After())
        , m_then(difference.Before())
        , m_nodes(m_then, m_now, m_then)
        , m_back(Size(), false)
        , m_placedBack(Size(), false)
        , m_isThere(Size(), false)
        , m_parents(Size(), None)
        , m_placed(Size()) {
        Choose(difference, chosen);
        FindCircles();
        for (int node = 0; node < m_nodes.Count(); ++node)
            At(m_isThere, node) = m_nodes.IsInBoth(node) || m_nodes.IsIn(Then, node) == At(m_back, node);
        for (int node = 1; node < m_nodes.Count(); ++node)
            if (At(m_isThere, node)) At(m_parents, node) = ParentOf(node);
        SortIntoParents();
    }

    std::unique_ptr<Menu> Make(const std::string& rootDirectory) const {
        auto menu = std::make_unique<Menu>();
        menu->Initialize(rootDirectory);
        EntryFields::Copy(Source(0), *menu);
        std::vector<std::pair<int, MenuEntry*>> open{{0, menu.get()}};
        while (!open.empty()) {
            const auto [node, entry] = open.back();
            open.pop_back();
            const std::vector<int> children = ChildrenOf(node);
            CheckChildCount(*entry, children.size(), "WithEntriesOf");
            for (const int child : children) {
                auto item = MenuItem::Create(*entry);
                EntryFields::Copy(Source(child), *item);
                open.emplace_back(child, &entry->SubMenus().Append(std::move(item)));
            }
        }
        return menu;
    }

private:
    std::size_t Size() const { return static_cast<std::size_t>(m_nodes.Count()); }

    template <typename Values>
    static auto At(Values& values, int node) -> decltype(values[0]) {
        return values[static_cast<std::size_t>(node)];
    }

    void Choose(const MenuDiff& difference, const std::vector<std::size_t>& chosen) {
        std::unordered_map<const MenuEntry*, int> nodes;
        for (int node = 0; node < m_nodes.Count(); ++node)
            for (const Side side : Sides)
                if (const MenuEntry* entry = m_nodes.Entry(side, node); entry != nullptr) nodes[entry] = node;
        for (const std::size_t index : chosen) {
            const int end = difference.Nodes().at(index).end;
            for (int i = static_cast<int>(index); i < end; ++i) {
                const MenuDiff::Node& each = At(difference.Nodes(), i);
                const int node = nodes.at(&each.Shown());
                At(m_back, node) = true;
                if (each.isMoved) At(m_placedBack, node) = true;
                if (each.IsRemoved()) RestoreAbove(node);
            }
        }
    }

    // The removed submenus in which a restored entry was.
    void RestoreAbove(int node) {
        At(m_placedBack, node) = true;
        for (int above = m_nodes.Parent(Then, node); above != None && !m_nodes.IsIn(Now, above);
             above = m_nodes.Parent(Then, above)) {
            if (At(m_back, above) && At(m_placedBack, above)) return;
            At(m_back, above) = At(m_placedBack, above) = true;
        }
    }

    // Entries that contain each other in different ways go back together.
    void FindCircles() {
        std::vector<std::array<int, 2>> edges;
        edges.reserve(Size());
        for (int node = 0; node < m_nodes.Count(); ++node)
            edges.push_back({m_nodes.Parent(Now, node), m_nodes.Parent(Then, node)});
        m_groups = StrongGroups(edges);
        m_groupSizes.assign(Size(), 0);
        std::vector<bool> goesBack(Size(), false);
        for (int node = 0; node < m_nodes.Count(); ++node) {
            const int group = At(m_groups, node);
            ++At(m_groupSizes, group);
            if (At(m_placedBack, node)) At(goesBack, group) = true;
        }
        for (int node = 0; node < m_nodes.Count(); ++node)
            if (const int group = At(m_groups, node); At(m_groupSizes, group) > 1 && At(goesBack, group))
                At(m_placedBack, node) = true;
    }

    int ParentOf(int node) const {
        Side side = At(m_placedBack, node) ? Then : Now;
        if (!m_nodes.IsIn(side, node)) side = OtherOf(side);
        int parent = m_nodes.Parent(side, node);
        if (At(m_isThere, parent)) return parent;
        const int other = m_nodes.Parent(OtherOf(side), node);
        // Within a circle the other place could make one again.
        if (other != None && At(m_isThere, other) && At(m_groupSizes, At(m_groups, node)) == 1) return other;
        while (!At(m_isThere, parent))
            parent = m_nodes.Parent(side, parent);
        return parent;
    }

    // The entries of each parent that do not have their place there from the present menu.
    void SortIntoParents() {
        for (int node = 1; node < m_nodes.Count(); ++node)
            if (At(m_isThere, node) && !IsPlacedAsNow(node))
                At(m_placed, At(m_parents, node)).push_back(node);
    }

    bool IsPlacedAsNow(int node) const {
        const bool isHere = m_nodes.IsIn(Now, node) && m_nodes.Parent(Now, node) == At(m_parents, node);
        return isHere && (!At(m_placedBack, node) || m_nodes.Parent(Then, node) != At(m_parents, node));
    }

    std::vector<int> ChildrenOf(int parent) const {
        std::vector<int> present = m_nodes.Children(Now, parent);
        std::erase_if(present, [&](int child) {
            return !At(m_isThere, child) || At(m_parents, child) != parent || !IsPlacedAsNow(child);
        });
        if (At(m_placed, parent).empty()) return present;
        // Restored entries follow the entry that they followed in the version.
        std::unordered_map<int, std::vector<int>> followers;
        int after = None;
        for (const int child : m_nodes.Children(Then, parent)) {
            if (!At(m_isThere, child) || At(m_parents, child) != parent) continue;
            if (IsPlacedAsNow(child))
                after = child;
            else
                followers[after].push_back(child);
        }
        std::vector<int> children = followers[None];
        for (const int child : present) {
            children.push_back(child);
            if (const auto found = followers.find(child); found != followers.end())
                children.insert(children.end(), found->second.begin(), found->second.end());
        }
        // Those whose submenu is not there.
        for (const int child : At(m_placed, parent))
            if (m_nodes.Parent(Then, child) != parent) children.push_back(child);
        return children;
    }

    const MenuEntry& Source(int node) const {
        const bool isBack = At(m_back, node) && m_nodes.IsIn(Then, node);
        return *m_nodes.Entry(isBack || !m_nodes.IsIn(Now, node) ? Then : Now, node);
    }

    FlatMenu m_now;
    FlatMenu m_then;
    MergeNodes m_nodes;
    std::vector<bool> m_back;       // fields and presence are those of the version
    std::vector<bool> m_placedBack; // so is the place
    std::vector<bool> m_isThere;
    std::vector<int> m_groups;
    std::vector<int> m_groupSizes;
    std::vector<int> m_parents;
    std::vector<std::vector<int>> m_placed;
};

} // namespace

std::unique_ptr<Menu> WithEntriesOf(const MenuDiff& sinceVersion, const std::vector<std::size_t>& chosen) {
    return Restoration(sinceVersion, chosen).Make(sinceVersion.After().RootDirectory());
}

} // namespace nesk
