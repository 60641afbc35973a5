#include "partedit/FolderName.h"

#include "shell/modUtilities.h"

namespace nesk::FolderName {

bool Accepts(char32_t character) {
    return character != U':';
}

std::string WithoutRefused(const std::string& text) {
    std::string result = text;
    std::erase(result, ':');
    return result;
}

std::string Clean(const std::string& text) {
    const std::string name = modUtilities::Trim(text);
    const std::size_t first = name.find_first_not_of('\\');
    if (first == std::string::npos) return "";
    return name.substr(first, name.find_last_not_of('\\') - first + 1);
}

std::string PathIn(const std::string& base, const std::string& name) {
    std::string path = modUtilities::PathJoin(base, name);
    modUtilities::AddTrailingBackslash(path);
    return path;
}

} // namespace nesk::FolderName
