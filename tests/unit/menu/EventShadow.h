#pragma once

#include "editing/MenuChange.h"

#include <map>
#include <string>
#include <vector>

namespace nesk {
class MenuEntry;
}

namespace nesk::testing {

/// Follows the events of a menu as a view does: it keeps the ids of the entries and knows nothing else.
class EventShadow {
public:
    /// Starts with the entries of a menu.
    void Reset(const MenuEntry& menu);

    /// Follows an event.
    /// @param menu  the menu as it is directly after the event
    void Follow(const MenuEvent& event, const MenuEntry& menu);

    /// Describes the first difference from a menu; "" when both are equal.
    std::string DifferenceFrom(const MenuEntry& menu) const;

private:
    void Add(const MenuEntry& entry);
    void Erase(const std::string& id);

    std::map<std::string, std::vector<std::string>> m_children; // ids, by the id of the parent
};

} // namespace nesk::testing
