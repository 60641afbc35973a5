#include "platform/TextEncoding.h"

#include "platform/common/StationText.h"

#include <atomic>
#include <unicode/uchar.h>

namespace nesk::platform {

namespace {

// The tables are immutable, so one thread can convert text while another selects a code page.
std::atomic<const common::CodePageTable*>& Selected() {
    static std::atomic<const common::CodePageTable*> table{&common::CodePageTable::Get(1252)};
    return table;
}

} // namespace

void SelectCodePage(int languageId) {
    Selected() = &common::CodePageTable::Get(CodePageOfLanguage(languageId));
}

const common::CodePageTable& common::SelectedCodePage() {
    return *Selected();
}

char32_t common::UpperCase(char32_t character) {
    // As on Windows, which converts only the case of characters of one UTF-16 unit.
    if (character > 0xFFFF) return character;
    const auto given = static_cast<UChar32>(character);
    const UChar32 upper = u_toupper(given);
    // Windows converts a character only if the conversion can be reversed: a final sigma and a dotless i are
    // unchanged.
    return u_tolower(upper) == given ? static_cast<char32_t>(upper) : character;
}

char32_t common::InCase(char32_t character, LetterCase letters, int languageId) {
    if (character > 0xFFFF) return character;
    // Turkish and Azerbaijani have two letters i, with and without a dot.
    const int language = languageId & 0x3FF;
    const bool hasTwo = language == 0x1F || language == 0x2C;
    const bool isUpper = letters == LetterCase::Upper;
    if (hasTwo && isUpper && (character == U'i' || character == U'ı')) return character == U'i' ? U'İ' : U'I';
    if (hasTwo && !isUpper && (character == U'I' || character == U'İ'))
        return character == U'I' ? U'ı' : U'i';
    const auto given = static_cast<UChar32>(character);
    return static_cast<char32_t>(isUpper ? u_toupper(given) : u_tolower(given));
}

} // namespace nesk::platform
