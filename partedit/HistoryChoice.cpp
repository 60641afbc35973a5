#include "partedit/HistoryChoice.h"

#include "settings/NeskRegistry.h"
#include "shell/modUtilities.h"

namespace nesk::HistoryChoice {

bool IsDirectory(const std::string& directory) {
    return modUtilities::DirectoryExists(modUtilities::Trim(directory));
}

bool IsTitle(const std::string& title) {
    return !modUtilities::Trim(title).empty();
}

std::string TitleToShow(const std::string& title, const std::string& proposed) {
    return title.empty() ? proposed : title;
}

std::string BrowseFolder(const std::string& directory) {
    return directory.empty() ? NeskRegistry::Instance().HistoryDirectory : directory;
}

} // namespace nesk::HistoryChoice
