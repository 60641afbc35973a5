#pragma once

#include "editing/MenuChange.h"

#include <map>
#include <string>
#include <vector>

namespace nesk {
class MenuEntry;
}

namespace nesk::testing {

/// Follows the events of a menu as a view does: it keeps the ids and texts of the entries, reads an entry
/// only when an event names it, and knows nothing else.
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
    // What a view shows of an entry.
    struct Row {
        std::vector<std::string> children; // ids
        std::string texts;                 // caption and fields, one a line
        bool operator==(const Row&) const = default;
    };

    void Add(const MenuEntry& entry);
    std::vector<std::string>& ChildrenOf(const std::string& id) { return m_rows[id].children; }

    std::map<std::string, Row> m_rows; // by id
};

} // namespace nesk::testing
