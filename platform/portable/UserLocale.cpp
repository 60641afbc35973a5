#include "platform/UserLocale.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>
#include <string_view>

namespace nesk::platform {

namespace {

struct Locale {
    std::string_view name; // language, or language_COUNTRY where the country matters
    std::uint32_t id;
};

// Entries with a country come before the entry of their language.
constexpr std::array<Locale, 29> Locales{{
    {"zh_TW", 1028}, {"zh_HK", 1028}, {"zh", 2052},    {"ja", 1041},    {"ko", 1042},    {"da", 1030},
    {"de_CH", 2055}, {"de_AT", 3079}, {"de", 1031},    {"en_GB", 2057}, {"en_AU", 3081}, {"en_CA", 4105},
    {"en_NZ", 5129}, {"en_IE", 6153}, {"en", 1033},    {"es_MX", 2058}, {"es", 3082},    {"fr_BE", 2060},
    {"fr_CA", 3084}, {"fr_CH", 4108}, {"fr", 1036},    {"it_CH", 2064}, {"it", 1040},    {"nl_BE", 2067},
    {"nl", 1043},    {"nb", 1044},    {"pt_BR", 1046}, {"pt", 2070},    {"sv", 1053},
}};

std::string_view UserLocaleName() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"})
        if (const char* value = std::getenv(variable); value != nullptr && *value != '\0') return value;
    return "";
}

} // namespace

std::uint32_t UserDefaultLocale() {
    const std::string_view full = UserLocaleName();
    const std::string_view name = full.substr(0, full.find_first_of(".@"));
    const std::string_view language = name.substr(0, name.find('_'));
    for (const std::string_view wanted : {name, language}) {
        const auto found = std::find_if(Locales.begin(), Locales.end(),
                                        [&](const Locale& locale) { return locale.name == wanted; });
        if (found != Locales.end()) return found->id;
    }
    return 1033;
}

} // namespace nesk::platform
