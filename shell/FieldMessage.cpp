#include "shell/FieldMessage.h"

#include "base/Messages.h"
#include "platform/Drives.h"
#include "platform/TextEncoding.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <vector>

namespace nesk::FieldMessage {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

std::string PlainLabel(std::string_view label) {
    std::string plain;
    // "(&F)" after the words, as scripts without Latin letters have it.
    constexpr std::size_t keyInBrackets = 4;
    for (std::size_t i = 0; i < label.size(); ++i) {
        if (i + keyInBrackets <= label.size() && label.substr(i, 2) == "(&" && label[i + 2] != '&' &&
            label[i + 3] == ')') {
            i += keyInBrackets - 1;
            continue;
        }
        // The character after the mark is always kept, even another "&".
        if (label[i] == '&' && ++i == label.size()) break;
        plain += label[i];
    }
    return plain;
}

std::string Text(int labelId) {
    return LoadResString(Message::CheckField) + " " + PlainLabel(LoadResString(labelId));
}

std::string Title() {
    return LoadResString(Message::CheckField);
}

bool OnMissingDrive(const std::string& path) {
    if (path.size() < 2 || path[1] != ':') return false;
    const std::vector<char> drives = platform::DriveLetters();
    return std::none_of(drives.begin(), drives.end(), [&](char letter) {
        return platform::EqualNoCase(std::string_view(&letter, 1), std::string_view(path).substr(0, 1));
    });
}

std::string FolderReason(const std::string& folder) {
    if (modUtilities::Trim(folder).empty()) return LoadResString(Message::NoFolderNamed);
    if (modUtilities::FileExists(folder)) return FormatResString(Message::NotAFolder, folder);
    if (OnMissingDrive(folder)) return FormatResString(Message::DriveMissing, folder.substr(0, 2));
    return FormatResString(Message::FolderMissing, folder);
}

} // namespace nesk::FieldMessage
