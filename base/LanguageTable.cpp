#include "base/LanguageTable.h"

#include "platform/Languages.h"

namespace nesk {

std::string LanguageCode(int languageId) {
    const platform::Language* language = platform::FindLanguage(languageId);
    return language != nullptr && !language->code.empty() ? std::string(language->code) : "ENU";
}

} // namespace nesk
