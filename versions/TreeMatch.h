#pragma once

#include "versions/FlatMenu.h"

#include <vector>

namespace nesk {

/// Which entries of two menus are the same entry. Files store no ids, so entries are matched by their
/// contents and places: first equal subtrees in the same submenu; then entries there with the same caption,
/// program and type; then equal subtrees and entries elsewhere, which were moved; then edited entries in the
/// same place. The root matches the root. The same menus always give the same match.
class TreeMatch {
public:
    /// The menus must outlive the match only during construction.
    TreeMatch(const FlatMenu& before, const FlatMenu& after);

    /// The matching entry of the other menu. FlatMenu::None stands for no match.
    int After(int before) const { return m_after[static_cast<std::size_t>(before)]; }
    int Before(int after) const { return m_before[static_cast<std::size_t>(after)]; }

private:
    std::vector<int> m_after;
    std::vector<int> m_before;
};

} // namespace nesk
