#include "journal/JournalPlaces.h"

#include "base/FileHash.h"
#include "platform/TextEncoding.h"

#include <cstddef>

namespace nesk::JournalPlaces {

namespace {

constexpr int Places = 9; // more editors of one menu have no place
constexpr std::size_t DigitsOfName = 16;

std::vector<std::string> Numbered(const std::string& stem) {
    std::vector<std::string> paths{stem};
    for (int number = 2; number <= Places; ++number)
        paths.push_back(std::string(stem).append("-").append(std::to_string(number)));
    return paths;
}

} // namespace

std::vector<std::string> Beside(const std::string& menuPath) {
    return Numbered(menuPath + ".unsaved");
}

std::vector<std::string> InFolder(const std::string& folder, const std::string& menuPath) {
    if (folder.empty()) return {};
    FileHash hash;
    hash.Add(platform::ToUpper(menuPath));
    const std::string text = hash.Text();
    std::string stem = folder;
    stem.append("\\menu-").append(text.substr(text.size() - DigitsOfName)).append(".unsaved");
    return Numbered(stem);
}

std::string BaseOf(const std::string& journalPath) {
    return journalPath + ".base";
}

} // namespace nesk::JournalPlaces
