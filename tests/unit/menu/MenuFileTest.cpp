#include "base/Messages.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"

#include <filesystem>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using nesk::testing::FileBytes;
namespace fs = std::filesystem;

const std::string Path = "C:\\Neskroot\\menu.cfg";
const std::string HistoryKey = "Neskworks\\Historys";

class MenuFileTest : public nesk::testing::CoreTest {
protected:
    MenuFileTest() {
        fs::create_directories(Host("C:\\Neskroot"));
        m_menu.Initialize("C:\\Neskroot");
    }

    static fs::path Host(const std::string& path) { return TempStation::Host(path); }

    void Load(const std::string& bytes) {
        station.Write(Path, bytes);
        m_menu.LoadFromFile(Path);
    }

    // Captions in display order, children in parentheses: "A B(C D)".
    static std::string Describe(MenuEntry& entry) {
        std::string text;
        for (int i = 1; i <= entry.ChildCount(); ++i) {
            MenuItem& item = entry.SubMenus().Item(i);
            text.append(i > 1 ? " " : "").append(item.Caption());
            if (item.ChildCount() > 0) text += "(" + Describe(item) + ")";
        }
        return text;
    }

    // The history list of the registry: "1 directory|title;2 directory|title".
    static std::string Histories() {
        RegEntry entry;
        if (!entry.TestKey(HistoryKey)) return "none";
        entry.OpenKey(HistoryKey);
        std::string text;
        const int count = std::stoi(entry.GetString("NumberOfHistorys"));
        for (int i = 1; i <= count; ++i) {
            const std::string number = std::to_string(i);
            text.append(i > 1 ? ";" : "").append(number + " ").append(entry.GetString(number + "Directory"));
            text.append("|").append(entry.GetString(number + "Title"));
        }
        return text;
    }

    Menu m_menu;
};

TEST_F(MenuFileTest, AnEmptyMenu) {
    m_menu.SaveToFile(Path);
    EXPECT_EQ(FileBytes(Path), "BLOCK MENU\r\n\tCAPTION=Main Menu\r\n\tGRAPHIC=\r\nEND\r\n");
}

// One item of every kind, with every field.
constexpr const char* FullFile = "BLOCK MENU\r\n"
                                 "\tCAPTION=Main Menu\r\n"
                                 "\tGRAPHIC=root.bmp\r\n"
                                 "\tBLOCK SUBMENU\r\n"
                                 "\t\tCAPTION=Brackets\r\n"
                                 "\t\tGRAPHIC=bracket.bmp\r\n"
                                 "\t\tPREVIEW=\r\n"
                                 "\t\tHELPFILE=\r\n"
                                 "\t\tHELPTOPIC=0\r\n"
                                 "\t\tMENUTYPE=Menu\r\n"
                                 "\t\tPROGRAMID=\r\n"
                                 "\t\tHISTORY_DIR=\r\n"
                                 "\t\tHISTORY_TITLE=\r\n"
                                 "\t\tBLOCK SUBMENU\r\n"
                                 "\t\t\tCAPTION=M\xFCller = \"A;B\"  \x80\r\n"
                                 "\t\t\tGRAPHIC=C:\\Pictures\\part 1.bmp\r\n"
                                 "\t\t\tPREVIEW=;preview\r\n"
                                 "\t\t\tHELPFILE=help.chm\r\n"
                                 "\t\t\tHELPTOPIC=-2147483648\r\n"
                                 "\t\t\tMENUTYPE=Part Program\r\n"
                                 "\t\t\tPROGRAMID=@C:\\Parts\\partinfo.ini@\r\n"
                                 "\t\t\tHISTORY_DIR=C:\\History\r\n"
                                 "\t\t\tHISTORY_TITLE=Title \x81\x8D\x90\r\n"
                                 "\t\tEND\r\n"
                                 "\tEND\r\n"
                                 "END\r\n";

TEST_F(MenuFileTest, WritesEveryField) {
    m_menu.SetGraphic("root.bmp");
    MenuItem& brackets = m_menu.SubMenus().Add("Brackets", "Menu");
    brackets.SetGraphic("bracket.bmp");
    MenuItem& part = brackets.SubMenus().Add("Müller = \"A;B\"  €", "Part Program");
    part.SetGraphic("C:\\Pictures\\part 1.bmp");
    part.SetPreview(";preview");
    part.SetHelpFile("help.chm");
    part.SetHelpTopic(-2147483647 - 1);
    part.SetProgramID("@C:\\Parts\\partinfo.ini@");
    part.SetHistoryDir("C:\\History");
    part.SetHistoryTitle(platform::FromAnsi("Title \x81\x8D\x90"));
    m_menu.SaveToFile(Path);
    EXPECT_EQ(FileBytes(Path), FullFile);
}

// Spaces and tabs are lost when the file is read; the writer does not remove them.
TEST_F(MenuFileTest, WritesTextsAsTheyStand) {
    m_menu.SetCaption("  a\tb=c;\"d\" ");
    m_menu.SubMenus().Add("\t; END\t", "Menu").SetPreview("\x01 \x7F");
    m_menu.SaveToFile(Path);
    const std::string bytes = FileBytes(Path);
    for (const char* line : {"\r\n\tCAPTION=  a\tb=c;\"d\" \r\n", "\r\n\t\tCAPTION=\t; END\t\r\n",
                             "\r\n\t\tPREVIEW=\x01 \x7F\r\n"})
        EXPECT_NE(bytes.find(line), std::string::npos) << line << bytes;
}

TEST_F(MenuFileTest, ReadsEveryField) {
    Load(FullFile);
    EXPECT_EQ(m_menu.Graphic(), "root.bmp");
    EXPECT_EQ(m_menu.SubMenus().Item(1).MenuType(), "Menu");
    ASSERT_EQ(Describe(m_menu), "Brackets(Müller = \"A;B\"  €)");
    const MenuItem& part = m_menu.SubMenus().Item(1).SubMenus().Item(1);
    EXPECT_EQ(part.Graphic(), "C:\\Pictures\\part 1.bmp");
    EXPECT_EQ(part.Preview(), ";preview");
    EXPECT_EQ(part.HelpFile(), "help.chm");
    EXPECT_EQ(part.HelpTopic(), -2147483647 - 1);
    EXPECT_EQ(part.MenuType(), "Part Program");
    EXPECT_EQ(part.ProgramID(), "@C:\\Parts\\partinfo.ini@");
    EXPECT_EQ(part.HistoryDir(), "C:\\History");
    EXPECT_EQ(platform::ToAnsi(part.HistoryTitle()), "Title \x81\x8D\x90");
    EXPECT_EQ(part.ID(), "R.1.1");
    m_menu.SaveToFile(Path);
    EXPECT_EQ(FileBytes(Path), FullFile) << "not a byte changes";
}

TEST_F(MenuFileTest, ALongMenuIsTheSameAfterReadingAndWriting) {
    for (int i = 0; i < 300; ++i) {
        MenuItem& submenu = m_menu.SubMenus().Add("submenu " + std::to_string(i), "Menu");
        for (int k = 0; k < 20; ++k)
            submenu.SubMenus().Add("part " + std::to_string(k), "Part Program");
    }
    m_menu.SaveToFile(Path);
    const std::string bytes = FileBytes(Path);
    EXPECT_GT(bytes.size(), std::size_t{1} << 20);
    Menu read;
    read.Initialize("");
    read.LoadFromFile(Path);
    EXPECT_EQ(Describe(read), Describe(m_menu));
    read.SaveToFile(Path);
    EXPECT_TRUE(FileBytes(Path) == bytes);
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(MenuFileTest, AnotherCodePage) {
    platform::SelectCodePage(1041);
    m_menu.SubMenus().Add("日本語 表示 ｱ", "Menu").SetPreview(platform::FromAnsi("\x81\xFD"));
    m_menu.SaveToFile(Path);
    const std::string bytes = FileBytes(Path);
    EXPECT_NE(bytes.find("CAPTION=\x93\xFA\x96\x7B\x8C\xEA \x95\x5C\x8E\xA6 \xB1\r\n"), std::string::npos);
    EXPECT_NE(bytes.find("PREVIEW=\x81\xFD\r\n"), std::string::npos);
    Menu read;
    read.Initialize("");
    read.LoadFromFile(Path);
    EXPECT_EQ(Describe(read), "日本語 表示 ｱ");
    read.SaveToFile(Path);
    EXPECT_EQ(FileBytes(Path), bytes);
}
#endif

TEST_F(MenuFileTest, WhatTheReaderForgives) {
    const struct {
        const char* bytes;
        const char* tree;
    } table[] = {
        {"block menu name\ncaption=Root\nblock submenu\ncaption = a  B \nend\nend", "Root: a  B"},
        {"BLOCK MENU\nCAPTION=;x\nBLOCK SUBMENU\n;CAPTION=comment\nCAPTION=;y\nEND\nEND", ";x: ;y"},
        {"BLOCK MENU\nOTHER=1\n=2\nMENUTYPE=3\nBLOCK SUBMENU\nNAME=x\n=\nCAPTION=A\nEND\nEND",
         "Main Menu: A"},
        {"BLOCK MENU\nCAPTION=one\nBLOCK SUBMENU\nEND\nCAPTION=two\nEND", "two: "},
        {"BLOCK MENU\nEND\n\n ; remark\n\t\n", "Main Menu: "},
        // Missing ends.
        {"BLOCK MENU", "Main Menu: "},
        {"BLOCK MENU\nCAPTION=R\n", "R: "},
        {"BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nEND\n", "Main Menu: A"},
        {"BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nBLOCK SUBMENU\nCAPTION=B\nEND\nBLOCK SUBMENU\nCAPTION=C",
         "Main Menu: A(B C)"},
    };
    for (const auto& row : table) {
        Menu menu;
        menu.Initialize("");
        station.Write(Path, row.bytes);
        menu.LoadFromFile(Path);
        EXPECT_EQ(std::string(menu.Caption()) + ": " + Describe(menu), row.tree) << row.bytes;
    }
}

TEST_F(MenuFileTest, HelpTopics) {
    const auto read = [&](const std::string& value) {
        station.Write(Path, "BLOCK MENU\nBLOCK SUBMENU\nHELPTOPIC=" + value + "\nEND\nEND\n");
        Menu menu;
        menu.Initialize("");
        menu.LoadFromFile(Path);
        return menu.SubMenus().Item(1).HelpTopic();
    };
    EXPECT_EQ(read("4711"), 4711);
    EXPECT_EQ(read(" -1 "), -1);
    EXPECT_EQ(read("2147483647"), 2147483647);
    EXPECT_EQ(read("2.5"), 2);
    EXPECT_EQ(read("&H10"), 16);
    for (const char* value : {"", "x", "12 x", "1,5", "--1"}) {
        const NeskError error = ErrorOf([&] { read(value); });
        EXPECT_EQ(error.number, RuntimeError::TypeMismatch) << value;
        EXPECT_EQ(error.messageId, Message::TypeMismatch);
        EXPECT_EQ(error.arguments, std::vector<std::string>{value});
        EXPECT_EQ(error.line, 3);
    }
    EXPECT_EQ(ErrorOf([&] { read("2147483648"); }).number, RuntimeError::Overflow);
}

TEST_F(MenuFileTest, LoadingAddsToWhatIsThere) {
    m_menu.SubMenus().Add("before", "Menu");
    Load("BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nEND\nEND\n");
    EXPECT_EQ(Describe(m_menu), "before A");
    EXPECT_EQ(m_menu.SubMenus().Item(2).ID(), "R.2");
}

TEST_F(MenuFileTest, AMissingFileIsSaidAndChangesNothing) {
    m_menu.SetCaption("kept");
    m_menu.SubMenus().Add("A", "Menu");
    for (const std::string path : {"C:\\Neskroot\\none.cfg", "C:\\None\\menu.cfg"}) {
        Expect();
        m_menu.LoadFromFile(path);
        EXPECT_EQ(messages.back().text, modStringRes::FormatResString(32053, path));
        EXPECT_NE(messages.back().text.find(path), std::string::npos);
    }
    EXPECT_EQ(m_menu.Caption(), "kept");
    EXPECT_EQ(Describe(m_menu), "A");
}

TEST_F(MenuFileTest, HistoriesAreRegisteredInTheOrderInWhichBlocksEnd) {
    const char* bytes = "BLOCK MENU\nHISTORY_DIR=root has none\n"
                        "BLOCK SUBMENU\nHISTORY_DIR=C:\\A\nHISTORY_TITLE=first\n"
                        "BLOCK SUBMENU\nHISTORY_TITLE=below\nHISTORY_DIR=C:\\B\nEND\nEND\n"
                        "BLOCK SUBMENU\nHISTORY_TITLE=without directory\nHISTORY_DIR=\nEND\n"
                        "BLOCK SUBMENU\nHISTORY_DIR=C:\\C\nEND\n"
                        "END\n";
    EXPECT_EQ(Histories(), "none");
    Load(bytes);
    EXPECT_EQ(Histories(), "1 C:\\B|below;2 C:\\A|first;3 C:\\C|");
    Load(bytes);
    EXPECT_EQ(Histories(), "1 C:\\B|below;2 C:\\A|first;3 C:\\C|;4 C:\\B|below;5 C:\\A|first;6 C:\\C|");
}

TEST_F(MenuFileTest, HistoriesGoOnFromTheNumberThatIsStored) {
    const char* bytes = "BLOCK MENU\nBLOCK SUBMENU\nHISTORY_DIR=C:\\A\nEND\nEND\n";
    RegEntry entry;
    entry.CreateKey(HistoryKey);
    const struct {
        const char* stored;
        const char* number;
    } table[] = {{"", "1"},     {"2", "3"},   {"x", "1"},  {" 7 ", "8"},
                 {"9.9", "10"}, {"-3", "-2"}, {"-1", "0"}, {"-2147483648", "-2147483647"}};
    for (const auto& row : table) {
        entry.SetString("NumberOfHistorys", row.stored);
        entry.DeleteValue(std::string(row.number) + "Directory");
        Load(bytes);
        EXPECT_EQ(entry.GetString("NumberOfHistorys"), row.number) << row.stored;
        EXPECT_EQ(entry.GetString(std::string(row.number) + "Directory"), "C:\\A") << row.stored;
    }
}

TEST_F(MenuFileTest, OnlyClosedBlocksAreRegistered) {
    Load("BLOCK MENU\nBLOCK SUBMENU\nHISTORY_DIR=C:\\A\nBLOCK SUBMENU\nHISTORY_DIR=C:\\B\nEND\n");
    EXPECT_EQ(Histories(), "1 C:\\B|");
    EXPECT_THROW(Load("BLOCK MENU\nBLOCK SUBMENU\nBLOCK SUBMENU\nHISTORY_DIR=C:\\C\nEND\nerror\n"),
                 NeskError);
    EXPECT_EQ(Histories(), "1 C:\\B|;2 C:\\C|") << "registered when its block ended, before the error";
}

// The item at the end of a chain of first children. `levels` receives the length of the chain.
MenuEntry& Deepest(MenuEntry& root, int& levels) {
    MenuEntry* entry = &root;
    for (levels = 0; entry->ChildCount() > 0; ++levels)
        entry = &entry->SubMenus().Item(1);
    return *entry;
}

TEST_F(MenuFileTest, DeepLinesAreIndentedNoFurther) {
    MenuEntry* entry = &m_menu;
    for (int level = 1; level <= 70; ++level)
        entry = &entry->SubMenus().Add(std::to_string(level), "Menu");
    m_menu.SaveToFile(Path);
    const std::string bytes = FileBytes(Path);
    const auto line = [](int tabs, const std::string& text) {
        return "\n" + std::string(static_cast<std::size_t>(tabs), '\t') + text + "\r\n";
    };
    EXPECT_NE(bytes.find(line(63, "BLOCK SUBMENU") + line(64, "CAPTION=63").substr(1)), std::string::npos);
    EXPECT_NE(bytes.find(line(64, "BLOCK SUBMENU") + line(64, "CAPTION=64").substr(1)), std::string::npos);
    EXPECT_EQ(bytes.find(std::string(65, '\t')), std::string::npos);
    Menu read;
    read.Initialize("");
    read.LoadFromFile(Path);
    EXPECT_EQ(Describe(read), Describe(m_menu));
}

TEST_F(MenuFileTest, AMillionLevels) {
    constexpr int Levels = 1000000;
    std::string bytes = "BLOCK MENU\n";
    for (int i = 0; i < Levels; ++i)
        bytes += "BLOCK SUBMENU\n";
    bytes += "CAPTION=deepest\n";
    for (const bool closed : {false, true}) {
        if (closed)
            for (int i = 0; i <= Levels; ++i)
                bytes += "END\n";
        Menu menu;
        menu.Initialize("");
        station.Write(Path, bytes);
        menu.LoadFromFile(Path);
        int levels = 0;
        const MenuEntry& deepest = Deepest(menu, levels);
        EXPECT_EQ(levels, Levels);
        EXPECT_EQ(deepest.Caption(), "deepest");
        EXPECT_EQ(menu.Find(deepest.ID()), &deepest);
        if (!closed) continue;
        menu.SaveToFile(Path);
        std::ifstream saved(Host(Path), std::ios::binary);
        saved.seekg(-20, std::ios::end);
        std::string end(20, ' ');
        saved.read(end.data(), 20);
        EXPECT_EQ(end, "\r\n\t\tEND\r\n\tEND\r\nEND\r\n");
    }
    station.Write(Path, bytes + "text\n");
    Menu menu;
    menu.Initialize("");
    EXPECT_EQ(ErrorOf([&] { menu.LoadFromFile(Path); }).line, 2 * Levels + 4);
}

} // namespace
} // namespace nesk
