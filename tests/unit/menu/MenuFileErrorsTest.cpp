#include "base/Messages.h"
#include "menu/LineReader.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"

#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;
namespace fs = std::filesystem;
using Texts = std::vector<std::string>;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class MenuFileErrorsTest : public nesk::testing::CoreTest {
protected:
    MenuFileErrorsTest() {
        fs::create_directories(TempStation::Host(Folder));
        m_menu.Initialize(Folder);
    }

    // Captions of the root's children.
    static std::string Captions(Menu& menu) {
        std::string text;
        for (int i = 1; i <= menu.ChildCount(); ++i)
            text += std::string(menu.SubMenus().Item(i).Caption());
        return text;
    }

    Menu m_menu;
};

TEST_F(MenuFileErrorsTest, ALineThatIsTooLongIsNamed) {
    const std::string front = "BLOCK MENU\nCAPTION=x\n";
    station.Write(Path, front);
    fs::resize_file(TempStation::Host(Path), front.size() + LineReader::MaxLineLength * 2 + 1);
    const NeskError error = ErrorOf([&] { m_menu.LoadFromFile(Path); });
    EXPECT_EQ(error.messageId, Message::LineTooLong);
    EXPECT_EQ(error.line, 3);
    EXPECT_EQ(m_menu.Caption(), "x");
}

TEST_F(MenuFileErrorsTest, DamagedFiles) {
    const std::string parser = "BlockParse.GetToken";
    const std::string itemA = "BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nEND\n"; // four lines
    const std::string openB =
        itemA + "BLOCK SUBMENU\nCAPTION=B\nBLOCK SUBMENU\nCAPTION=C\nEND\n"; // nine lines
    const struct {
        std::string bytes;
        int number;
        std::string source;
        int messageId;
        Texts arguments;
        int line;
        const char* captions; // of the items that remain
    } table[] = {
        // The start.
        {"", 5000, "MenuLoad", 32009, {Path}, 0, ""},
        {"; nothing\r\n\r\n", 5000, "MenuLoad", 32009, {Path}, 2, ""},
        {"\nEND\n", 5000, "MenuLoad", 32009, {Path}, 2, ""},
        {"CAPTION=x\n", 5000, "MenuLoad", 32009, {Path}, 1, ""},
        {"BLOCK\n", 5000, "MenuLoad", 32009, {Path}, 1, ""},
        {"BLOCK SUBMENU\nEND\n", 5000, "MenuLoad", 32009, {Path}, 1, ""},
        {"BLOCK MENUS\nEND\n", 5000, "MenuLoad", 32009, {Path}, 1, ""},
        {"MENU\n", 5000, parser, 32013, {"1"}, 1, ""},
        // A block of another kind.
        {itemA + "\nBLOCK thing x\nEND\nEND\n", 5000, "MenuLoad", 32010, {"6", "THING"}, 6, "A"},
        {itemA + "BLOCK MENU\nEND\nEND\n", 5000, "MenuLoad", 32010, {"5", "MENU"}, 5, "A"},
        {itemA + "BLOCK\n", 5000, "MenuLoad", 32010, {"5", ""}, 5, "A"},
        {openB + "BLOCK Menu\nEND\nEND\nEND\n", 5000, "MenuLoad", 32010, {"10", "MENU"}, 10, "A"},
        // Text after the end.
        {itemA + "END\n\n; remark\nA=1\n", 5000, "Menu", 32011, {"8"}, 8, "A"},
        {itemA + "END\nEND\n", 5000, "Menu", 32011, {"6"}, 6, "A"},
        {itemA + "END\nBLOCK MENU\nEND\n", 5000, "Menu", 32011, {"6"}, 6, "A"},
        {itemA + "END\ntext\n", 5000, parser, 32013, {"6"}, 6, "A"},
        // A line of no known kind.
        {itemA + "text\nEND\n", 5000, parser, 32013, {"5"}, 5, "A"},
        {openB + "ENDE\nEND\n", 5000, parser, 32013, {"10"}, 10, "A"},
        {openB + "BLOCK SUBMENU\nENDE\n", 5000, parser, 32013, {"11"}, 11, "A"},
        // A help topic that is not a number.
        {openB + "HELPTOPIC=one\nEND\n", 13, "CLng", 34101, {"one"}, 10, "A"},
        {openB + "HELPTOPIC=9999999999\nEND\n", 6, "CLng", 34100, {}, 10, "A"},
        {"BLOCK MENU\nHELPTOPIC=one\nBLOCK SUBMENU\nHELPTOPIC=\nEND\nEND\n", 13, "CLng", 34101, {""}, 4, ""},
    };
    for (const auto& row : table) {
        Menu menu;
        menu.Initialize(Folder);
        station.Write(Path, row.bytes);
        const NeskError error = ErrorOf([&] { menu.LoadFromFile(Path); });
        EXPECT_EQ(error.number, row.number) << row.bytes;
        EXPECT_EQ(error.source, row.source) << row.bytes;
        EXPECT_EQ(error.messageId, row.messageId) << row.bytes;
        EXPECT_EQ(error.arguments, row.arguments) << row.bytes;
        EXPECT_EQ(error.file, Path);
        EXPECT_EQ(error.line, row.line) << row.bytes;
        EXPECT_EQ(Captions(menu), row.captions) << row.bytes;
    }
}

TEST_F(MenuFileErrorsTest, TheIdOfADroppedItemIsNotUsedAgain) {
    station.Write(Path, "BLOCK MENU\nBLOCK SUBMENU\nEND\nBLOCK SUBMENU\nerror\n");
    EXPECT_EQ(ErrorOf([&] { m_menu.LoadFromFile(Path); }).line, 5);
    ASSERT_EQ(m_menu.ChildCount(), 1);
    EXPECT_EQ(m_menu.SubMenus().Item(1).ID(), "R.1");
    EXPECT_EQ(m_menu.SubMenus().Add("x", "Menu").ID(), "R.3");
}

TEST_F(MenuFileErrorsTest, WhatTheRootHadReadStays) {
    station.Write(Path, "BLOCK MENU\nCAPTION=Root\nGRAPHIC=x.bmp\nerror\nCAPTION=later\nEND\n");
    EXPECT_EQ(ErrorOf([&] { m_menu.LoadFromFile(Path); }).line, 4);
    EXPECT_EQ(m_menu.Caption(), "Root");
    EXPECT_EQ(m_menu.Graphic(), "x.bmp");
}

TEST_F(MenuFileErrorsTest, AFolderInPlaceOfTheFileIsNoFile) {
    Expect();
    m_menu.LoadFromFile(Folder);
    EXPECT_EQ(messages.at(0).text, modStringRes::FormatResString(32053, Folder));
}

TEST_F(MenuFileErrorsTest, TooManyChildren) {
    std::string children;
    for (int i = 0; i < 32768; ++i)
        children += "BLOCK SUBMENU\nEND\n";
    station.Write(Path, "BLOCK MENU\n" + children + "END\n");
    NeskError error = ErrorOf([&] { m_menu.LoadFromFile(Path); });
    EXPECT_EQ(error.number, RuntimeError::Overflow);
    EXPECT_EQ(error.messageId, Message::TooManyChildren);
    EXPECT_EQ(error.file, Path);
    EXPECT_EQ(error.line, 2 * 32767 + 2);
    EXPECT_EQ(m_menu.ChildCount(), 32767);
    Menu nested;
    nested.Initialize(Folder);
    station.Write(Path, "BLOCK MENU\nBLOCK SUBMENU\nEND\nBLOCK SUBMENU\n" + children + "END\nEND\n");
    error = ErrorOf([&] { nested.LoadFromFile(Path); });
    EXPECT_EQ(error.messageId, Message::TooManyChildren);
    EXPECT_EQ(nested.ChildCount(), 1) << "the item that could not hold its children is dropped";
}

TEST_F(MenuFileErrorsTest, ANumberOfHistoriesOutsideItsRangeEndsTheLoad) {
    RegEntry list;
    list.CreateKey("Neskworks\\Historys");
    station.Write(Path, "BLOCK MENU\nBLOCK SUBMENU\nHISTORY_DIR=C:\\H\nEND\nEND\n");
    for (const char* stored : {"2147483647", "-2147483649", "1e300", "-1e300"}) {
        list.SetString("NumberOfHistorys", stored);
        const NeskError error = ErrorOf([&] { m_menu.LoadFromFile(Path); });
        EXPECT_EQ(error.number, RuntimeError::Overflow) << stored;
        EXPECT_EQ(error.line, 4) << stored;
        EXPECT_EQ(list.GetString("NumberOfHistorys"), stored);
    }
}

TEST_F(MenuFileErrorsTest, AHistoryThatCannotBeRegisteredEndsTheLoad) {
    station.BreakSettings();
    station.Write(Path,
                  "BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nEND\nBLOCK SUBMENU\nHISTORY_DIR=C:\\H\nEND\nEND\n");
    const NeskError error = ErrorOf([&] { m_menu.LoadFromFile(Path); });
    EXPECT_EQ(error.number, 5000);
    EXPECT_EQ(error.source, "RegEntry.CreateInternal");
    EXPECT_EQ(error.line, 7);
    EXPECT_EQ(Captions(m_menu), "A");
}

// Each row sets a text to a value that cannot be written.
TEST_F(MenuFileErrorsTest, ATextThatCannotBeWrittenLeavesTheFile) {
    const struct {
        const char* text;
        int messageId;
        Texts arguments;
    } table[] = {
        {"x日y本", Message::NotEncodable, {"x日y本", "日", "1252"}},
        {"Ω", Message::NotEncodable, {"Ω", "Ω", "1252"}},
        {"\xFF", Message::NotEncodable, {"\xFF", "\xFF", "1252"}},
        {"a\nb", Message::LineBreakInText, {}},
        {"a\rb", Message::LineBreakInText, {}},
    };
    using Setter = void (MenuItem::*)(std::string_view);
    const Setter setters[] = {&MenuItem::SetCaption,    &MenuItem::SetGraphic,     &MenuItem::SetPreview,
                              &MenuItem::SetHelpFile,   &MenuItem::SetMenuType,    &MenuItem::SetProgramID,
                              &MenuItem::SetHistoryDir, &MenuItem::SetHistoryTitle};
    station.Write(Path, "old");
    for (const Setter setter : setters) {
        Menu menu;
        menu.Initialize(Folder);
        MenuItem& item = menu.SubMenus().Add("A", "Menu");
        for (const auto& row : table) {
            (item.*setter)(row.text);
            const NeskError error = ErrorOf([&] { menu.SaveToFile(Path); });
            EXPECT_EQ(error.number, 5000) << row.text;
            EXPECT_EQ(error.messageId, row.messageId) << row.text;
            EXPECT_EQ(error.arguments, row.arguments) << row.text;
            EXPECT_EQ(FileBytes(Path), "old");
            EXPECT_EQ(FilesIn(Folder), "menu.cfg") << "a temporary file or a backup was left";
        }
    }
}

TEST_F(MenuFileErrorsTest, TheRootsTextsAreCheckedAsWell) {
    m_menu.SetCaption("日");
    EXPECT_EQ(ErrorOf([&] { m_menu.SaveToFile(Path); }).messageId, Message::NotEncodable);
    m_menu.SetCaption("x");
    m_menu.SetGraphic("日");
    EXPECT_EQ(ErrorOf([&] { m_menu.SaveToFile(Path); }).messageId, Message::NotEncodable);
    EXPECT_EQ(FilesIn(Folder), "");
}

TEST_F(MenuFileErrorsTest, PlacesWhereNothingCanBeSaved) {
    const struct {
        const char* path;
        int number;
        const char* named; // part of the message
    } table[] = {
        {"C:\\None\\menu.cfg", RuntimeError::PathNotFound, "C:\\None\\"},
#ifdef NESK_PORTABLE_STATION
        // Windows reports the same error, but Wine reports a missing file for a missing drive.
        {"Q:\\menu.cfg", RuntimeError::PathNotFound, "Q:\\"},
#endif
        {"C:\\Neskroot", RuntimeError::PermissionDenied, "C:\\Neskroot"},
    };
    for (const auto& row : table) {
        const NeskError error = ErrorOf([&] { m_menu.SaveToFile(row.path); });
        EXPECT_EQ(error.number, row.number) << row.path;
        EXPECT_EQ(error.arguments, Texts{row.named});
    }
    EXPECT_EQ(FilesIn(Folder), "");
}

TEST_F(MenuFileErrorsTest, TheVersionBeforeIsKept) {
    m_menu.SaveToFile(Path);
    const std::string first = FileBytes(Path);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg") << "the first save has nothing to keep";
    m_menu.SetCaption("second");
    m_menu.SaveToFile(Path);
    EXPECT_EQ(FileBytes(Path + ".bak"), first);
    m_menu.SetCaption("third");
    m_menu.SaveToFile(Path);
    EXPECT_NE(FileBytes(Path + ".bak").find("CAPTION=second"), std::string::npos);
    EXPECT_NE(FileBytes(Path).find("CAPTION=third"), std::string::npos);
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.bak");
}

} // namespace
} // namespace nesk
