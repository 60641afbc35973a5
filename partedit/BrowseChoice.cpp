#include "partedit/BrowseChoice.h"

#include "platform/FileSystem.h"
#include "shell/modUtilities.h"

namespace nesk::BrowseChoice {

namespace {

constexpr std::size_t RootLength = 3; // "C:\"

} // namespace

std::string StartFolder(const std::string& path) {
    return modUtilities::DirectoryExists(path) ? path : platform::ProgramFolder();
}

std::optional<std::string> Accept(const std::string& path) {
    if (path.size() <= RootLength || !modUtilities::DirectoryExists(path)) return std::nullopt;
    return path.ends_with('\\') ? path : path + "\\";
}

} // namespace nesk::BrowseChoice
