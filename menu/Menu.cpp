#include "menu/Menu.h"

#include "base/BackupNames.h"
#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/BlockParser.h"
#include "menu/HistoryList.h"
#include "menu/MenuFile.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <vector>

namespace nesk {

namespace {

// This is part of the file format, so it is the same in every language.
constexpr std::string_view DefaultCaption = "Main Menu";

} // namespace

Menu::Menu() : m_memory(std::make_shared<Arena>()) {
    SetArena(*m_memory);
}

// The children must be destroyed before the arena that contains them.
Menu::~Menu() {
    ReleaseChildren();
}

bool Menu::Initialize(const std::string& sRootDir) {
    ReleaseChildren();
    m_nextCounter = 1;
    m_rootDirectory = sRootDir;
    SetCaption(DefaultCaption);
    SetGraphic("");
    return true;
}

std::unique_ptr<Menu> Menu::Compacted() const {
    auto copy = std::make_unique<Menu>();
    copy->m_rootDirectory = m_rootDirectory;
    copy->m_endIsMissing = m_endIsMissing;
    copy->m_nextCounter = m_nextCounter;
    copy->SetCaption(Caption());
    copy->SetGraphic(Graphic());
    struct Pair {
        const MenuEntry* from;
        MenuEntry* to;
    };
    std::vector<Pair> open{{this, copy.get()}};
    while (!open.empty()) {
        const Pair pair = open.back();
        open.pop_back();
        const int count = pair.from->ChildCount();
        for (int i = 1; i <= count; ++i) {
            const MenuItem& item = pair.from->Children()->Item(i);
            open.push_back({&item, &pair.to->SubMenus().Append(MenuItem::CopyOf(item, *pair.to))});
        }
    }
    return copy;
}

void Menu::LoadFromFile(const std::string& sFile, platform::FileSystem& files) {
    if (!modUtilities::FileExists(sFile, files)) {
        modMessageBox::ShowMessage(modStringRes::FormatResString(Message::MenuFileMissing, sFile),
                                   modMessageBox::Option::Exclamation);
        return;
    }
    ReadFile(sFile, files);
}

void Menu::ReadFile(const std::string& sFile, platform::FileSystem& files) {
    BlockParser parser(MenuKeys);
    // Each history is registered as it is read, possibly thousands of times, so the writes are grouped.
    platform::RegistryGroup histories(platform::StationRegistry());
    try {
        parser.OpenFile(sFile, false, files);
        m_endIsMissing = !MenuReader(parser, HistoryList::Register).ReadMenu(*this);
        if (const platform::ErrorCode result = histories.End(); result != platform::ErrorCode::Success)
            throw FileError(result, "HistoryList.Append", platform::StationRegistry().Location());
    } catch (NeskError& error) {
        error.file = sFile;
        error.line = parser.CurrentLine();
        throw;
    }
}

void Menu::SaveToFile(const std::string& sFile, platform::FileSystem& files) const {
    SaveMenuFile(*this, sFile, BackupOf(sFile), {}, files);
}

} // namespace nesk
