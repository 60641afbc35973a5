#include "platform/ResourceLibrary.h"

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"
#include "unit/FileBytes.h"
#include "unit/platform/StringLibrary.h"

#include <array>
#include <gtest/gtest.h>
#include <utility>
#include <windows.h>
// The Windows headers define this name as a macro.
#undef FreeModule

namespace nesk::platform {
namespace {

using nesk::testing::FileBytes;
using nesk::testing::WriteStringLibrary;

const std::string Path = "C:\\Bin\\ENU45000.DLL";

class ResourceLibraryTest : public ::testing::Test {
protected:
    ~ResourceLibraryTest() override { Unload(); }

    // The file of a loaded module can be neither written nor removed.
    void Unload() { FreeModule(std::exchange(module, 0)); }

    ModuleHandle Load(const std::string& path = Path) {
        Unload();
        module = LoadModule(path);
        return module;
    }

    ModuleHandle Load(const std::map<std::uint16_t, std::string>& strings) {
        Unload();
        WriteStringLibrary(station, Path, strings);
        return Load();
    }

    // Reads string `id` through a buffer of `capacity` bytes and checks that nothing is written after it.
    std::string Read(std::uint32_t id, int capacity = 1024) const {
        std::array<char, 1200> buffer;
        buffer.fill('#');
        const int length = ReadModuleString(module, id, buffer.data(), capacity);
        EXPECT_GE(length, 0);
        EXPECT_LT(length, capacity);
        const auto size = static_cast<std::size_t>(length);
        EXPECT_EQ('\0', buffer[size]);
        EXPECT_EQ('#', buffer[static_cast<std::size_t>(capacity)]);
        return {buffer.data(), size};
    }

    TempStation station;
    ModuleHandle module = 0;
};

TEST_F(ResourceLibraryTest, ReadsStringsByNumber) {
    ASSERT_NE(0U, Load({{45000, "Text %0% is missing."}, {45015, "One\nTwo\tThree"}, {45016, "Close"}}));
    EXPECT_EQ("Text %0% is missing.", Read(45000));
    EXPECT_EQ("One\nTwo\tThree", Read(45015));
    EXPECT_EQ("Close", Read(45016)) << "the first of the next block";
}

TEST_F(ResourceLibraryTest, AMissingStringIsEmpty) {
    ASSERT_NE(0U, Load({{45001, "One"}}));
    for (const std::uint32_t id : {0U, 45000U, 45002U, 45017U, 65535U, 65536U + 45001U})
        EXPECT_EQ("", Read(id)) << id;
    ASSERT_NE(0U, Load(ProgramFolder() + "\\FakePartInfoEditor.dll"));
    EXPECT_EQ("", Read(45001)) << "a module without any";
}

TEST_F(ResourceLibraryTest, FindsWhatBelongsToNoLanguageWhateverTheUsersIs) {
    ASSERT_NE(0U, Load({{45001, "neutral"}}));
    const LANGID before = ::GetThreadUILanguage();
    for (const int language : {LANG_JAPANESE, LANG_GERMAN, LANG_ENGLISH}) {
        ::SetThreadUILanguage(static_cast<LANGID>(MAKELANGID(language, SUBLANG_DEFAULT)));
        EXPECT_EQ("neutral", Read(45001)) << language;
    }
    ::SetThreadUILanguage(before);
}

TEST_F(ResourceLibraryTest, ReadsTheProgramsOwnLibraries) {
    ASSERT_NE(0U, Load(ProgramFolder() + "\\ENU34000.DLL"));
    EXPECT_EQ("NeskManager", Read(34001));
}

TEST_F(ResourceLibraryTest, EncodesForTheCodePage) {
    ASSERT_NE(0U, Load({{45001, "Gehäuse €"}, {45002, "a部品b"}}));
    EXPECT_EQ("Geh\xE4use \x80", Read(45001));
    EXPECT_EQ("a??b", Read(45002)) << "a question mark for what it lacks";
}

TEST_F(ResourceLibraryTest, CutsAtTheBuffer) {
    ASSERT_NE(0U, Load({{45001, "abcdef"}}));
    EXPECT_EQ("abcdef", Read(45001, 8));
    EXPECT_EQ("abcdef", Read(45001, 7));
    EXPECT_EQ("abcde", Read(45001, 6));
    EXPECT_EQ("", Read(45001, 1));
}

TEST_F(ResourceLibraryTest, CutsAtTheLimitOfItsCallers) {
    ASSERT_NE(0U, Load({{45001, std::string(1023, 'a')},
                        {45002, std::string(1024, 'b')},
                        {45003, std::string(5000, 'c')},
                        {45004, "behind the long ones"}}));
    EXPECT_EQ(std::string(1023, 'a'), Read(45001));
    EXPECT_EQ(std::string(1023, 'b'), Read(45002));
    EXPECT_EQ(std::string(1023, 'c'), Read(45003));
    EXPECT_EQ("behind the long ones", Read(45004));
}

TEST_F(ResourceLibraryTest, NoBufferIsNoString) {
    ASSERT_NE(0U, Load({{45001, "One"}}));
    char unused = '#';
    EXPECT_EQ(0, ReadModuleString(module, 45001, nullptr, 10));
    EXPECT_EQ(0, ReadModuleString(module, 45001, &unused, 0));
    EXPECT_EQ(0, ReadModuleString(module, 45001, &unused, -1));
    EXPECT_EQ('#', unused);
}

TEST_F(ResourceLibraryTest, NoModuleIsNotTheProgramItself) {
    EXPECT_EQ("", Read(34001));
    FreeModule(0);
}

TEST_F(ResourceLibraryTest, RunsNoCodeOfTheModule) {
    ASSERT_NE(0U, Load(ProgramFolder() + "\\FakePartInfoEditor.dll"));
    EXPECT_EQ("", Read(45001));
    EXPECT_EQ(nullptr, ::GetModuleHandleW(L"FakePartInfoEditor.dll")) << "it is there for its strings alone";
}

TEST_F(ResourceLibraryTest, WhatIsNoModuleIsRefused) {
    EXPECT_EQ(0U, Load()) << "there is none";
    EXPECT_EQ(0U, Load(""));
    EXPECT_EQ(0U, Load("C:\\None\\ENU45000.DLL"));
    for (const std::string& bytes :
         {std::string(), std::string("MZ"), std::string("MZ\x90\0\3\0", 6), std::string(4096, '\0'),
          std::string("NeskManager string table 1\n45001\tOne\n"), std::string(100000, 'x')}) {
        station.Write(Path, bytes);
        EXPECT_EQ(0U, Load()) << bytes.substr(0, 30);
    }
    EXPECT_EQ(0U, Load("C:\\Bin")) << "a folder";
}

TEST_F(ResourceLibraryTest, WhatIsLeftOfADamagedModuleDoesNoHarm) {
    WriteStringLibrary(station, Path, {{45001, "One"}});
    const std::string whole = FileBytes(Path);
    ASSERT_GT(whole.size(), 1024U);
    // A truncated copy is refused or loads with or without the string; nothing else may happen.
    int refused = 0;
    for (std::size_t size = 0; size < whole.size(); size += 64) {
        station.Write(Path, whole.substr(0, size));
        if (Load() == 0) ++refused;
        const std::string text = Read(45001);
        EXPECT_TRUE(text.empty() || text == "One") << size << " " << text;
        Unload();
    }
    EXPECT_GT(refused, 4) << "at least where the headers are not whole";
}

} // namespace
} // namespace nesk::platform
