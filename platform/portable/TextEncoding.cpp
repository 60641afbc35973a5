#include "platform/TextEncoding.h"

#include "platform/common/StationText.h"

#include <atomic>
#include <unicode/uchar.h>

namespace nesk::platform {

namespace {

// The tables never change, so that text can be converted while another thread selects a code page.
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
    return static_cast<char32_t>(u_toupper(static_cast<UChar32>(character)));
}

} // namespace nesk::platform
