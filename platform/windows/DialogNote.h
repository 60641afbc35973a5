#pragma once

#include <string>

#include <windows.h>

namespace nesk::platform::windows {

/// Adds a text above everything else in a system's dialog, which moves down; the dialog grows by as much. For
/// a hook that the dialog calls before it is shown.
void AddDialogNote(HWND dialog, const std::wstring& text);

} // namespace nesk::platform::windows
