#include "platform/windows/HtmlHelpLibrary.h"

#include <array>
#include <utility>

namespace nesk::platform::windows {

namespace {

// The full path of a system library. With a bare name, the system would search other folders as well; the
// flag that limits the search to this folder is missing in Windows 7 without its later updates.
std::wstring InSystemFolder(const std::wstring& name) {
    if (name.find(L'\\') != std::wstring::npos) return name;
    std::array<wchar_t, MAX_PATH> folder{};
    const UINT length = ::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return std::wstring(folder.data(), length) + L"\\" + name;
}

} // namespace

HtmlHelpLibrary::HtmlHelpLibrary(std::wstring name) : m_name(std::move(name)) {}

// Null when there is no viewer. That result is not cached, because a viewer may be installed later.
HtmlHelpLibrary::Function HtmlHelpLibrary::Find() {
    if (m_function != nullptr) return m_function;
    const HMODULE library =
        ::LoadLibraryExW(InSystemFolder(m_name).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (library == nullptr) return nullptr;
    // Cast through an unrelated function type; a direct cast causes a compiler warning.
    m_function =
        reinterpret_cast<Function>(reinterpret_cast<void (*)()>(::GetProcAddress(library, "HtmlHelpA")));
    if (m_function == nullptr) ::FreeLibrary(library);
    return m_function;
}

HelpResult HtmlHelpLibrary::Show(HWND owner, const char* path, unsigned command, std::uint32_t data) {
    const Function show = Find();
    if (show == nullptr) return HelpResult::ViewerMissing;
    return show(owner, path, command, data) != nullptr ? HelpResult::Shown : HelpResult::Failed;
}

} // namespace nesk::platform::windows
