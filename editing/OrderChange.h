#pragma once

#include "editing/MenuChange.h"

#include <cstdint>
#include <vector>

namespace nesk {

/// Gives the children of an entry another order.
class OrderChange final : public SingleChange {
public:
    /// @param counters  the counters of all children in their new order
    OrderChange(std::string parentId, std::vector<std::int32_t> counters);
    std::size_t Bytes() const override;

protected:
    /// Not possible when the counters are not those of the children.
    MenuEvent Do(Menu& menu) override;
    MenuEvent Undo(Menu& menu) override;

private:
    MenuEvent Exchange(Menu& menu);

    std::string m_parentId;
    std::vector<std::int32_t> m_other; // the new order before the change is made, the old one afterwards
};

} // namespace nesk
