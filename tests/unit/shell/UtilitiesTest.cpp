#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FaultyFiles.h"

#include <filesystem>

namespace nesk {
namespace {

using namespace modUtilities;
using nesk::testing::ErrorOf;

class UtilitiesTest : public nesk::testing::CoreTest {};

TEST_F(UtilitiesTest, TrailingBackslash) {
    const auto added = [](std::string path) {
        AddTrailingBackslash(path);
        return path;
    };
    EXPECT_EQ(added("C:\\A"), "C:\\A\\");
    EXPECT_EQ(added("C:\\A  "), "C:\\A\\");
    EXPECT_EQ(added("C:\\A\\"), "C:\\A\\");
    EXPECT_EQ(added("C:\\A\\  "), "C:\\A\\  ") << "left exactly as it is";
    EXPECT_EQ(added("  C:"), "  C:\\");
    EXPECT_EQ(added(""), "\\");
}

TEST_F(UtilitiesTest, ShortenedTexts) {
    EXPECT_EQ(modUtilities::Shortened("", 3), "");
    EXPECT_EQ(modUtilities::Shortened("abc", 3), "abc");
    EXPECT_EQ(modUtilities::Shortened("abcd", 3), "abc...");
    EXPECT_EQ(modUtilities::Shortened("a\u00FCbc", 2), "a...") << "no half of a character";
    EXPECT_EQ(modUtilities::Shortened("a\u00FCbc", 3), "a\u00FC...");
}

TEST_F(UtilitiesTest, JoiningPaths) {
    EXPECT_EQ(PathJoin("C:\\A\\B", "..\\C\\x.cfg"), "C:\\A\\C\\x.cfg");
    EXPECT_EQ(PathJoin("C:\\A", "D:\\x"), "D:\\x");
    EXPECT_EQ(PathJoin("C:\\A", ".\\x"), "C:\\A\\x");
    EXPECT_EQ(PathJoin(" C:\\A ", " x "), "C:\\A\\x");
    EXPECT_EQ(PathJoin("C:\\A\\B\\C", "..\\..\\x"), "C:\\A\\x");
    EXPECT_EQ(PathJoin("C:\\A", "..hidden"), "C:\\A\\hidden");
    EXPECT_EQ(PathJoin("C:\\A", "\\x"), "C:\\A\\\\x") << "not rooted";
    EXPECT_EQ(PathJoin("C:\\A", ""), "C:\\A\\");
    EXPECT_EQ(PathJoin("C:\\", "x"), "C:\\x");
}

TEST_F(UtilitiesTest, ParentFolders) {
    EXPECT_EQ(ParentFolder("C:\\A\\B"), "C:\\A\\");
    EXPECT_EQ(ParentFolder("C:\\A\\B\\\\"), "C:\\A\\");
    EXPECT_EQ(ParentFolder("C:\\A"), "C:\\");
    EXPECT_EQ(ParentFolder("C:\\"), "");
    EXPECT_EQ(ParentFolder("A"), "");
    EXPECT_EQ(ParentFolder(""), "");
}

TEST_F(UtilitiesTest, FilesAndFolders) {
    station.Write("C:\\Data\\Part.ini", "x");
    EXPECT_TRUE(FileExists("C:\\Data\\Part.ini"));
    EXPECT_TRUE(FileExists("c:\\DATA\\part.INI"));
    EXPECT_TRUE(FileExists("C:\\Data\\*.ini"));
    EXPECT_FALSE(FileExists("C:\\Data"));
    EXPECT_FALSE(FileExists("C:\\Data\\other.ini"));
    EXPECT_FALSE(FileExists("C:\\None\\Part.ini"));
    EXPECT_FALSE(FileExists(""));
    EXPECT_TRUE(DirectoryExists("C:\\Data"));
    EXPECT_TRUE(DirectoryExists("c:\\data\\"));
    EXPECT_TRUE(DirectoryExists("C:\\"));
    EXPECT_FALSE(DirectoryExists("C:\\Data\\Part.ini"));
    EXPECT_FALSE(DirectoryExists("C:\\None"));
    EXPECT_FALSE(DirectoryExists("Q:\\"));
    EXPECT_FALSE(DirectoryExists(""));
}

TEST_F(UtilitiesTest, TheFolderOfAFileWhereItExists) {
    station.Write("C:\\Pictures\\a.bmp", "");
    EXPECT_EQ(ExistingFolderOf("C:\\Pictures\\b.bmp", "C:\\Default"), "C:\\Pictures\\");
    for (const char* file : {"", "b.bmp", "C:\\Gone\\b.bmp", "C:\\Pictures\\a.bmp\\b.bmp"})
        EXPECT_EQ(ExistingFolderOf(file, "C:\\Default"), "C:\\Default") << file;
}

TEST_F(UtilitiesTest, MakingAPathCreatesEveryLevel) {
    MakePath("C:\\new\\deeper\\");
    EXPECT_TRUE(DirectoryExists("C:\\new"));
    EXPECT_TRUE(DirectoryExists("C:\\new\\deeper"));
    MakePath("C:\\new\\deeper\\and deeper");
    EXPECT_TRUE(DirectoryExists("C:\\new\\deeper\\and deeper"));
    MakePath("C:\\new");
    station.Write("C:\\file", "x");
    const NeskError error = ErrorOf([] { MakePath("C:\\file\\below"); });
    EXPECT_EQ(error.arguments.at(0), "C:\\file");
}

TEST_F(UtilitiesTest, SearchesAreRunToTheirEnd) {
    for (const char* name : {"a1", "a2", "a3"})
        station.Write(std::string("C:\\Data\\") + name, "");
    station.Write("C:\\Data\\b\\x", "");
    nesk::testing::FaultyFiles files;
    EXPECT_TRUE(FileExists("C:\\Data\\a1", files));
    EXPECT_TRUE(FileExists("C:\\Data\\a*", files)) << "the first one is not the last";
    EXPECT_TRUE(FileExists("C:\\Data\\*", files)) << "a folder is found before a file";
    EXPECT_TRUE(DirectoryExists("C:\\Data\\b", files));
    EXPECT_FALSE(DirectoryExists("C:\\Data\\*", files));
    EXPECT_EQ(files.searchesLeftOpen, 0);
}

TEST_F(UtilitiesTest, AShareIsNotAFolderToCreate) {
    EXPECT_EQ(ShareLength("\\\\server\\share\\folder"), 14u);
    EXPECT_EQ(ShareLength("//server/share/folder"), 14u);
    EXPECT_EQ(ShareLength("\\\\server\\share"), 14u);
    EXPECT_EQ(ShareLength("\\\\server"), 8u);
    for (const char* path : {"", "\\", "\\\\", "\\\\\\x", "C:\\x", "\\folder"})
        EXPECT_EQ(ShareLength(path), 0u) << path;
}

TEST_F(UtilitiesTest, MakePathBeginsBelowTheShare) {
    // Tests have no network, but the error names the first folder that was to be created.
    const NeskError error = ErrorOf([] { MakePath("\\\\no-such-server\\share\\new\\deeper"); });
    EXPECT_EQ(error.arguments.at(0), "\\\\no-such-server\\share\\new");
}

TEST_F(UtilitiesTest, ProfileValues) {
    station.Write("C:\\Data\\partinfo.ini", "[Part]\r\nName = Housing \r\n");
    EXPECT_EQ(ReadIniValue("C:\\Data\\partinfo.ini", "part", "NAME"), "Housing");
    EXPECT_EQ(ReadIniValue("C:\\Data\\partinfo.ini", "Part", "Other"), "");
    EXPECT_EQ(ReadIniValue("C:\\None\\partinfo.ini", "Part", "Name"), "");
    station.Write("C:\\Data\\long.ini", "[Part]\nName=" + std::string(5000, 'n') + "\n");
    EXPECT_EQ(ReadIniValue("C:\\Data\\long.ini", "Part", "Name").size(), 4095u);
}

TEST_F(UtilitiesTest, FieldsOfAList) {
    EXPECT_EQ(ListField("1|2|3", 0, 9), 1);
    EXPECT_EQ(ListField("1|2|3", 2, 9), 3);
    EXPECT_EQ(ListField("a|b", 2, 9), 9);
    EXPECT_EQ(ListField("1||3", 1, 9), 9);
    EXPECT_EQ(ListField("", 0, 9), 9);
    EXPECT_EQ(ListField(" 4 |x", 0, 9), 4);
    EXPECT_EQ(ListField("a|b", 0, 9), 0);
    EXPECT_EQ(ListField("1", -1, 9), 9);
}

TEST_F(UtilitiesTest, InstallationFolders) {
    EXPECT_EQ(InstallDirectory(), "");
    RegEntry settings;
    settings.CreateKey("Orvane\\Settings");
    settings.SetString("InstallDirectory", "  C:\\Orvane ");
    EXPECT_EQ(InstallDirectory(), "C:\\Orvane");
    EXPECT_EQ(BinaryDirectory(), "C:\\Orvane\\Bin");
}

TEST_F(UtilitiesTest, FontSizesByLocale) {
    for (const std::uint32_t locale : {1028u, 1041u, 1042u, 2052u}) {
        EXPECT_EQ(ControlFontSize(locale, 8), 9);
        EXPECT_EQ(ControlFontSize(locale, 9), 9);
        EXPECT_EQ(ControlFontSize(locale, 12), 12);
    }
    EXPECT_EQ(ControlFontSize(1033, 7), 8);
    EXPECT_EQ(ControlFontSize(1033, 8), 8);
    EXPECT_EQ(ControlFontSize(1031, 9), 9);
}

TEST_F(UtilitiesTest, ErrorReportSaysNumberTextFileAndLine) {
    NeskError error(5000, "MenuLoad", 32013, {"17"});
    EXPECT_NE(ErrorText(error).find("5000"), std::string::npos);
    EXPECT_NE(ErrorText(error).find(MessageText(error)), std::string::npos);
    error.file = "C:\\Neskroot\\menu.cfg";
    error.line = 42;
    Expect();
    ReportError(error);
    ASSERT_EQ(messages.size(), 1u);
    for (const char* part : {"5000", "17", "C:\\Neskroot\\menu.cfg", "42"})
        EXPECT_NE(messages[0].text.find(part), std::string::npos) << part;
    EXPECT_EQ(messages[0].options, modMessageBox::Option::Critical);
    EXPECT_EQ(messages[0].title, modStringRes::LoadResString(34123));
    Expect();
    ReportError(std::runtime_error("disk on fire"));
    EXPECT_NE(messages.at(1).text.find("disk on fire"), std::string::npos);
}

TEST_F(UtilitiesTest, AnOmittedTitleIsThatOfTheApplication) {
    Expect(modMessageBox::Result::Yes);
    EXPECT_EQ(modMessageBox::ShowMessage("text", 4), modMessageBox::Result::Yes);
    EXPECT_EQ(messages.at(0).title, "NeskManager");
}

} // namespace
} // namespace nesk
