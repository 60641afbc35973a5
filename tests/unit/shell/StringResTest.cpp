#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"
#include "unit/platform/StringLibrary.h"

#include <filesystem>
#include <map>
#include <string>

namespace nesk {
namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

// Evaluated before any test selects a language, because the selection cannot be undone.
const std::string LoadedBeforeTheStart = LoadResString(32004);
const std::string FormattedBeforeTheStart = FormatResString(32004, "x");

// Uses libraries of a block that the program itself does not have, in the installation's folder, so that the
// test decides what they contain.
class StringResTest : public testing::CoreTest {
protected:
    StringResTest() {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("InstallDirectory", " C:\\Orvane ");
    }

    // A loaded library could not be removed with the station.
    ~StringResTest() override { modStringRes::FreeStringRes(); }

    void WriteLibrary(const std::string& name, const std::map<std::uint16_t, std::string>& strings) {
        testing::WriteStringLibrary(station, "C:\\Orvane\\Bin\\" + name, strings);
    }
};

TEST_F(StringResTest, LanguageCodes) {
    const std::map<int, std::string> codes{
        {-1, "PIG"},   {1028, "CHT"}, {1030, "DAN"}, {1031, "DEU"}, {1033, "ENU"}, {1034, "ESP"},
        {1036, "FRA"}, {1040, "ITA"}, {1041, "JPN"}, {1042, "KOR"}, {1043, "NLD"}, {1044, "NOR"},
        {1046, "PTB"}, {1053, "SVE"}, {2055, "DES"}, {2057, "ENG"}, {2058, "ESM"}, {2060, "FRB"},
        {2064, "ITS"}, {2067, "NLB"}, {2068, "NON"}, {2070, "PTG"}, {3079, "DEA"}, {3081, "ENA"},
        {3082, "ESN"}, {3084, "FRC"}, {4105, "ENC"}, {4108, "FRS"}, {5129, "ENZ"}, {6153, "ENI"},
    };
    for (int id = -10; id <= 70000; ++id) {
        const auto row = codes.find(id);
        EXPECT_EQ(modStringRes::LanguageCode(id), row != codes.end() ? row->second : "ENU") << id;
    }
}

TEST_F(StringResTest, BeforeALanguageIsSelectedEveryTextIsEmpty) {
    EXPECT_EQ(LoadedBeforeTheStart, "");
    EXPECT_EQ(FormattedBeforeTheStart, "");
    EXPECT_EQ(LoadResString(32004), "OK") << "there is such a text";
}

TEST_F(StringResTest, TextsComeFromTheProgramFolder) {
    EXPECT_EQ(LoadResString(34001), "NeskManager");
    EXPECT_EQ(LoadResString(32004), "OK");
}

TEST_F(StringResTest, TheProgramFolderComesBeforeTheInstallation) {
    WriteLibrary("ENU34000.DLL", {{34000, "x"}, {34001, "of the installation"}});
    EXPECT_EQ(LoadResString(34001), "NeskManager");
}

TEST_F(StringResTest, SmallNumbersHaveLeadingZeros) {
    WriteLibrary("ENU00000.DLL", {{0, "no %0%"}, {7, "seven"}});
    WriteLibrary("ENU05000.DLL", {{5000, "x"}, {5001, "five thousand and one"}});
    EXPECT_EQ(LoadResString(7), "seven");
    EXPECT_EQ(LoadResString(5001), "five thousand and one");
    EXPECT_EQ(LoadResString(-5), "no -5") << "the block of -5 begins at 0";
}

#ifdef NESK_PORTABLE_STATION
// A Windows resource cannot have this number.
TEST_F(StringResTest, TheSignIsNotOneOfTheFiveDigits) {
    station.Write("C:\\Orvane\\Bin\\ENU-01000.DLL", "NeskManager string table 1\n4294966296\tno %0%\n");
    EXPECT_EQ(LoadResString(-1000), "no %0%");
    EXPECT_EQ(LoadResString(-1500), "no -1500");
}
#endif

TEST_F(StringResTest, AMissingLibraryIsSaidSo) {
    EXPECT_EQ(LoadResString(45123), "Error: Resource File Not Found");
    WriteLibrary("ENU45000.DLL", {{45000, "none %0%"}, {45123, "found"}});
    EXPECT_EQ(LoadResString(45123), "found") << "a failure must not be remembered";
}

TEST_F(StringResTest, ALibraryIsLoadedOnceForItsBlock) {
    WriteLibrary("ENU45000.DLL", {{45000, "none %0%"}, {45001, "one"}, {45999, "last"}});
    WriteLibrary("ENU46000.DLL", {{46000, "other block"}});
    EXPECT_EQ(LoadResString(45001), "one");
    // On Windows a loaded library cannot be removed, but it can be renamed.
    for (const std::string block : {"45000", "46000"})
        std::filesystem::rename(TempStation::Host("C:\\Orvane\\Bin\\ENU" + block + ".DLL"),
                                TempStation::Host("C:\\Orvane\\Bin\\" + block));
    EXPECT_EQ(LoadResString(45999), "last") << "the library was loaded again";
    EXPECT_EQ(LoadResString(46000), "Error: Resource File Not Found") << "a block has its own library";
    modStringRes::FreeStringRes();
    EXPECT_EQ(LoadResString(45001), "Error: Resource File Not Found");
}

TEST_F(StringResTest, SelectingALanguageReleasesTheLibraries) {
    WriteLibrary("ENU45000.DLL", {{45000, "x"}, {45001, "one"}});
    EXPECT_EQ(LoadResString(45001), "one");
    std::filesystem::rename(TempStation::Host("C:\\Orvane\\Bin\\ENU45000.DLL"),
                            TempStation::Host("C:\\Orvane\\Bin\\45000"));
    EXPECT_EQ(LoadResString(45001), "one") << "it is still loaded";
    modStringRes::InitStringRes(1033);
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

TEST_F(StringResTest, ATextEndsAtItsFirstZero) {
    WriteLibrary("ENU45000.DLL", {{45000, "x"}, {45001, std::string("ab\0cd", 5)}});
    EXPECT_EQ(LoadResString(45001), "ab");
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
    modStringRes::Arguments fourthAlone;
    fourthAlone[3] = "d";
    EXPECT_EQ(modStringRes::FormatResStringArray(45001, fourthAlone), "%0% and d and %0%");
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
