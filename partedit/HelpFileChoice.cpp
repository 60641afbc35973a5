#include "partedit/HelpFileChoice.h"

#include "base/NeskError.h"
#include "base/modConvert.h"
#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"

namespace nesk::HelpFileChoice {

bool IsTopic(const std::string& text) {
    // The two answers are the same only for a number.
    return Topic(text, 0) == Topic(text, 1);
}

std::int32_t Topic(const std::string& text, std::int32_t earlier) {
    try {
        return modConvert::CLng(text);
    } catch (const NeskError&) {
        return earlier;
    }
}

std::string DefaultFolder() {
    std::string folder;
    try {
        RegEntry settings;
        settings.OpenKey("Neskworks");
        folder = settings.GetString("DefaultSlideDirectory");
    } catch (const NeskError&) {
        // Settings that cannot be read contain no folder.
    }
    return folder.empty() ? platform::ProgramFolder() : folder;
}

std::string BrowseFolder(const std::string& file, const std::string& defaultFolder) {
    return modUtilities::DirectoryExists(file) ? file : modUtilities::ExistingFolderOf(file, defaultFolder);
}

} // namespace nesk::HelpFileChoice
