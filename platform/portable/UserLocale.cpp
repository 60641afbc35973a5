#include "platform/UserLocale.h"

#include "platform/Languages.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>

namespace nesk::platform {

namespace {

constexpr std::uint32_t DefaultLocale = 1033;

// Whether a list with commas between its elements contains a name.
bool Contains(std::string_view list, std::string_view name) {
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        if (list.substr(0, end) == name) return true;
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return false;
}

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
    // The language with the country first.
    for (const std::string_view wanted : {name, language})
        for (const Language& known : Languages())
            if (Contains(known.locales, wanted)) return static_cast<std::uint32_t>(known.id);
    return DefaultLocale;
}

} // namespace nesk::platform
