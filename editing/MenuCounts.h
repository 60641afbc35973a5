#pragma once

#include "editing/MenuEditor.h"

#include <cstdint>

namespace nesk {

/// Numbers of entries.
struct EntryNumbers {
    std::int64_t submenus = 0;
    std::int64_t parts = 0;

    bool operator==(const EntryNumbers&) const = default;
};

/// The numbers of submenus and parts in the open menu, without the root. They follow the editor's events: an
/// added entry is counted alone, and only after a removal the whole menu is counted again, when the numbers
/// are next asked for (2 ms for 100,000 entries).
class MenuCounts : private MenuEditorListener {
public:
    /// Listens to the editor, which must outlive the object.
    explicit MenuCounts(MenuEditor& editor);
    ~MenuCounts() override;
    MenuCounts(const MenuCounts&) = delete;
    MenuCounts& operator=(const MenuCounts&) = delete;

    /// The numbers now; 0 while no menu is open.
    const EntryNumbers& Numbers();

private:
    void OnMenuReplaced() override { m_isKnown = false; }
    void OnMenuEvent(const MenuEvent& event) override;
    void OnStateChanged() override {}

    MenuEditor& m_editor;
    EntryNumbers m_numbers;
    bool m_isKnown = false;
};

} // namespace nesk
