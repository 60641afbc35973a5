#pragma once

#include "platform/HelpViewer.h"

#include <cstdint>
#include <string>
#include <windows.h>

namespace nesk::platform::windows {

/// The viewer of HTML help: a library whose windows belong to this process. It is loaded on first use and
/// stays loaded until the process ends, because its windows run in a thread of its own.
class HtmlHelpLibrary {
public:
    /// @param name  file name of a system library, or the full path of any other library
    explicit HtmlHelpLibrary(std::wstring name);

    /// Shows an existing help file; `path` is in the system's code page. The other parameters are those of
    /// ShowHtmlHelp.
    HelpResult Show(HWND owner, const char* path, unsigned command, std::uint32_t data);

private:
    using Function = HWND(WINAPI*)(HWND caller, LPCSTR file, UINT command, DWORD_PTR data);

    Function Find();

    std::wstring m_name;
    Function m_function = nullptr;
};

} // namespace nesk::platform::windows
