#include "shell/FieldMessage.h"

#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk::FieldMessage {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

namespace {

constexpr int CheckFieldText = 32067;
constexpr int NoFolderNamed = 34450;
constexpr int FolderMissing = 34451; // %0% folder
constexpr int NotAFolder = 34452;    // %0% path

} // namespace

std::string PlainLabel(std::string_view label) {
    std::string plain;
    for (std::size_t i = 0; i < label.size(); ++i) {
        // The character after the mark stays, whatever it is.
        if (label[i] == '&' && ++i == label.size()) break;
        plain += label[i];
    }
    return plain;
}

std::string Text(int labelId) {
    return LoadResString(CheckFieldText) + " " + PlainLabel(LoadResString(labelId));
}

std::string Title() {
    return LoadResString(CheckFieldText);
}

std::string FolderReason(const std::string& folder) {
    if (modUtilities::Trim(folder).empty()) return LoadResString(NoFolderNamed);
    return FormatResString(modUtilities::FileExists(folder) ? NotAFolder : FolderMissing, folder);
}

} // namespace nesk::FieldMessage
