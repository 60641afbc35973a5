#include "platform/common/HelpStart.h"

#include "platform/TextEncoding.h"
#include "platform/windows/HtmlHelpLibrary.h"
#include "platform/windows/WinHelp.h"

#include <optional>
#include <windows.h>

namespace nesk::platform {

namespace {

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

HelpResult common::StartHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    static windows::HtmlHelpLibrary viewer(L"hhctrl.ocx");
    const std::optional<std::string> path = ToAnsi(file);
    if (!path) return HelpResult::Failed;
    return viewer.Show(static_cast<HWND>(owner), path->c_str(), command, data);
}

HelpResult common::StartClassicHelp(void* owner, const std::string& file, unsigned command,
                                    std::uint32_t data) {
    const std::optional<std::string> path = ToAnsi(file);
    if (!path) return HelpResult::Failed;
    return ClassicViewer()(static_cast<HWND>(owner), path->c_str(), command, data) != FALSE
               ? HelpResult::Shown
               : HelpResult::Failed;
}

} // namespace nesk::platform
