#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace nesk {

class MenuCheck;

/// Orders in which problems can be listed. The texts are in the order of the user's language.
enum class FindingOrder : std::uint8_t {
    Severity, ///< the worst first
    Entry,    ///< by the caption of the entry
    Place,    ///< by the submenu
    Field,
    Text,
    Menu ///< in the order of the tree
};

/// The problems in an order. Problems that are equal in it are in the order of the tree.
/// @param reversed  the last problem of the order first
/// @return their indexes in the check
std::vector<std::size_t> OrderFindings(const MenuCheck& check, FindingOrder order, bool reversed = false);

} // namespace nesk
