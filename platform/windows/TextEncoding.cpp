#include "platform/TextEncoding.h"

#include "platform/common/StationText.h"

#include <windows.h>

namespace nesk::platform {

void SelectCodePage(int) {}

const common::CodePageTable& common::SelectedCodePage() {
    // The system's code page changes only with a restart.
    static const CodePageTable& table = CodePageTable::Get(static_cast<int>(::GetACP()));
    return table;
}

char32_t common::UpperCase(char32_t character) {
    // The system converts only the case of characters of one UTF-16 unit.
    if (character > 0xFFFF) return character;
    auto unit = static_cast<wchar_t>(character);
    ::CharUpperBuffW(&unit, 1);
    return static_cast<char32_t>(unit);
}

} // namespace nesk::platform
