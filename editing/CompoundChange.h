#pragma once

#include "editing/MenuChange.h"

#include <vector>

namespace nesk {

/// A group of changes that the user made in one step. Either all of them are made or none.
class CompoundChange final : public MenuChange {
public:
    /// @param changes  in the order in which to make them
    explicit CompoundChange(std::vector<std::unique_ptr<MenuChange>> changes)
        : m_changes(std::move(changes)) {}

    bool Apply(Menu& menu, const MenuEventHandler& report) override;
    bool Revert(Menu& menu, const MenuEventHandler& report) override;
    std::size_t EventCount() const override;
    std::size_t Bytes() const override;

private:
    std::vector<std::unique_ptr<MenuChange>> m_changes;
};

} // namespace nesk
