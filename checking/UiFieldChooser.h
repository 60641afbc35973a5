#pragma once

#include "checking/TextFields.h"

#include <string>

class wxWindow;

namespace nesk {

/// Lets the user choose a file or a folder for a field of an entry, with the dialog that the field has in the
/// dialogs for entries.
/// @param now  the path in the field; "" for none. A program that refers to a part is the path of its
///             partinfo.ini
/// @return the chosen path in the same form; "" when the user cancelled, and for a field without a path
std::string ChooseFieldPath(wxWindow* parent, TextField field, const std::string& now);

} // namespace nesk
