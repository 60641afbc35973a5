#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"
#include "unit/platform/StringLibrary.h"

#include <filesystem>

namespace nesk {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

// Libraries of a block that the program itself does not have, in the installation's folder, so that the test
// decides what they hold.
class StringResTest : public testing::CoreTest {
protected:
    StringResTest() {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("InstallDirectory", " C:\\Orvane ");
    }

    // A library that is loaded could not be removed with the station.
    ~StringResTest() override { modStringRes::FreeStringRes(); }

    void WriteLibrary(const std::string& name, const std::map<std::uint16_t, std::string>& strings) {
        testing::WriteStringLibrary(station, "C:\\Orvane\\Bin\\" + name, strings);
    }
};

TEST_F(StringResTest, LanguageCodes) {
    EXPECT_EQ(modStringRes::LanguageCode(1033), "ENU");
    EXPECT_EQ(modStringRes::LanguageCode(1031), "DEU");
    EXPECT_EQ(modStringRes::LanguageCode(-1), "PIG");
    EXPECT_EQ(modStringRes::LanguageCode(6153), "ENI");
    EXPECT_EQ(modStringRes::LanguageCode(2067), "NLB");
    EXPECT_EQ(modStringRes::LanguageCode(1045), "ENU");
    EXPECT_EQ(modStringRes::LanguageCode(0), "ENU");
    EXPECT_EQ(modStringRes::LanguageCode(1041), "JPN");
}

TEST_F(StringResTest, TextsComeFromTheProgramFolder) {
    EXPECT_EQ(LoadResString(34001), "NeskManager");
    EXPECT_EQ(LoadResString(32004), "OK");
}

TEST_F(StringResTest, AMissingLibraryIsSaidSo) {
    EXPECT_EQ(LoadResString(45123), "Error: Resource File Not Found");
    WriteLibrary("ENU45000.DLL", {{45000, "none %0%"}, {45123, "found"}});
    EXPECT_EQ(LoadResString(45123), "found") << "a failure must not be remembered";
}

TEST_F(StringResTest, ALibraryIsLoadedOnceForItsBlock) {
    WriteLibrary("ENU45000.DLL", {{45000, "none %0%"}, {45001, "one"}, {45999, "last"}});
    WriteLibrary("ENU46000.DLL", {{46000, "other block"}});
    EXPECT_EQ(LoadResString(45001), "one");
    // Windows lets nobody remove a library that is loaded, but anybody rename it.
    for (const std::string block : {"45000", "46000"})
        std::filesystem::rename(TempStation::Host("C:\\Orvane\\Bin\\ENU" + block + ".DLL"),
                                TempStation::Host("C:\\Orvane\\Bin\\" + block));
    EXPECT_EQ(LoadResString(45999), "last") << "the library was loaded again";
    EXPECT_EQ(LoadResString(46000), "Error: Resource File Not Found") << "a block has its own library";
    modStringRes::FreeStringRes();
    EXPECT_EQ(LoadResString(45001), "Error: Resource File Not Found");
}

TEST_F(StringResTest, AMissingTextGivesTheBaseTextWithItsNumber) {
    WriteLibrary("ENU45000.DLL", {{45000, "no text %0%!"}});
    EXPECT_EQ(LoadResString(45017), "no text 45017!");
    EXPECT_EQ(LoadResString(45000), "no text %0%!");
}

TEST_F(StringResTest, ALibraryWithoutBaseTextDoesNotHang) {
    WriteLibrary("ENU45000.DLL", {{45001, "one"}});
    EXPECT_EQ(LoadResString(45017), "Error: Resource File Not Found");
}

TEST_F(StringResTest, LongTextsAreCut) {
    WriteLibrary("ENU45000.DLL",
                 {{45000, "x"}, {45001, std::string(1023, 'a')}, {45002, std::string(1030, 'b')}});
    EXPECT_EQ(LoadResString(45001), std::string(1023, 'a'));
    EXPECT_EQ(LoadResString(45002), std::string(1023, 'b'));
}

TEST_F(StringResTest, PlaceholdersAreReplacedInTheirOrder) {
    WriteLibrary("ENU45000.DLL", {{45000, "x"}, {45001, "%0% and %3% and %0%"}, {45002, "%9%-%1%"}});
    EXPECT_EQ(FormatResString(45001, "a", "b", "c", "d"), "a and d and a");
    EXPECT_EQ(FormatResString(45001, "<%3%>", "b", "c", "d"), "<d> and d and <d>");
    EXPECT_EQ(FormatResString(45001, "a", "b", "c", "<%0%>"), "a and <%0%> and a");
    EXPECT_EQ(FormatResString(45001, "%0%"), "%0% and %3% and %0%") << "put in once, not again and again";
    EXPECT_EQ(FormatResString(45001), "%0% and %3% and %0%") << "missing arguments leave their places";
    EXPECT_EQ(FormatResString(45002, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9), "9-1");
    EXPECT_EQ(FormatResString(45002, "", std::string("s")), "%9%-s");
}

TEST_F(StringResTest, AnotherLanguageHasItsOwnLibraries) {
    WriteLibrary("DEU45000.DLL", {{45000, "kein Text %0%"}, {45001, "Grüße"}});
    modStringRes::InitStringRes(1031);
    EXPECT_EQ(LoadResString(45001), "Grüße");
    modStringRes::InitStringRes(1033);
    EXPECT_EQ(LoadResString(45001), "Error: Resource File Not Found");
}

} // namespace
} // namespace nesk
