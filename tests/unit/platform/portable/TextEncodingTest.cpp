#include "platform/TextEncoding.h"

#include <array>
#include <chrono>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace nesk::platform {
namespace {

using namespace std::string_literals;

struct Language {
    int id;
    int codePage;
};

void PrintTo(const Language& language, std::ostream* out) {
    *out << language.id << " " << language.codePage;
}

// One language for each code page.
const std::vector<Language> EveryCodePage = {
    {1054, 874},  {1041, 932},  {2052, 936},  {1042, 949},  {1028, 950},  {1045, 1250}, {1049, 1251},
    {1033, 1252}, {1032, 1253}, {1055, 1254}, {1037, 1255}, {1025, 1256}, {1061, 1257}, {1066, 1258},
};

std::string Bytes(unsigned first, unsigned second) {
    return {static_cast<char>(first), static_cast<char>(second)};
}

class TextEncodingTest : public ::testing::Test {
protected:
    TextEncodingTest() { SelectCodePage(1033); }
    ~TextEncodingTest() override { SelectCodePage(1033); }
};

class CodePageTest : public ::testing::TestWithParam<Language> {
protected:
    CodePageTest() { SelectCodePage(GetParam().id); }
    ~CodePageTest() override { SelectCodePage(1033); }
};
INSTANTIATE_TEST_SUITE_P(All, CodePageTest, ::testing::ValuesIn(EveryCodePage),
                         [](const auto& tested) { return std::to_string(tested.param.codePage); });

TEST_P(CodePageTest, IsSelected) {
    EXPECT_EQ(GetParam().codePage, CodePage());
}

TEST_P(CodePageTest, GivesEveryByteBack) {
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        ASSERT_EQ(bytes, ToAnsi(FromAnsi(bytes))) << std::hex << byte;
    }
}

// Two bytes are written as they were read, unless they are a duplicate code of a character.
TEST_P(CodePageTest, GivesEveryPairOfBytesBack) {
    int duplicates = 0;
    for (unsigned pair = 0; pair < 0x10000; ++pair) {
        const std::string bytes = Bytes(pair >> 8, pair & 0xFF);
        const std::string text = FromAnsi(bytes);
        const std::optional<std::string> again = ToAnsi(text);
        ASSERT_TRUE(again) << std::hex << pair;
        if (*again == bytes) continue;
        ++duplicates;
        ASSERT_EQ(text, FromAnsi(*again)) << std::hex << pair;
    }
    // The Japanese and traditional Chinese code pages contain some characters of several vendors' sets twice.
    EXPECT_EQ(CodePage() == 932 ? 398 : CodePage() == 950 ? 10 : 0, duplicates);
}

TEST_P(CodePageTest, DecodesTextInPiecesAsInOne) {
    // An ASCII character is always decoded by itself, so a line end is never swallowed.
    for (unsigned first = 0; first < 0x100; ++first)
        for (const char second : {'\n', '\r', '"', '=', ' ', ';'}) {
            const std::string before(1, static_cast<char>(first));
            ASSERT_EQ(FromAnsi(before) + second, FromAnsi(before + second)) << std::hex << first;
        }
}

TEST_P(CodePageTest, LeavesAsciiAlone) {
    std::string ascii;
    for (char c = 0; c < 127; ++c)
        ascii += c;
    ascii += '\x7F';
    EXPECT_EQ(ascii, FromAnsi(ascii));
    EXPECT_EQ(ascii, ToAnsi(ascii));
}

TEST_P(CodePageTest, RefusesWhatIsInNoCodePage) {
    for (const char* text : {"\U0001F527", "\uFFFD", "\u1200", "\U0010FDFF", "\U0010FF00", "x\U00020000y"})
        EXPECT_EQ(std::nullopt, ToAnsi(text)) << text;
}

TEST_F(TextEncodingTest, KnowsTheCodePageOfALanguage) {
    const std::vector<Language> languages = {
        {1041, 932},  {1042, 949},  {1028, 950},  {2052, 936},  {1045, 1250}, {1029, 1250},
        {1038, 1250}, {1050, 1250}, {1051, 1250}, {1048, 1250}, {1060, 1250}, {1049, 1251},
        {1026, 1251}, {1058, 1251}, {1032, 1253}, {1055, 1254}, {1037, 1255}, {1025, 1256},
        {1061, 1257}, {1062, 1257}, {1063, 1257}, {1066, 1258}, {1054, 874},  {1031, 1252},
        {1036, 1252}, {1033, 1252}, {2057, 1252}, {0, 1252},    {-1, 1252},   {99999, 1252}};
    for (const Language& language : languages) {
        EXPECT_EQ(language.codePage, CodePageOfLanguage(language.id)) << language.id;
        SelectCodePage(language.id);
        EXPECT_EQ(language.codePage, CodePage()) << language.id;
    }
}

TEST_F(TextEncodingTest, ConvertsWesternText) {
    EXPECT_EQ("Gr\u00F6\u00DFe \u20AC\u2122\u0152", FromAnsi("Gr\xF6\xDF\x65 \x80\x99\x8C"));
    EXPECT_EQ("Gr\xF6\xDF\x65 \x80\x99\x8C", ToAnsi("Gr\u00F6\u00DFe \u20AC\u2122\u0152"));
}

TEST_F(TextEncodingTest, ConvertsTextOfOtherLanguages) {
    struct Sample {
        int language;
        const char* bytes;
        const char* text;
    };
    for (const Sample& sample : std::vector<Sample>{
             {1041, "\x95\x94\x95\x69\xB1\x20\x83\x5C\xFA\x5C", "\u90E8\u54C1\uFF71 \u30BD\u7E8A"},
             {1042, "\xC7\xD1\xB1\xB9\x81\x41", "\uD55C\uAD6D\uAC02"},
             {2052, "\xC1\xE3\xBC\xFE\x80", "\u96F6\u4EF6\u20AC"},
             {1028, "\xB9\x73\xA5\xF3\xA3\xE1", "\u96F6\u4EF6\u20AC"},
             {1045, "\xA3\xF3\x64\x9F\x80", "\u0141\u00F3d\u017A\u20AC"},
             {1049, "\xC4\xE5\xF2\xE0\xEB\xFC\x88", "\u0414\u0435\u0442\u0430\u043B\u044C\u20AC"},
             {1032, "\xCC\xDD\xF1\xEF\xF2\x80", "\u039C\u03AD\u03C1\u03BF\u03C2\u20AC"},
             {1055, "\xDD\xFD\xDE\xFE\xD0", "\u0130\u0131\u015E\u015F\u011E"},
             {1037, "\xE7\xEC\xF7\xA4", "\u05D7\u05DC\u05E7\u20AA"},
             {1025, "\xCC\xD2\xC1\x90", "\u062C\u0632\u0621\u06AF"},
             {1061, "\xD5\xF5\xE8\x80", "\u00D5\u00F5\u010D\u20AC"},
             {1066, "\xD0\xF0\x61\xEC\xFE", "\u0110\u0111a\u0301\u20AB"},
             {1054, "\xAA\xD4\xE9\xB9\x80", "\u0E0A\u0E34\u0E49\u0E19\u20AC"},
         }) {
        SelectCodePage(sample.language);
        EXPECT_EQ(sample.text, FromAnsi(sample.bytes)) << sample.language;
        EXPECT_EQ(sample.bytes, ToAnsi(sample.text)) << sample.language;
    }
}

TEST_F(TextEncodingTest, DecodesUnassignedBytesAsWindowsDoes) {
    EXPECT_EQ("\u0081\u008D\u008F\u0090\u009D", FromAnsi("\x81\x8D\x8F\x90\x9D"));
    EXPECT_EQ("\x81\x8D\x8F\x90\x9D", ToAnsi("\u0081\u008D\u008F\u0090\u009D"));
    // 0x80 is the euro sign, so U+0080 has no byte.
    EXPECT_EQ(std::nullopt, ToAnsi("\u0080"));
}

TEST_F(TextEncodingTest, EscapesAByteThatCannotBeDecoded) {
    SelectCodePage(1041);
    EXPECT_EQ("\U0010FEFF", FromAnsi("\xFF"));
    EXPECT_EQ("\xFF", ToAnsi("\U0010FEFF"));
    SelectCodePage(1032);
    EXPECT_EQ("a\U0010FED2b", FromAnsi("a\xD2"
                                       "b"));
}

TEST_F(TextEncodingTest, GoesOnWithTheByteBehindABrokenCharacter) {
    SelectCodePage(1041);
    EXPECT_EQ("\U0010FE83\n", FromAnsi("\x83\n"));
    EXPECT_EQ("\U0010FE83\U0010FEFD\u30BD", FromAnsi("\x83\xFD\x83\x5C"));
    EXPECT_EQ("x\U0010FE83", FromAnsi("x\x83"));
    EXPECT_EQ("\u90E8\U0010FE95", FromAnsi("\x95\x94\x95"));
    SelectCodePage(1042);
    EXPECT_EQ("\U0010FEC9\u0020", FromAnsi("\xC9 "));
}

TEST_F(TextEncodingTest, TakesBackEscapedBytesOfEveryKind) {
    for (char32_t byte = 0x80; byte <= 0xFF; ++byte) {
        // U+10FE80 to U+10FEFF in UTF-8.
        const std::string escaped = {'\xF4', '\x8F', static_cast<char>(0xB8 + (byte >> 6)),
                                     static_cast<char>(0x80 + (byte & 0x3F))};
        EXPECT_EQ(std::string(1, static_cast<char>(byte)), ToAnsi(escaped)) << static_cast<unsigned>(byte);
    }
}

TEST_F(TextEncodingTest, TakesNoEscapedAscii) {
    EXPECT_EQ(std::nullopt, ToAnsi("\U0010FE0A"));
    EXPECT_EQ(std::nullopt, ToAnsi("\U0010FE00"));
    EXPECT_EQ(std::nullopt, ToAnsi("\U0010FE7F"));
}

TEST_F(TextEncodingTest, WritesTheCodeThatWindowsWritesWhereThereAreSeveral) {
    SelectCodePage(1041);
    const std::vector<std::pair<const char*, const char*>> codes = {
        {"\xFA\x4A", "\x87\x54"}, // Roman numeral one
        {"\xED\x40", "\xFA\x5C"}, {"\xFA\x5B", "\x81\xE6"}, {"\x87\x9A", "\x81\xE6"},
        {"\xEE\xF9", "\x81\xCA"}, {"\xFA\x58", "\x87\x8A"},
    };
    for (const auto& [read, written] : codes) {
        EXPECT_EQ(FromAnsi(written), FromAnsi(read));
        EXPECT_EQ(written, ToAnsi(FromAnsi(read)));
    }
}

TEST_F(TextEncodingTest, ReplacesNothingByWhatLooksAlike) {
    for (const char* text : {"\u0101", "\u2010", "\uFF21", "\u00A0\u2212", "\u0410", "\u2032", "e\u0301"})
        EXPECT_EQ(std::nullopt, ToAnsi(text)) << text;
    SelectCodePage(1041);
    for (const char* text : {"\u00A5", "\u00E4", "\u2014\u00A9"})
        EXPECT_EQ(std::nullopt, ToAnsi(text)) << text;
}

TEST_F(TextEncodingTest, RefusesTextThatIsNoUtf8) {
    for (const char* text :
         {"\xE4", "x\xC3", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xE2\x82", "\x80"})
        EXPECT_EQ(std::nullopt, ToAnsi(text));
}

TEST_F(TextEncodingTest, KeepsZeroBytes) {
    EXPECT_EQ("a\0\u00E4\0"s, FromAnsi("a\0\xE4\0"s));
    EXPECT_EQ("a\0\xE4\0"s, ToAnsi("a\0\u00E4\0"s));
    EXPECT_EQ("", FromAnsi(""));
    EXPECT_EQ("", ToAnsi(""));
}

TEST_F(TextEncodingTest, FindsAByteAboveAsciiAnywhere) {
    for (std::size_t length = 1; length < 40; ++length)
        for (std::size_t at = 0; at < length; ++at) {
            std::string bytes(length, 'x');
            bytes[at] = '\xE4';
            std::string text(length, 'x');
            text.replace(at, 1, "\u00E4");
            ASSERT_EQ(text, FromAnsi(bytes));
            ASSERT_EQ(bytes, ToAnsi(text));
        }
}

TEST_F(TextEncodingTest, ConvertsWhileAnotherThreadSelects) {
    std::thread other([] {
        for (int i = 0; i < 2000; ++i)
            SelectCodePage(i % 2 == 0 ? 1041 : 1033);
    });
    int strange = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string text = FromAnsi("\x83\x5C");
        if (text != "\u30BD" && text != "\u0192\\") ++strange;
    }
    other.join();
    EXPECT_EQ(0, strange);
}

TEST(ToUpperTest, RaisesEachCharacter) {
    EXPECT_EQ("ABCXYZ[]{}@`019", ToUpper("abcxyz[]{}@`019"));
    EXPECT_EQ("\u00C4\u00D6\u00DC\u00C9\u0178", ToUpper("\u00E4\u00F6\u00FC\u00E9\u00FF"));
    EXPECT_EQ("\u0414\u0415\u0422\u0410\u041B\u042C", ToUpper("\u0434\u0435\u0442\u0430\u043B\u044C"));
    EXPECT_EQ("\uFF21", ToUpper("\uFF41"));
    // Windows converts only characters of the basic plane whose upper case converts back.
    EXPECT_EQ("\u03A3\u03C2", ToUpper("\u03C3\u03C2"));
    EXPECT_EQ("\u0131\u00B5", ToUpper("\u0131\u00B5"));
    EXPECT_EQ("\U00010428", ToUpper("\U00010428"));
}

TEST(ToUpperTest, NeverChangesTheNumberOfCharacters) {
    EXPECT_EQ("STRA\u00DF\u0045", ToUpper("stra\u00DFe"));
    EXPECT_EQ("\uFB01", ToUpper("\uFB01"));
    EXPECT_EQ("\u0149", ToUpper("\u0149"));
}

TEST(ToUpperTest, LeavesWhatIsNoUtf8) {
    EXPECT_EQ("A\xE4"
              "B\xC3",
              ToUpper("a\xE4"
                      "b\xC3"));
    EXPECT_EQ("\xED\xA0\x80", ToUpper("\xED\xA0\x80"));
    EXPECT_EQ("\xFF\xC4", ToUpper("\xFF\xC4"));
    EXPECT_EQ("A\0B"s, ToUpper("a\0b"s));
}

TEST(EqualNoCaseTest, ComparesRegardlessOfCase) {
    EXPECT_TRUE(EqualNoCase("", ""));
    EXPECT_TRUE(EqualNoCase("Part", "pART"));
    EXPECT_TRUE(EqualNoCase("GR\u00D6\u00DF\u0045", "gr\u00F6\u00DFe"));
    EXPECT_TRUE(EqualNoCase("\xE4x", "\xE4X"));
    EXPECT_FALSE(EqualNoCase("Part", "Parts"));
    EXPECT_FALSE(EqualNoCase("strasse", "stra\u00DFe"));
    EXPECT_FALSE(EqualNoCase("a", "\u00E4"));
}

} // namespace
} // namespace nesk::platform
