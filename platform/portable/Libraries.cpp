#include "platform/Libraries.h"

#include <array>

#include <sqlite3.h>
#include <unicode/uversion.h>

namespace nesk::platform {

std::vector<Library> LinkedLibraries() {
    UVersionInfo numbers{};
    u_getVersion(numbers);
    std::array<char, U_MAX_VERSION_STRING_LENGTH> icu{};
    u_versionToString(numbers, icu.data());
    return {{"SQLite", sqlite3_libversion(), "public domain"}, {"ICU", icu.data(), "Unicode licence"}};
}

} // namespace nesk::platform
