#include "platform/windows/HtmlHelpLibrary.h"

#include <utility>

namespace nesk::platform::windows {

HtmlHelpLibrary::HtmlHelpLibrary(std::wstring name) : m_name(std::move(name)) {}

// Null when there is no viewer; it may be installed later, so that is not remembered.
HtmlHelpLibrary::Function HtmlHelpLibrary::Find() {
    if (m_function != nullptr) return m_function;
    const HMODULE library = ::LoadLibraryExW(m_name.c_str(), nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr) return nullptr;
    // By way of a function that has nothing in common with either, as the compiler asks for.
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
