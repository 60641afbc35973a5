#pragma once

#include "menu/MenuKeys.h"
#include "versions/MergeNodes.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace nesk {

class Menu;
class MenuEntry;

/// A question that merging cannot answer by itself: one of two sides has to be chosen.
struct MergeConflict {
    enum class Kind {
        Removal, ///< one side removed an entry with all below it, and the other side changed something there
        Place,   ///< both sides moved an entry, to different submenus
        Nesting, ///< the moves of both sides would put entries into each other; the entry is the first of
                 ///< them
        Field,   ///< both sides gave a field different values
        Order    ///< both sides gave the entries of this submenu different orders
    };

    Kind kind = Kind::Field;
    MenuKey field = MenuKey::Caption; ///< of a Field
    const MenuEntry* base = nullptr;  ///< the entry in each menu; null where it does not exist
    const MenuEntry* ours = nullptr;
    const MenuEntry* theirs = nullptr;
    Side chosen = Side::Ours;
};

/// Merges two menus that were edited from a common base. What only one side changed is taken from that side:
/// fields, added and removed entries, moves, the order of siblings. The same edit on both sides is no
/// conflict. No entry is lost that neither side removed. Exchanging the sides, and the choices with them,
/// gives the same menu.
///
/// The menus must outlive the merge and must not change.
class MenuMerge {
public:
    MenuMerge(const Menu& base, const Menu& ours, const Menu& theirs);
    ~MenuMerge();
    MenuMerge(const MenuMerge&) = delete;
    MenuMerge& operator=(const MenuMerge&) = delete;

    /// The conflicts, in the order of the base. Their number does not depend on choices.
    const std::vector<MergeConflict>& Conflicts() const;

    /// Decides a conflict. Until then our side is chosen.
    /// @param index  less than the number of conflicts
    void Choose(std::size_t index, Side side);

    /// The merged menu, in the folder of ours. Raises Overflow when a submenu would have too many entries.
    std::unique_ptr<Menu> Result() const;

private:
    class Work;
    std::unique_ptr<Work> m_work;
};

} // namespace nesk
