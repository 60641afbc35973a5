#include "platform/common/TextDecomposition.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace nesk::platform {

std::string Decomposed(std::string_view text) {
    const std::wstring before = windows::ToWide(text);
    const int length = static_cast<int>(before.size());
    const int needed = ::FoldStringW(MAP_COMPOSITE, before.data(), length, nullptr, 0);
    if (needed <= 0) return std::string(text);
    std::wstring after(static_cast<std::size_t>(needed), L'\0');
    const int written = ::FoldStringW(MAP_COMPOSITE, before.data(), length, after.data(), needed);
    if (written <= 0) return std::string(text);
    after.resize(static_cast<std::size_t>(written));
    return windows::FromWide(after);
}

} // namespace nesk::platform
