#pragma once

#include <string>

class wxWindow;

namespace nesk::platform {

/// Gives a control the name by which a screen reader calls it. Only a control needs it that has no label of
/// its own before it.
/// @param name  UTF-8, without the mark of an access key
void SetAccessibleName(wxWindow& control, const std::string& name);

} // namespace nesk::platform
