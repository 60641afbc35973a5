#pragma once

#include "base/NeskError.h"
#include "checking/TextFields.h"
#include "editing/UndoStack.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

class Menu;
class MenuEditor;
class MenuEntry;

/// A new text for one field of one entry. It refers to the entry of the open menu, so it is valid until the
/// menu is changed or saved.
struct TextChange {
    const MenuEntry* entry = nullptr;
    TextField field = TextField::Caption;
    std::string before;   ///< as FieldText gives it
    std::string after;    ///< likewise
    bool isChosen = true; ///< false for a change that the user does not want
};

/// What to replace.
struct ReplaceOptions {
    std::string find; ///< "" finds nothing
    std::string replacement;
    TextFieldSet fields;
    bool matchCase = false; ///< false: upper and lower case are the same; accents matter
};

/// Replaces texts of a menu: plans the changes, which the user can look at, and makes them.
namespace Replacement {

/// The text with each occurrence of options.find replaced.
std::string Replaced(std::string_view text, const ReplaceOptions& options);

/// The changes that replacing would make, in the order of the tree.
std::vector<TextChange> Plan(const Menu& menu, const ReplaceOptions& options);

/// A change that could not be made.
struct Refusal {
    std::size_t index = 0; ///< of the change
    NeskError error;
};

/// Makes the chosen changes as one step with this name. When one of them is refused, makes none.
/// @param changes  of the open menu of the editor, those of one entry one after the other
/// @return the change that was refused: its text cannot be stored
std::optional<Refusal> Apply(MenuEditor& editor, const std::vector<TextChange>& changes, ChangeName name);

} // namespace Replacement

} // namespace nesk
