#include "partedit/HistoryChoice.h"

#include "settings/NeskRegistry.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk::HistoryChoice {

namespace {

constexpr int CheckFieldText = 32067;

} // namespace

bool IsDirectory(const std::string& directory) {
    return modUtilities::DirectoryExists(modUtilities::Trim(directory));
}

bool IsTitle(const std::string& title) {
    return !modUtilities::Trim(title).empty();
}

std::string RefusalText(const std::string& label) {
    std::string plain = label;
    std::erase(plain, '&');
    return modStringRes::LoadResString(CheckFieldText) + " " + plain;
}

std::string BrowseFolder(const std::string& directory) {
    return directory.empty() ? NeskRegistry::Instance().HistoryDirectory : directory;
}

} // namespace nesk::HistoryChoice
