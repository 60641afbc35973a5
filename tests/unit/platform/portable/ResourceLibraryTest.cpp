#include "platform/ResourceLibrary.h"

#include "platform/TextEncoding.h"
#include "unit/platform/TempStation.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <gtest/gtest.h>
#include <ostream>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace nesk::platform {
namespace {

constexpr const char* formatLine = "NeskManager string table 1\n";

class ResourceLibraryTest : public ::testing::Test {
protected:
    ResourceLibraryTest() { SelectCodePage(1033); }
    ~ResourceLibraryTest() override {
        FreeModule(m_module);
        SelectCodePage(1033);
    }

    // Loads a library with these lines after its first line.
    ModuleHandle Load(const std::string& lines) { return LoadFile(formatLine + lines); }

    ModuleHandle LoadFile(const std::string& content) {
        FreeModule(m_module);
        m_station.Write("C:\\Bin\\ENU35000.DLL", content);
        m_module = LoadModule("C:\\Bin\\ENU35000.DLL");
        return m_module;
    }

    // Reads string `id` through a buffer of `capacity` bytes and checks that nothing is written after it.
    std::string Read(std::uint32_t id, int capacity = 1024) {
        std::array<char, 1200> buffer;
        buffer.fill('#');
        const int length = ReadModuleString(m_module, id, buffer.data(), capacity);
        EXPECT_GE(length, 0);
        EXPECT_LT(length, capacity);
        const auto size = static_cast<std::size_t>(length);
        EXPECT_EQ('\0', buffer[size]);
        EXPECT_EQ('#', buffer[size + 1]);
        return {buffer.data(), size};
    }

    TempStation m_station;
    ModuleHandle m_module = 0;
};

TEST_F(ResourceLibraryTest, ReadsStringsByNumber) {
    ASSERT_NE(0U, Load("35000\tText %0% is missing.\n35014\tOpen\n35999\tClose\n"));
    EXPECT_EQ("Text %0% is missing.", Read(35000));
    EXPECT_EQ("Open", Read(35014));
    EXPECT_EQ("Close", Read(35999));
}

TEST_F(ResourceLibraryTest, UndoesEscapes) {
    ASSERT_NE(0U, Load("35001\tOne\\nTwo\\tThree\\\\nFour\n"));
    EXPECT_EQ("One\nTwo\tThree\\nFour", Read(35001));
}

TEST_F(ResourceLibraryTest, KeepsTabsAfterTheFirst) {
    ASSERT_NE(0U, Load("35001\tOne\tTwo\n"));
    EXPECT_EQ("One\tTwo", Read(35001));
}

TEST_F(ResourceLibraryTest, MissingStringIsEmpty) {
    ASSERT_NE(0U, Load("35001\tOne\n"));
    EXPECT_EQ("", Read(35002));
}

TEST_F(ResourceLibraryTest, LibraryWithoutStringsLoads) {
    ASSERT_NE(0U, Load(""));
    EXPECT_EQ("", Read(35000));
}

TEST_F(ResourceLibraryTest, EncodesForTheCodePage) {
    ASSERT_NE(0U, Load("35001\tGeh\xC3\xA4use \xE2\x82\xAC\n"));
    EXPECT_EQ("Geh\xE4use \x80", Read(35001));
}

TEST_F(ResourceLibraryTest, EachCharacterOutsideTheCodePageIsAQuestionMark) {
    // Two kanji and a character beyond the basic plane, with letters around them.
    ASSERT_NE(0U, Load("35001\ta\xE6\x97\xA5\xE6\x9C\xAC"
                       "b\xF0\x9F\x94\xA7\xC3\xA4\n"));
    EXPECT_EQ("a??b?\xE4", Read(35001));
}

TEST_F(ResourceLibraryTest, CutsAtTheBuffer) {
    ASSERT_NE(0U, Load("35001\tabcdef\n"));
    EXPECT_EQ("abcdef", Read(35001, 7));
    EXPECT_EQ("abcde", Read(35001, 6));
    EXPECT_EQ("", Read(35001, 1));
}

TEST_F(ResourceLibraryTest, CutsBetweenCharactersOfTwoBytes) {
    SelectCodePage(1041);
    ASSERT_NE(0U, Load("35001\t\xE6\x97\xA5\xE6\x9C\xAC\n"));
    EXPECT_EQ("\x93\xFA\x96\x7B", Read(35001, 5));
    EXPECT_EQ("\x93\xFA", Read(35001, 4));
    EXPECT_EQ("\x93\xFA", Read(35001, 3));
    EXPECT_EQ("", Read(35001, 2));
}

TEST_F(ResourceLibraryTest, CutsWhatItReplaces) {
    ASSERT_NE(0U, Load("35001\t\xE6\x97\xA5\xE6\x9C\xAC"
                       "b\n"));
    EXPECT_EQ("??", Read(35001, 3));
}

TEST_F(ResourceLibraryTest, LongestString) {
    ASSERT_NE(0U, Load("35001\t" + std::string(1500, 'x') + "\n"));
    EXPECT_EQ(std::string(1023, 'x'), Read(35001));
}

TEST_F(ResourceLibraryTest, NoBufferIsNoString) {
    ASSERT_NE(0U, Load("35001\tOne\n"));
    char unused = '#';
    EXPECT_EQ(0, ReadModuleString(m_module, 35001, nullptr, 10));
    EXPECT_EQ(0, ReadModuleString(m_module, 35001, &unused, 0));
    EXPECT_EQ(0, ReadModuleString(m_module, 35001, &unused, -1));
    EXPECT_EQ('#', unused);
}

TEST_F(ResourceLibraryTest, FreedLibraryAnswersNothing) {
    const ModuleHandle module = Load("35001\tOne\n");
    FreeModule(module);
    EXPECT_EQ("", Read(35001));
    FreeModule(module);
    FreeModule(0);
}

TEST_F(ResourceLibraryTest, LibrariesAreIndependent) {
    const ModuleHandle first = Load("35001\tOne\n");
    m_station.Write("C:\\Bin\\DEU35000.DLL", std::string(formatLine) + "35001\tEins\n");
    const ModuleHandle second = LoadModule("C:\\Bin\\DEU35000.DLL");
    ASSERT_NE(0U, second);
    EXPECT_NE(first, second);
    EXPECT_EQ("One", Read(35001));
    FreeModule(second);
    EXPECT_EQ("One", Read(35001));
}

TEST_F(ResourceLibraryTest, FindsTheFileAsWindowsDoes) {
    Load("35001\tOne\n");
    const ModuleHandle other = LoadModule("c:\\bin\\\\enu35000.dll");
    EXPECT_NE(0U, other);
    FreeModule(other);
}

TEST_F(ResourceLibraryTest, MissingFileIsNoLibrary) {
    EXPECT_EQ(0U, LoadModule("C:\\Bin\\ENU35000.DLL"));
    EXPECT_EQ(0U, LoadModule(""));
}

TEST_F(ResourceLibraryTest, FolderIsNoLibrary) {
    Load("");
    EXPECT_EQ(0U, LoadModule("C:\\Bin"));
}

TEST_F(ResourceLibraryTest, AHundredThousandStrings) {
    std::string lines;
    for (int number = 1; number <= 100'000; ++number)
        lines += std::to_string(number) + "\tText " + std::to_string(number) + "\n";
    ASSERT_NE(0U, Load(lines));
    EXPECT_EQ("Text 1", Read(1));
    EXPECT_EQ("Text 100000", Read(100'000));
    EXPECT_EQ("", Read(100'001));
}

// A truncated library is refused, unless it was cut between two lines.
TEST_F(ResourceLibraryTest, CutAnywhere) {
    const std::string whole =
        formatLine + std::string("35001\tGeh\xC3\xA4use\n35002\tOne\\nTwo\n35003\tThree\n");
    int loaded = 0;
    for (std::size_t size = 0; size <= whole.size(); ++size) {
        const bool wholeLines = size >= std::string_view(formatLine).size() && whole[size - 1] == '\n';
        EXPECT_EQ(LoadFile(whole.substr(0, size)) != 0, wholeLines) << size;
        loaded += wholeLines ? 1 : 0;
    }
    EXPECT_EQ(loaded, 4);
}

TEST_F(ResourceLibraryTest, WhatIsNoFileIsNoLibrary) {
    Load("");
    const std::filesystem::path file = TempStation::Host("C:\\Bin\\ENU35000.DLL");
    std::filesystem::remove(file);
    for (const std::filesystem::path& target : {std::filesystem::path("/dev/zero"), file}) {
        std::filesystem::create_symlink(target, file);
        EXPECT_EQ(0U, LoadModule("C:\\Bin\\ENU35000.DLL")) << target;
        std::filesystem::remove(file);
    }
    ASSERT_EQ(0, ::mkfifo(file.c_str(), 0600));
    EXPECT_EQ(0U, LoadModule("C:\\Bin\\ENU35000.DLL")) << "a pipe, and it does not wait";
}

TEST_F(ResourceLibraryTest, AFileOfTwoGigabytesIsNoLibrary) {
    Load("35001\tOne\n");
    std::filesystem::resize_file(TempStation::Host("C:\\Bin\\ENU35000.DLL"), 2'000'000'000);
    EXPECT_EQ(0U, LoadModule("C:\\Bin\\ENU35000.DLL"));
}

struct Damaged {
    const char* what;
    std::string content;
};

void PrintTo(const Damaged& damaged, std::ostream* out) {
    *out << damaged.what;
}

class DamagedLibraryTest : public ResourceLibraryTest, public ::testing::WithParamInterface<Damaged> {};

TEST_P(DamagedLibraryTest, IsRefused) {
    EXPECT_EQ(0U, LoadFile(GetParam().content)) << GetParam().what;
}

const std::string first = formatLine;

INSTANTIATE_TEST_SUITE_P(
    Files, DamagedLibraryTest,
    ::testing::Values(
        Damaged{"empty file", ""}, Damaged{"a Windows module", std::string("MZ\x90\0\3\0", 6)},
        Damaged{"part of the first line", "NeskManager string table"},
        Damaged{"first line without its end", "NeskManager string table 1"},
        Damaged{"other version", "NeskManager string table 2\n35001\tOne\n"},
        Damaged{"byte order mark", "\xEF\xBB\xBF" + first},
        Damaged{"last line without its end", first + "35001\tOne"},
        Damaged{"empty line", first + "\n35001\tOne\n"}, Damaged{"line without a tab", first + "35001 One\n"},
        Damaged{"no number", first + "\tOne\n"}, Damaged{"letters in the number", first + "35x\tOne\n"},
        Damaged{"negative number", first + "-1\tOne\n"},
        Damaged{"blank before the number", first + " 35001\tOne\n"},
        Damaged{"number beyond 32 bits", first + "4294967296\tOne\n"},
        Damaged{"number twice", first + "35001\tOne\n35001\tTwo\n"},
        Damaged{"numbers out of order", first + "35002\tTwo\n35001\tOne\n"},
        Damaged{"unknown escape", first + "35001\tOne\\q\n"},
        Damaged{"backslash at the end", first + "35001\tOne\\\n"},
        Damaged{"byte that is not UTF-8", first + "35001\tGeh\xE4use\n"},
        Damaged{"stray continuation byte", first + "35001\t\x80\n"},
        Damaged{"cut character", first + "35001\t\xE2\x82\n"},
        Damaged{"overlong form of two bytes", first + "35001\t\xC0\xAF\n"},
        Damaged{"overlong form of three bytes", first + "35001\t\xE0\x80\xAF\n"},
        Damaged{"overlong form of four bytes", first + "35001\t\xF0\x80\x80\xAF\n"},
        Damaged{"surrogate", first + "35001\t\xED\xA0\x80\n"},
        Damaged{"beyond the last character", first + "35001\t\xF4\x90\x80\x80\n"},
        Damaged{"byte no character begins with", first + "35001\t\xF8\x88\x80\x80\x80\n"},
        Damaged{"larger than any library", first + "35001\t" + std::string(17U << 20U, 'x') + "\n"}));

} // namespace
} // namespace nesk::platform
