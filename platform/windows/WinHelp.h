#pragma once

#include <windows.h>

namespace nesk::platform::windows {

/// The system's WinHelpA, which shows classic help.
using WinHelpFunction = BOOL(WINAPI*)(HWND owner, LPCSTR file, UINT command, ULONG_PTR data);

/// Replaces WinHelpA with another function. For tests, because WinHelpA opens another program. Returns the
/// previous function.
WinHelpFunction SetWinHelp(WinHelpFunction function);

} // namespace nesk::platform::windows
