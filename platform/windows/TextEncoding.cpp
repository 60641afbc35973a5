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

char32_t common::InCase(char32_t character, LetterCase letters, int languageId) {
    if (character > 0xFFFF) return character;
    const auto unit = static_cast<wchar_t>(character);
    wchar_t result = unit;
    const DWORD flags =
        LCMAP_LINGUISTIC_CASING | (letters == LetterCase::Upper ? LCMAP_UPPERCASE : LCMAP_LOWERCASE);
    const LCID locale = MAKELCID(static_cast<WORD>(languageId), SORT_DEFAULT);
    if (::LCMapStringW(locale, flags, &unit, 1, &result, 1) != 1) return character;
    return static_cast<char32_t>(result);
}

} // namespace nesk::platform
