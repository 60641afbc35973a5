#include "platform/HelpViewer.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/TextEncoding.h"
#include "platform/windows/HtmlHelpLibrary.h"
#include "platform/windows/WinHelp.h"

#include <optional>
#include <windows.h>

namespace nesk::platform {

namespace {

bool FileExists(const std::string& file) {
    std::uint32_t attributes = 0;
    return StationFiles().Attributes(file, attributes) == ErrorCode::Success &&
           (attributes & FileAttribute::Directory) == 0;
}

windows::WinHelpFunction& ClassicViewer() {
    static windows::WinHelpFunction function = ::WinHelpA;
    return function;
}

} // namespace

windows::WinHelpFunction windows::SetWinHelp(WinHelpFunction function) {
    const WinHelpFunction before = ClassicViewer();
    ClassicViewer() = function;
    return before;
}

HelpResult ShowHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    static windows::HtmlHelpLibrary viewer(L"hhctrl.ocx");
    if (!FileExists(file)) return HelpResult::FileMissing;
    const std::optional<std::string> path = ToAnsi(file);
    if (!path) return HelpResult::Failed;
    return viewer.Show(static_cast<HWND>(owner), path->c_str(), command, data);
}

HelpResult ShowClassicHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    if (!FileExists(file)) return HelpResult::FileMissing;
    const std::optional<std::string> path = ToAnsi(file);
    if (!path) return HelpResult::Failed;
    return ClassicViewer()(static_cast<HWND>(owner), path->c_str(), command, data) != FALSE
               ? HelpResult::Shown
               : HelpResult::Failed;
}

} // namespace nesk::platform
