#include "platform/common/CodePageTable.h"

#include "platform/TextEncoding.h"

#include <gtest/gtest.h>
#include <string>
#include <windows.h>

namespace nesk::platform {
namespace {

using common::CodePageTable;

char16_t Decode(int codePage, std::string_view bytes) {
    std::size_t length = 0;
    const char16_t character = CodePageTable::Get(codePage).Decode(bytes, length);
    return length == bytes.size() ? character : u'\0';
}

TEST(CodePageTable, HoldsTheCharactersOfEveryCodePage) {
    const struct {
        int codePage;
        const char* bytes;
        char16_t character;
    } table[] = {
        {874, "\xAA", u'\u0E0A'},     {932, "\x95\x94", u'\u90E8'}, {932, "\xB1", u'\uFF71'},
        {932, "\x83\x5C", u'\u30BD'}, {936, "\xC1\xE3", u'\u96F6'}, {936, "\x80", u'\u20AC'},
        {949, "\xC7\xD1", u'\uD55C'}, {950, "\xA3\xE1", u'\u20AC'}, {1250, "\xA3", u'\u0141'},
        {1251, "\xC4", u'\u0414'},    {1252, "\x80", u'\u20AC'},    {1252, "\xE4", u'\u00E4'},
        {1253, "\xCC", u'\u039C'},    {1254, "\xDD", u'\u0130'},    {1255, "\xE7", u'\u05D7'},
        {1256, "\xCC", u'\u062C'},    {1257, "\xE8", u'\u010D'},    {1258, "\xD0", u'\u0110'},
    };
    for (const auto& row : table) {
        const std::string bytes = row.bytes;
        EXPECT_EQ(row.character, Decode(row.codePage, bytes)) << row.codePage;
        const unsigned first = static_cast<unsigned char>(bytes[0]);
        const unsigned code = bytes.size() == 1 ? first : first * 256 + static_cast<unsigned char>(bytes[1]);
        EXPECT_EQ(code, CodePageTable::Get(row.codePage).Encode(row.character)) << row.codePage;
    }
}

// Bytes are written as they were read, unless they are a duplicate code of a character.
TEST(CodePageTable, WritesWhatItReads) {
    for (const int codePage :
         {874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        const CodePageTable& table = CodePageTable::Get(codePage);
        EXPECT_EQ(codePage, table.CodePage());
        int others = 0;
        for (unsigned pair = 0x8000; pair < 0x10000; ++pair) {
            const std::string bytes{static_cast<char>(pair >> 8), static_cast<char>(pair & 0xFF)};
            std::size_t length = 0;
            const char16_t character = table.Decode(bytes, length);
            if (character == 0) continue;
            const unsigned code = table.Encode(character);
            ASSERT_NE(0U, code) << codePage << " " << std::hex << pair;
            if (code == (length == 2 ? pair : pair >> 8)) continue;
            ++others;
            const std::string written{static_cast<char>(code >> 8), static_cast<char>(code & 0xFF)};
            ASSERT_EQ(character, Decode(codePage, written)) << codePage << " " << std::hex << pair;
        }
        EXPECT_EQ(codePage == 932 ? 398 : codePage == 950 ? 10 : 0, others) << codePage;
    }
}

TEST(CodePageTable, DecodesUnassignedBytesAsTheSystemDoes) {
    for (const char byte : {'\x81', '\x8D', '\x8F', '\x90', '\x9D'}) {
        const auto code = static_cast<unsigned char>(byte);
        EXPECT_EQ(code, Decode(1252, {&byte, 1}));
        EXPECT_EQ(code, CodePageTable::Get(1252).Encode(code));
    }
    // These bytes have a meaning only in the system's own tables.
    for (const auto& [codePage, bytes] :
         {std::pair(874, "\xDB"), std::pair(932, "\xFD"), std::pair(1253, "\xD2"), std::pair(1257, "\xA1"),
          std::pair(932, "\x83")})
        EXPECT_EQ(u'\0', Decode(codePage, bytes)) << codePage;
}

TEST(CodePageTable, ReplacesNothingByWhatLooksAlike) {
    for (const char16_t character :
         {u'\u0101', u'\u2010', u'\uFF21', u'\u2212', u'\u0410', u'\u2032', u'\u0080'})
        EXPECT_EQ(0U, CodePageTable::Get(1252).Encode(character)) << static_cast<unsigned>(character);
    for (const char16_t character : {u'\u00A5', u'\u00E4', u'\u2014', u'\u00A9'})
        EXPECT_EQ(0U, CodePageTable::Get(932).Encode(character)) << static_cast<unsigned>(character);
    EXPECT_EQ(0U, CodePageTable::Get(1252).Encode(0x1F527));
}

TEST(CodePageTable, ACodePageThatIsNotKnownIsTheWesternOne) {
    EXPECT_EQ(1252, CodePageTable::Get(4711).CodePage());
    EXPECT_EQ(1252, CodePageTable::Get(-1).CodePage());
}

TEST(TextEncoding, IsInTheSystemsCodePage) {
    EXPECT_EQ(static_cast<int>(::GetACP()), CodePage());
    SelectCodePage(1041);
    EXPECT_EQ(static_cast<int>(::GetACP()), CodePage()) << "which no language changes";
    for (unsigned byte = 0; byte < 0x100; ++byte) {
        const std::string bytes(1, static_cast<char>(byte));
        EXPECT_EQ(bytes, ToAnsi(FromAnsi(bytes))) << byte;
    }
}

TEST(TextEncoding, RaisesLettersAsTheSystemDoes) {
    EXPECT_EQ("GRÖßE ÉŸ ДЕТАЛЬ Σ Ａ", ToUpper("größe éÿ деталь σ ａ"));
    EXPECT_TRUE(EqualNoCase("Gehäuse", "GEHÄUSE"));
    EXPECT_FALSE(EqualNoCase("strasse", "straße"));
}

} // namespace
} // namespace nesk::platform
