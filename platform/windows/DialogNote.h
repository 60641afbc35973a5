#pragma once

#include <string>

#include <windows.h>

namespace nesk::platform::windows {

/// Adds a text at the top of a system dialog. The other controls move down, and the dialog grows accordingly.
/// To be called from a hook that the dialog calls before it is shown.
void AddDialogNote(HWND dialog, const std::wstring& text);

} // namespace nesk::platform::windows
