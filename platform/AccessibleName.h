#pragma once

#include <string>

class wxWindow;

namespace nesk::platform {

/// Sets the accessible name of a control, which screen readers announce. Needed only for controls without a
/// label directly before them.
/// @param name  UTF-8, without the access-key marker
void SetAccessibleName(wxWindow& control, const std::string& name);

} // namespace nesk::platform
