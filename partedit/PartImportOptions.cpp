#include "partedit/PartImportOptions.h"

#include "settings/WindowMemory.h"
#include "shell/modUtilities.h"

namespace nesk {

namespace {

// Names of the values.
constexpr const char* FolderCaptions = "AddPartsFolderCaptions";
constexpr const char* Letters = "AddPartsLetters";
constexpr const char* Submenus = "AddPartsSubmenus";
constexpr const char* Pictures = "AddPartsPictures";
constexpr const char* Picture = "AddPartsPicture";
constexpr const char* HistoryDir = "AddPartsHistory";

// Stands for no pattern: an empty text is not remembered. No file can have this name.
constexpr const char* NoPattern = "|";

} // namespace

std::string PartImportOptions::CommonHistoryDir() const {
    std::string directory = modUtilities::Trim(historyDir);
    const std::size_t part = directory.find("%part%");
    if (part == std::string::npos) return directory;
    const std::size_t separator = directory.rfind('\\', part);
    return separator != std::string::npos ? directory.substr(0, separator + 1) : "";
}

PartImportOptions PartImportOptions::In(const WindowMemory& memory) {
    using platform::LetterCase;
    PartImportOptions options;
    if (memory.Flag(FolderCaptions, false)) options.caption = Caption::Folder;
    const int letters = memory.Number(Letters).value_or(0);
    for (const LetterCase known : {LetterCase::Upper, LetterCase::Lower})
        if (letters == static_cast<int>(known)) options.letters = known;
    options.submenus = memory.Flag(Submenus, options.submenus);
    options.pictures = memory.Text(Pictures).value_or(options.pictures);
    if (options.pictures == NoPattern) options.pictures.clear();
    options.defaultPicture = memory.Text(Picture).value_or("");
    options.historyDir = memory.Text(HistoryDir).value_or("");
    return options;
}

void PartImportOptions::PutInto(WindowMemory& memory) const {
    const PartImportOptions before = In(memory);
    if (*this == before) return;
    memory.SetFlag(FolderCaptions, caption == Caption::Folder, false);
    if (letters != before.letters) memory.SetNumber(Letters, static_cast<int>(letters));
    memory.SetFlag(Submenus, submenus, PartImportOptions().submenus);
    if (pictures != before.pictures) memory.SetText(Pictures, pictures.empty() ? NoPattern : pictures);
    memory.SetText(Picture, defaultPicture);
    memory.SetText(HistoryDir, historyDir);
}

} // namespace nesk
