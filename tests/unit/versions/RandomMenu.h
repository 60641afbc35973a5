#pragma once

#include "menu/Menu.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace nesk::testing {

/// Makes small menus at random and edits them, with few different texts, so that entries often are alike.
class RandomMenu {
public:
    explicit RandomMenu(unsigned seed) : m_random(seed) {}

    /// A new menu.
    /// @param entries  number of entries below the root
    std::unique_ptr<Menu> Make(int entries);

    /// Edits a menu: fields, additions, removals, moves and orders.
    void Edit(Menu& menu, int edits);

    /// Edits a menu by moves and additions only.
    void MoveAndAdd(Menu& menu, int edits);

    /// A number from 0 to `count` - 1.
    int Below(int count) { return static_cast<int>(m_random() % static_cast<unsigned>(count)); }

private:
    void EditOnce(Menu& menu);
    void Add(Menu& menu);
    void Fill(MenuItem& item);
    void EditField(MenuEntry& entry);
    void Move(Menu& menu, MenuItem& item);
    std::string Text(const char* stem, int variety);
    MenuEntry& AnyParent(Menu& menu);

    std::mt19937 m_random;
};

/// All entries of a menu, one a line, indented by their depth, with all fields.
std::string ContentText(const Menu& menu);

/// A copy of a menu without unused memory.
inline std::unique_ptr<Menu> CopyOf(const Menu& menu) {
    return menu.Compacted();
}

/// A menu from a short text: each line is an entry, indented by one space a level; the part before ":" is the
/// caption, the rest the program. An entry with a program is a part, one without is a submenu.
std::unique_ptr<Menu> MenuFrom(const std::string& text);

/// The captions of a menu in the form of MenuFrom.
std::string Outline(const Menu& menu);

/// The first entry with a caption. The test fails without such an entry.
MenuItem& EntryNamed(Menu& menu, const std::string& caption);

} // namespace nesk::testing
