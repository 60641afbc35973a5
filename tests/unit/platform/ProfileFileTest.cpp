#include "platform/ProfileFile.h"

#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <fstream>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <vector>
#ifdef NESK_PORTABLE_STATION
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace nesk::platform {
namespace {

using namespace std::string_literals;

constexpr const char* File = "C:\\Parts\\partinfo.ini";
constexpr std::size_t Capacity = 4096;

struct Case {
    const char* name;
    std::string content;
    std::string expected;
    std::string section = "Part";
    std::string key = "Name";
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class ProfileCase : public ::testing::TestWithParam<Case> {
protected:
    ProfileCase() { SelectCodePage(1033); }
    TempStation m_station;
};

TEST_P(ProfileCase, AnswersAsWindowsDoes) {
    m_station.Write(File, GetParam().content);
    EXPECT_EQ(GetParam().expected,
              ReadProfileString(File, GetParam().section, GetParam().key, "default", Capacity));
}

const std::vector<Case> Plain = {
    {"Value", "[Part]\r\nName=Bracket\r\n", "Bracket"},
    {"OtherSectionBefore", "[Tool]\r\nName=no\r\n[Part]\r\nName=Bracket\r\n", "Bracket"},
    {"OtherKeyBefore", "[Part]\r\nNames=no\r\nNam=no\r\nName=Bracket\r\n", "Bracket"},
    {"LineFeeds", "[Part]\nName=Bracket\nX=1\n", "Bracket"},
    {"CarriageReturns", "[Part]\rName=Bracket\rX=1\r", "Bracket"},
    {"NoFinalNewline", "[Part]\r\nName=Bracket", "Bracket"},
    {"EmptyLines", "\r\n\r\n[Part]\r\n\r\n\r\nName=Bracket\r\n", "Bracket"},
    {"EmptyFile", "", "default"},
    {"MissingSection", "[Tool]\r\nName=no\r\n", "default"},
    {"MissingKey", "[Part]\r\nTitle=no\r\n", "default"},
    {"KeyOfALaterSection", "[Part]\r\n[Tool]\r\nName=no\r\n", "default"},
    {"KeyBeforeAnySection", "Name=no\r\n[Part]\r\n", "default"},
    {"EmptyValue", "[Part]\r\nName=\r\nX=1\r\n", ""},
    {"BlankValue", "[Part]\r\nName=  \t \r\n", ""},
    {"EmptyValueAtTheEnd", "[Part]\r\nName=", ""},
    {"ValueWithEqualSigns", "[Part]\r\nName=a=b==c\r\n", "a=b==c"},
    {"LineWithoutEqualSign", "[Part]\r\nName\r\n", "default"},
    {"ZeroByteEndsTheValue", "[Part]\r\nName=Brac\0ket\r\n"s, "Brac"},
};
INSTANTIATE_TEST_SUITE_P(Plain, ProfileCase, ::testing::ValuesIn(Plain),
                         [](const auto& tested) { return tested.param.name; });

const std::vector<Case> Names = {
    {"SectionInOtherCase", "[pARt]\r\nName=Bracket\r\n", "Bracket"},
    {"KeyInOtherCase", "[Part]\r\nnAMe=Bracket\r\n", "Bracket"},
    {"FirstSectionCounts", "[Part]\r\nName=one\r\n[PART]\r\nName=two\r\n", "one"},
    {"SecondSectionIsNotRead", "[Part]\r\nX=1\r\n[Part]\r\nName=two\r\n", "default"},
    {"FirstKeyCounts", "[Part]\r\nName=one\r\nNAME=two\r\n", "one"},
    {"BlanksAroundHeader", " \t [Part] \t\r\nName=Bracket\r\n", "Bracket"},
    {"BlanksInHeader", "[ \t\vPart\v\t ]\r\nName=Bracket\r\n", "Bracket"},
    {"BlanksInsideSectionNameCount", "[My  Part]\r\nName=no\r\n", "default", "My Part"},
    {"BlanksAroundKey", "[Part]\r\n \t Name \t =Bracket\r\n", "Bracket"},
    {"BlanksInsideKey", "[Part]\r\nPart Name=Bracket\r\n", "Bracket", "Part", "Part Name"},
    {"BlanksAroundNamesAskedFor", "[Part]\r\nName=Bracket\r\n", "Bracket", "  Part ", " Name  "},
    {"OpeningBracketInName", "[[Part]\r\nName=Bracket\r\n", "Bracket", "[Part"},
    {"HeaderWithoutOpeningBracket", "Part]\r\nName=no\r\n", "default"},
    {"EntryBehindHeader", "[Part]Name=no\r\n", "default"},
    {"BracketBehindKeyIsNoHeader", "[Part]\r\nX=[Tool]\r\nName=Bracket\r\n", "Bracket"},
    {"QuotesInNamesStay", "[\"Part\"]\r\nName=no\r\n", "default"},
    {"KeyWithoutName", "[Part]\r\n=Bracket\r\n", "Bracket", "Part", ""},
    {"LongKeyBeforeTheKey", "[Part]\r\n" + std::string(100000, 'N') + "=no\r\nName=Bracket\r\n", "Bracket"},
    {"LongKeyThatBeginsAlike", "[Part]\r\nName" + std::string(100000, 'e') + "=no\r\n", "default"},
    {"KeyWithManyBlanksBehindIt", "[Part]\r\nName" + std::string(100000, ' ') + "=Bracket\r\n", "Bracket"},
};
INSTANTIATE_TEST_SUITE_P(Names, ProfileCase, ::testing::ValuesIn(Names),
                         [](const auto& tested) { return tested.param.name; });

const std::vector<Case> Values = {
    {"BlanksAround", "[Part]\r\nName= \t\v Bracket 5 \v\t \r\n", "Bracket 5"},
    {"DoubleQuotes", "[Part]\r\nName=\"Bracket\"\r\n", "Bracket"},
    {"SingleQuotes", "[Part]\r\nName='Bracket'\r\n", "Bracket"},
    {"BlanksInQuotesStay", "[Part]\r\nName=  \"  Bracket \t\"  \r\n", "  Bracket \t"},
    {"OnlyTheOutermostQuotes", "[Part]\r\nName=\"'Bracket'\"\r\n", "'Bracket'"},
    {"DoubledQuotes", "[Part]\r\nName=''Bracket''\r\n", "'Bracket'"},
    {"QuotesThatDiffer", "[Part]\r\nName=\"Bracket'\r\n", "\"Bracket'"},
    {"QuotesCrossed", "[Part]\r\nName='\"Bracket'\"\r\n", "'\"Bracket'\""},
    {"QuoteAtTheStartOnly", "[Part]\r\nName=\"Bracket\r\n", "\"Bracket"},
    {"QuoteAtTheEndOnly", "[Part]\r\nName=Bracket 5\"\r\n", "Bracket 5\""},
    {"SingleQuoteAlone", "[Part]\r\nName=\"\r\n", "\""},
    {"EmptyQuotes", "[Part]\r\nName=\"\"\r\n", ""},
    {"CommentLine", "[Part]\r\n;Name=no\r\nName=Bracket\r\n", "Bracket"},
    {"CommentLineBehindBlanks", "[Part]\r\n \t;Name=no\r\n", "default"},
    {"CommentedHeader", "[Part]\r\n;[Tool]\r\nName=Bracket\r\n", "Bracket"},
    {"SemicolonInValueIsData", "[Part]\r\nName=Bracket ; left\r\n", "Bracket ; left"},
    {"SemicolonAtTheStartOfValueIsData", "[Part]\r\nName=;Bracket\r\n", ";Bracket"},
    {"NumberSignIsNoComment", "[Part]\r\n#Name=Bracket\r\n", "Bracket", "Part", "#Name"},
    {"EndMarkAfterTheText", "[Part]\r\nName=Bracket\r\n\x1A", "Bracket"},
    {"Umlauts", "[Part]\r\nName=Geh\xE4use \x80\r\n", "Geh\u00E4use \u20AC"},
    {"Utf8MarkLeavesLaterHeaders", "\xEF\xBB\xBF\r\n[Part]\r\nName=Bracket\r\n", "Bracket"},
};
INSTANTIATE_TEST_SUITE_P(Values, ProfileCase, ::testing::ValuesIn(Values),
                         [](const auto& tested) { return tested.param.name; });

#ifdef NESK_PORTABLE_STATION
// Cases in which Wine differs from Windows, each with Wine's result.
const std::vector<Case> UnlikeWine = {
    // Wine: "no"
    {"KeyBeforeAnySectionAskedWithoutSection", "Name=no\r\n[Part]\r\n", "default", ""},
    // Wine: "default"
    {"SectionWithoutName", "[]\r\nName=Bracket\r\n", "Bracket", ""},
    // Wine: "default"
    {"LineWithoutEqualSignBeforeTheKey", "[Part]\r\nName\r\nName=Bracket\r\n", "Bracket"},
    // Wine: "default"
    {"UmlautInOtherCase", "[TEIL\xDC]\r\nGR\xD6SSE=5\r\n", "5", "Teil\u00FC", "Gr\u00F6sse"},
    // Wine: "no"
    {"TabsInNamesAskedForStay", "[Part]\r\nName=no\r\n", "default", "Part", "\tName"},
    // Wine: "default"
    {"NameEndsAtFirstBracket", "[Part]x]\r\nName=Bracket\r\n", "Bracket"},
    // Wine: "no"
    {"NameWithClosingBracketIsNeverFound", "[Part]x]\r\nName=no\r\n", "default", "Part]x"},
    // Wine: "default"
    {"HeaderWithoutClosingBracket", "[Part  \r\nName=Bracket\r\n", "Bracket"},
    // Wine: "no"
    {"CommentIsNoKey", "[Part]\r\n;Name=no\r\n", "default", "Part", ";Name"},
    // Wine: "Brac\x1Aket"
    {"EndMarkInTheValue", "[Part]\r\nName=Brac\x1Aket\r\n", "Brac"},
    // Wine: "no"
    {"NothingIsReadBehindTheEndMark", "[Part]\r\n\x1AName=no\r\nName=no\r\n", "default"},
    // Wine: "no"
    {"Utf8MarkHidesTheFirstHeader", "\xEF\xBB\xBF[Part]\r\nName=no\r\n[Tool]\r\nName=no\r\n", "default"},
    // Wine: "x"
    {"BigEndianUtf16IsNotUnderstood", "\xFE\xFF\0[\0P\0a\0r\0t\0]\0\n\0N\0a\0m\0e\0=\0x\0\n"s, "default"},
};
INSTANTIATE_TEST_SUITE_P(UnlikeWine, ProfileCase, ::testing::ValuesIn(UnlikeWine),
                         [](const auto& tested) { return tested.param.name; });
#endif

class ProfileFileTest : public ::testing::Test {
protected:
    ProfileFileTest() { SelectCodePage(1033); }
    ~ProfileFileTest() override { SelectCodePage(1033); }

    static std::string Read(std::size_t capacity = Capacity, const std::string& defaultValue = "default") {
        return ReadProfileString(File, "Part", "Name", defaultValue, capacity);
    }

    static std::string Wide(const std::u16string& text) {
        std::string bytes = "\xFF\xFE";
        for (const char16_t unit : text) {
            bytes += static_cast<char>(unit & 0xFF);
            bytes += static_cast<char>(unit >> 8);
        }
        return bytes;
    }

    TempStation m_station;
};

TEST_F(ProfileFileTest, ReadsUtf16) {
    m_station.Write(File, Wide(u"[Part]\r\nName= \"Geh\u00E4use \u20AC\" \r\n"));
    EXPECT_EQ("Geh\u00E4use \u20AC", Read());
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(ProfileFileTest, AnswersAQuestionMarkForWhatTheCodePageLacks) {
    m_station.Write(File, Wide(u"[Part]\r\nName=\u90E8\u54C1 5\r\n"));
    EXPECT_EQ("?? 5", Read());
    SelectCodePage(1041);
    EXPECT_EQ("\u90E8\u54C1 5", Read());
}
#endif

#ifdef NESK_PORTABLE_STATION
// Wine makes a character of the half and the byte after it in memory: "Bracket?".
TEST_F(ProfileFileTest, ReadsUtf16ThatEndsInHalfACharacter) {
    m_station.Write(File, Wide(u"[Part]\r\nName=Bracket") + "x");
    EXPECT_EQ("Bracket", Read());
}

TEST_F(ProfileFileTest, TakesNoSecondByteForABracket) {
    SelectCodePage(1041);
    // The last byte of the section's first character is the byte of "]".
    m_station.Write(File, "[\x83]]\r\nName=\x95\x5C\x95\x69\r\n");
    EXPECT_EQ("\u8868\u54C1", ReadProfileString(File, "\u30BE", "Name", "default", Capacity));
}

TEST_F(ProfileFileTest, KeepsBytesThatCannotBeDecoded) {
    SelectCodePage(1041);
    m_station.Write(File, "[Part]\r\nName=a\xFF\x82\r\n");
    const std::string name = Read();
    EXPECT_EQ("a\U0010FEFF\U0010FE82", name);
    EXPECT_EQ("a\xFF\x82", ToAnsi(name));
}
#endif

TEST_F(ProfileFileTest, CutsLongValuesToTheBuffer) {
    m_station.Write(File, "[Part]\r\nName=" + std::string(5000, 'x') + "\r\n");
    EXPECT_EQ(std::string(4095, 'x'), Read(4096));
    EXPECT_EQ("xxx", Read(4));
    EXPECT_EQ("", Read(1));
    EXPECT_EQ("", Read(0));
    EXPECT_EQ(std::string(5000, 'x'), Read(5001));
    EXPECT_EQ(std::string(4999, 'x'), Read(5000));
}

TEST_F(ProfileFileTest, DropsQuotesBeforeItCuts) {
    m_station.Write(File, "[Part]\r\nName=  \"" + std::string(5000, 'x') + "\"  \r\n");
    EXPECT_EQ(std::string(4095, 'x'), Read(4096));
#ifdef NESK_PORTABLE_STATION
    // Wine cuts the value before it removes the quotes, so two characters are missing.
    EXPECT_EQ(std::string(5000, 'x'), Read(5001));
#endif
    EXPECT_EQ(std::string(5000, 'x'), Read(5003));
    EXPECT_EQ(std::string(5000, 'x'), Read(5002));
}

// Windows itself cannot read a file whose path is longer than 260 characters.
TEST_F(ProfileFileTest, ReadsAFileInADeepFolder) {
    std::string file = "C:\\Parts";
    for (int i = 0; i < 30; ++i)
        file += "\\folder of parts";
    file += "\\partinfo.ini";
    m_station.Write(file, "[Part]\r\nName= \"Geh\xE4use\" \r\n");
    EXPECT_EQ("Geh\u00E4use", ReadProfileString(file, "PART", " name ", "default", Capacity));
    EXPECT_EQ("Geh", ReadProfileString(file, "Part", "Name", "default", 4));
    EXPECT_EQ("default", ReadProfileString(file, "Part", "Nam", "default ", Capacity));
    EXPECT_EQ("default", ReadProfileString(file + "x", "Part", "Name", "default", Capacity));
}

TEST_F(ProfileFileTest, CountsBytesOfTheCodePage) {
    m_station.Write(File, "[Part]\r\nName=\xE4\xF6\xFC\x80\r\n");
    EXPECT_EQ("\u00E4\u00F6\u00FC", Read(4));
}

#ifdef NESK_PORTABLE_STATION
// Windows has only one code page, the system's own.
TEST_F(ProfileFileTest, CutsNoCharacterOfTwoBytes) {
    SelectCodePage(1041);
    m_station.Write(File, "[Part]\r\nName=\x95\x5C\x95\x69\r\n");
    EXPECT_EQ("\u8868\u54C1", Read(5));
    EXPECT_EQ("\u8868", Read(4));
    EXPECT_EQ("\u8868", Read(3));
    EXPECT_EQ("", Read(2));
}
#endif

TEST_F(ProfileFileTest, DropsTheBlanksBehindTheDefault) {
    EXPECT_EQ("  none", Read(Capacity, "  none   "));
    EXPECT_EQ("none\t", Read(Capacity, "none\t "));
#ifdef NESK_PORTABLE_STATION
    // Wine leaves one space.
    EXPECT_EQ("", Read(Capacity, "   "));
#endif
    EXPECT_EQ("no", Read(3, "none"));
    EXPECT_EQ("\u00E4\u00F6", Read(3, "\u00E4\u00F6\u00FC"));
    EXPECT_EQ("", Read(0, "none"));
}

TEST_F(ProfileFileTest, FindsTheFileWithoutRegardToCase) {
    m_station.Write("C:\\Parts\\PARTINFO.INI", "[Part]\r\nName=Bracket\r\n");
    EXPECT_EQ("Bracket", ReadProfileString("c:\\PARTS\\PartInfo.ini", "Part", "Name", "default", Capacity));
}

TEST_F(ProfileFileTest, AnswersTheDefaultForWhatIsNoFile) {
    EXPECT_EQ("default", Read());
    EXPECT_EQ("default", ReadProfileString("", "Part", "Name", "default", Capacity));
    EXPECT_EQ("default", ReadProfileString("\\\\server\\share\\x.ini", "Part", "Name", "default", Capacity));
    std::filesystem::create_directories(TempStation::Host(File));
    EXPECT_EQ("default", Read());
}

#ifdef NESK_PORTABLE_STATION
// Windows pipes are not in a folder.
TEST_F(ProfileFileTest, DoesNotWaitForAPipe) {
    std::filesystem::create_directories(TempStation::Host("C:\\Parts"));
    ASSERT_EQ(0, ::mkfifo(TempStation::Host(File).c_str(), 0600));
    // A blocking open never returns without a writer; with a writer, a read never returns.
    EXPECT_EQ("default", Read());
    const int both = ::open(TempStation::Host(File).c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_GE(both, 0);
    EXPECT_EQ("default", Read());
    ::close(both);
}

TEST_F(ProfileFileTest, FindsCharactersAcrossTheEndOfTheBuffer) {
    SelectCodePage(1041);
    for (std::size_t filler = 16360; filler < 16390; ++filler) {
        m_station.Write(File, ";" + std::string(filler, 'x') + "\r\n[Part]\r\nName=\x95\x5C\x95\x69\r\n");
        ASSERT_EQ("\u8868\u54C1", Read()) << filler;
    }
}

// Runs `action` in a child process, which has its own memory peak. Succeeds if the action returns true and
// the peak grows by less than 8 MB.
template <class Action>
::testing::AssertionResult NeedsLittleMemory(const Action& action) {
    const pid_t child = ::fork();
    if (child == 0) {
        rusage before{};
        ::getrusage(RUSAGE_SELF, &before);
        const bool right = action();
        rusage after{};
        ::getrusage(RUSAGE_SELF, &after);
        ::_exit(!right ? 2 : after.ru_maxrss - before.ru_maxrss < 8192 ? 0 : 3);
    }
    int status = 0;
    if (::waitpid(child, &status, 0) != child || !WIFEXITED(status))
        return ::testing::AssertionFailure() << "the process died";
    if (WEXITSTATUS(status) == 2) return ::testing::AssertionFailure() << "wrong answer";
    if (WEXITSTATUS(status) == 3) return ::testing::AssertionFailure() << "too much memory";
    return ::testing::AssertionSuccess();
}

TEST_F(ProfileFileTest, ReadsAHugeFileWithLittleMemory) {
    m_station.Write(File, "[Part]\r\nName=Bracket\r\n");
    const std::filesystem::path host = TempStation::Host(File);
    // A sparse file: zero bytes that form a single line.
    std::filesystem::resize_file(host, 2'000'000'000);
    EXPECT_TRUE(NeedsLittleMemory([] { return Read() == "Bracket"; }));

    std::filesystem::resize_file(host, 40'000'000);
    std::ofstream(host, std::ios::app | std::ios::binary) << "\r\n[Tool]\r\nName=Drill\r\n";
    EXPECT_TRUE(NeedsLittleMemory(
        [] { return ReadProfileString(File, "Tool", "Name", "default", Capacity) == "Drill"; }));
}

TEST_F(ProfileFileTest, ReadsAHugeValueWithLittleMemory) {
    m_station.Write(File, "[Part]\r\nName=\"" + std::string(20'000'000, 'x') + "\"\r\n");
    EXPECT_TRUE(NeedsLittleMemory([] { return Read() == std::string(4095, 'x'); }));
    // Windows never returns more than this, however large the buffer is.
    EXPECT_TRUE(NeedsLittleMemory([] { return Read(1'000'000'000) == std::string(65535, 'x'); }));
}
#endif

} // namespace
} // namespace nesk::platform
