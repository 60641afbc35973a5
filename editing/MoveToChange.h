#pragma once

#include "base/NeskError.h"
#include "editing/MenuChange.h"

#include <cstdint>
#include <optional>

namespace nesk {

/// Moves an entry with everything below it to any place of the tree. Under another parent it gets that
/// parent's next counter, so that its id and those below it change; taking the move back restores the former
/// ones exactly. Counters are never used twice: making the move again gives the counter of the first time.
class MoveToChange final : public SingleChange {
public:
    /// @param position  1-based, among the children of the new parent without the entry itself; 0 or what is
    ///                  too large for the end
    MoveToChange(std::string id, std::string parentId, int position);

    /// Why an entry cannot be moved below `parentId`: it is the root, the target is a part button, the entry
    /// itself or below it, or has no room. Nothing when it can, and for ids that do not exist.
    static std::optional<NeskError> WhyNot(const Menu& menu, const std::string& id,
                                           const std::string& parentId);

    std::size_t Bytes() const override { return sizeof *this; }

protected:
    /// Raises what WhyNot answers, and Overflow when the new parent has no counter left.
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    std::string m_id;       // before the move
    std::string m_newId;    // after it; "" until it was made
    std::string m_parentId; // of the new parent, before the move
    int m_position;
    std::int32_t m_newCounter = 0;
    std::int32_t m_oldCounter = 0;
    int m_oldPosition = 0;
};

} // namespace nesk
