#pragma once

#include "editing/UndoStack.h"

#include <string>

namespace nesk {

/// The name of a change as shown to the user, for example: rename of "Housing". Long captions are shortened.
std::string ChangeText(const ChangeName& name);

} // namespace nesk
