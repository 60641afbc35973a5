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

} // namespace nesk::platform
