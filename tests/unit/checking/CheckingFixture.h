#pragma once

#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "unit/CoreFixture.h"

namespace nesk::testing {

/// An editor with a new menu.
class CheckingTest : public CoreTest {
protected:
    CheckingTest() {
        station.Write("C:\\Neskroot\\readme.txt", "");
        editor.Open("C:\\Neskroot", "C:\\Neskroot\\menu.cfg");
    }

    /// Adds a part button and returns its id.
    std::string Part(const std::string& parent, const std::string& caption, const PartFields& fields = {}) {
        const std::string id = editor.AddPart(parent, caption);
        editor.SetPart(id, fields);
        return id;
    }

    const MenuItem& Item(const std::string& id) { return dynamic_cast<const MenuItem&>(*editor.Find(id)); }

    MenuEditor editor;
};

} // namespace nesk::testing
