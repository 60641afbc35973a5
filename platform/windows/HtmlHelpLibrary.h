#pragma once

#include "platform/HelpViewer.h"

#include <cstdint>
#include <string>
#include <windows.h>

namespace nesk::platform::windows {

/// The viewer of HTML help: a library whose windows belong to this process. It is loaded when it is first
/// needed and then stays to the end of the process, for its windows run in a thread of its own.
class HtmlHelpLibrary {
public:
    /// @param name  file name of a library of the system, or the full path of any other
    explicit HtmlHelpLibrary(std::wstring name);

    /// Shows a help file that exists; `path` is in the system's code page. Otherwise as ShowHtmlHelp.
    HelpResult Show(HWND owner, const char* path, unsigned command, std::uint32_t data);

private:
    using Function = HWND(WINAPI*)(HWND caller, LPCSTR file, UINT command, DWORD_PTR data);

    Function Find();

    std::wstring m_name;
    Function m_function = nullptr;
};

} // namespace nesk::platform::windows
