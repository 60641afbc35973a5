#include "menu/Menu.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "menu/BlockParser.h"
#include "menu/MenuFileWriter.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk {

namespace {

// Part of the file format: it is the same in every language.
constexpr std::string_view DefaultCaption = "Main Menu";

} // namespace

Menu::Menu() : m_memory(std::make_shared<Arena>()) {
    SetArena(*m_memory);
}

// Before the memory in which they lie.
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

void Menu::LoadFromFile(const std::string& sFile, platform::FileSystem& files) {
    if (!modUtilities::FileExists(sFile)) {
        modMessageBox::ShowMessage(modStringRes::FormatResString(Message::MenuFileMissing, sFile),
                                   modMessageBox::Option::Exclamation);
        return;
    }
    BlockParser parser(MenuKeys);
    // Histories are registered as they are met, which may be thousands of times.
    platform::RegistryGroup histories(platform::StationRegistry());
    try {
        parser.OpenFile(sFile, false, files);
        ReadBlocks(parser, sFile);
        if (const int result = histories.End(); result != platform::ErrorCode::Success)
            throw FileError(result, "HistoryList.Append", platform::StationRegistry().Location());
    } catch (NeskError& error) {
        error.file = sFile;
        error.line = parser.CurrentLine();
        throw;
    }
}

void Menu::ReadBlocks(BlockParser& parser, const std::string& sFile) {
    if (parser.GetToken() != BlockParser::TokenStartBlock || parser.BlockType() != "MENU")
        throw NeskError(5000, "MenuLoad", Message::MenuNotAMenuFile, {sFile});
    bool reading = true;
    while (reading) {
        switch (parser.GetToken()) {
        case BlockParser::TokenKeyValue:
            if (parser.KeyIndex() == static_cast<std::size_t>(MenuKey::Caption))
                SetCaption(parser.Value());
            else if (parser.KeyIndex() == static_cast<std::size_t>(MenuKey::Graphic))
                SetGraphic(parser.Value());
            break;
        case BlockParser::TokenStartBlock:
            if (parser.BlockType() != "SUBMENU")
                throw NeskError(5000, "MenuLoad", Message::MenuUnknownBlock,
                                {std::to_string(parser.CurrentLine()), parser.BlockType()});
            SubMenus().AddItemFromFile(parser);
            break;
        case BlockParser::TokenEndFile: m_endIsMissing = true; [[fallthrough]];
        default: reading = false;
        }
    }
    if (parser.GetToken() != BlockParser::TokenEndFile)
        throw NeskError(5000, "Menu", Message::MenuTextAfterEnd, {std::to_string(parser.CurrentLine())});
}

void Menu::SaveToFile(const std::string& sFile) {
    MenuFileWriter(*this).Save(sFile, BackupOf(sFile));
}

} // namespace nesk
