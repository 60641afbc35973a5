#include "base/LanguageTable.h"

#include <algorithm>
#include <array>

namespace nesk {

namespace {

struct Language {
    int id;
    const char* code;
};

// Sorted by identifier. Polish (1045) is omitted on purpose: Polish stations run in English.
constexpr std::array<Language, 30> Languages{{
    {-1, "PIG"},   {1028, "CHT"}, {1030, "DAN"}, {1031, "DEU"}, {1033, "ENU"}, {1034, "ESP"},
    {1036, "FRA"}, {1040, "ITA"}, {1041, "JPN"}, {1042, "KOR"}, {1043, "NLD"}, {1044, "NOR"},
    {1046, "PTB"}, {1053, "SVE"}, {2055, "DES"}, {2057, "ENG"}, {2058, "ESM"}, {2060, "FRB"},
    {2064, "ITS"}, {2067, "NLB"}, {2068, "NON"}, {2070, "PTG"}, {3079, "DEA"}, {3081, "ENA"},
    {3082, "ESN"}, {3084, "FRC"}, {4105, "ENC"}, {4108, "FRS"}, {5129, "ENZ"}, {6153, "ENI"},
}};

} // namespace

std::string LanguageCode(int languageId) {
    const auto found = std::find_if(Languages.begin(), Languages.end(),
                                    [&](const Language& language) { return language.id == languageId; });
    return found != Languages.end() ? found->code : "ENU";
}

} // namespace nesk
