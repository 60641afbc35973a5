#pragma once

#include <vector>

namespace nesk {

class FlatMenu;
class TreeMatch;

/// The entries that moved between two menus, indexed as in the new one: those with another parent, and of
/// those with another place among their siblings the fewest that explain the new order.
std::vector<bool> MovesBetween(const FlatMenu& before, const FlatMenu& after, const TreeMatch& match);

} // namespace nesk
