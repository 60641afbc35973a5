#pragma once

#include "base/NeskError.h"
#include "editing/MenuChange.h"

#include <cstdint>
#include <optional>

namespace nesk {

/// Moves an entry and everything below it to any place in the tree. Under a new parent the entry gets that
/// parent's next counter, so its id and the ids below it change. Undoing the move restores the former ids.
/// Counters are never reused: redoing the move uses the counter of the first time.
class MoveToChange final : public SingleChange {
public:
    /// Below what an entry may be moved.
    enum class Parents {
        Submenus, ///< users cannot put entries below a part button
        Any       ///< a file may contain such entries
    };

    /// @param position  1-based, among the children of the new parent without the entry itself; 0 or a value
    ///                  that is too large means the end
    MoveToChange(std::string id, std::string parentId, int position, Parents parents = Parents::Submenus);

    /// Returns why an entry cannot be moved below `parentId`: the entry is the root; or the target is a part
    /// button, the entry itself or an entry below it, or has the maximum number of children. Returns nothing
    /// when the move is possible, and for ids that do not exist.
    static std::optional<NeskError> WhyNot(const Menu& menu, const std::string& id,
                                           const std::string& parentId, Parents parents = Parents::Submenus);

    std::size_t Bytes() const override {
        return sizeof *this + m_id.size() + m_newId.size() + m_parentId.size();
    }

protected:
    /// Raises the error of WhyNot, and Overflow when the new parent has no counter left.
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    std::string m_id;       // id before the move
    std::string m_newId;    // id after the move; "" until it was made
    std::string m_parentId; // id of the new parent, before the move
    int m_position;
    Parents m_parents;
    std::int32_t m_newCounter = 0;
    std::int32_t m_oldCounter = 0;
    int m_oldPosition = 0;
};

} // namespace nesk
