#pragma once

#include <windows.h>

namespace nesk::platform::windows {

/// The system's WinHelpA, which shows classic help.
using WinHelpFunction = BOOL(WINAPI*)(HWND owner, LPCSTR file, UINT command, ULONG_PTR data);

/// Puts a function in the place of WinHelpA, as tests do: what it shows is another program's. Returns the one
/// before.
WinHelpFunction SetWinHelp(WinHelpFunction function);

} // namespace nesk::platform::windows
