#include "platform/Languages.h"

#include <algorithm>
#include <array>

namespace nesk::platform {

namespace {

constexpr auto Rows = std::to_array<Language>({
#include <LanguageRows.inc> // made by the build
});

} // namespace

std::span<const Language> Languages() {
    return Rows;
}

const Language* FindLanguage(int id) {
    const auto found =
        std::find_if(Rows.begin(), Rows.end(), [id](const Language& language) { return language.id == id; });
    return found != Rows.end() ? &*found : nullptr;
}

} // namespace nesk::platform
