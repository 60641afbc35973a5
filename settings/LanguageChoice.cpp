#include "settings/LanguageChoice.h"

#include "base/NeskError.h"
#include "platform/Collation.h"
#include "platform/FileSystem.h"
#include "platform/StationFolder.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"

#include <charconv>
#include <cstddef>

namespace nesk::LanguageChoice {

namespace {

constexpr const char* SettingsKey = "Orvane\\Settings";
constexpr const char* ValueName = "DefaultLanguage";
constexpr int DefaultLanguageID = 1033;
// A library holds the texts of so many numbers; the first and the last one that the program uses.
constexpr int BlockSize = 1000;
constexpr int FirstBlock = 32;
constexpr int LastBlock = 35;

} // namespace

bool MayChange() {
    return platform::StationIsFolder();
}

std::vector<const platform::Language*> Offered() {
    std::vector<const platform::Language*> languages;
    std::vector<std::string> names;
    for (const platform::Language& language : platform::Languages()) {
        if (language.code.empty() || language.id < 0) continue;
        languages.push_back(&language);
        names.emplace_back(language.ownName);
    }
    std::vector<const platform::Language*> offered;
    for (const std::size_t index : platform::SortedOrder(names))
        offered.push_back(languages[index]);
    return offered;
}

int Stored() {
    std::string stored;
    try {
        RegEntry settings;
        settings.OpenKey(SettingsKey);
        stored = settings.GetString(ValueName);
    } catch (const NeskError&) {
        return DefaultLanguageID;
    }
    int id = 0;
    std::from_chars(stored.data(), stored.data() + stored.size(), id);
    const platform::Language* language = platform::FindLanguage(id);
    return language != nullptr && !language->code.empty() ? id : DefaultLanguageID;
}

void Store(int languageId) {
    RegEntry settings;
    settings.CreateKey(SettingsKey);
    settings.SetString(ValueName, std::to_string(languageId));
}

std::string MissingLibrary(const platform::Language& language) {
    const std::string installed = modUtilities::PathJoin(modUtilities::InstallDirectory(), "Bin");
    for (int block = FirstBlock; block <= LastBlock; ++block) {
        std::string name = std::string(language.code) + std::to_string(block * BlockSize) + ".DLL";
        if (!modUtilities::FileExists(platform::ProgramFolder() + "\\" + name) &&
            !modUtilities::FileExists(modUtilities::PathJoin(installed, name)))
            return name;
    }
    return "";
}

std::string Name(const platform::Language& language) {
    std::string name(language.ownName);
    if (language.ownName != language.englishName) name.append(" - ").append(language.englishName);
    return name;
}

} // namespace nesk::LanguageChoice
