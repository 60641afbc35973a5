#include "platform/HelpViewer.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"

#include <optional>
#include <windows.h>

namespace nesk::platform {

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND caller, LPCSTR file, UINT command, DWORD_PTR data);

// The viewer's function, from the system's own library, which is loaded when it is first needed and stays:
// its window belongs to this process. Null when there is no viewer; it may come later, so that is not
// remembered.
HtmlHelpFunction HtmlHelpViewer() {
    static HMODULE library = nullptr;
    if (library == nullptr) library = ::LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) return nullptr;
    // By way of a function that has nothing in common with either, as the compiler asks for.
    return reinterpret_cast<HtmlHelpFunction>(
        reinterpret_cast<void (*)()>(::GetProcAddress(library, "HtmlHelpA")));
}

bool FileExists(const std::string& file) {
    std::uint32_t attributes = 0;
    return StationFiles().Attributes(file, attributes) == ErrorCode::Success &&
           (attributes & FileAttribute::Directory) == 0;
}

} // namespace

HelpResult ShowHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    if (!FileExists(file)) return HelpResult::FileMissing;
    const std::optional<std::string> path = ToAnsi(file);
    const HtmlHelpFunction show = HtmlHelpViewer();
    if (show == nullptr) return HelpResult::ViewerMissing;
    if (!path) return HelpResult::Failed;
    return show(static_cast<HWND>(owner), path->c_str(), command, data) != nullptr ? HelpResult::Shown
                                                                                   : HelpResult::Failed;
}

HelpResult ShowClassicHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    if (!FileExists(file)) return HelpResult::FileMissing;
    const std::optional<std::string> path = ToAnsi(file);
    if (!path) return HelpResult::Failed;
    return ::WinHelpA(static_cast<HWND>(owner), path->c_str(), command, data) != FALSE ? HelpResult::Shown
                                                                                       : HelpResult::Failed;
}

} // namespace nesk::platform
