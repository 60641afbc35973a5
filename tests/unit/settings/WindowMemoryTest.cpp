#include "settings/WindowMemory.h"

#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

#include <filesystem>

namespace nesk {
namespace {

// A failure of the registry must show no message, so each test fails on one.
class WindowMemoryTest : public testing::CoreTest {
protected:
    static std::string Stored() {
        RegEntry entry;
        if (!entry.TestKey("NeskManager")) return "no key";
        entry.OpenKey("NeskManager");
        std::vector<RegValue> values;
        entry.QueryValues(values);
        std::string text;
        for (const RegValue& value : values)
            text += value.name + "=" + value.data + "\n";
        return text;
    }

    static void Store(const char* name, const char* text) {
        RegEntry entry;
        entry.CreateKey("NeskManager");
        entry.SetString(name, text);
    }

    WindowMemory memory;
};

TEST_F(WindowMemoryTest, WithoutAKeyNothingIsRemembered) {
    memory.Load();
    EXPECT_EQ(memory.Number("Left"), std::nullopt);
    EXPECT_TRUE(memory.Flag("ToolBar", true));
    EXPECT_FALSE(memory.Flag("ToolBar", false));
}

TEST_F(WindowMemoryTest, WhatIsSavedIsLoaded) {
    memory.Load();
    memory.SetNumber("Left", -1200);
    memory.SetNumber("Column.Fields", 180);
    memory.SetFlag("ToolBar", false, true);
    EXPECT_TRUE(memory.Save());
    WindowMemory next;
    next.Load();
    EXPECT_EQ(next.Number("Left"), -1200);
    EXPECT_EQ(next.Number("Column.Fields"), 180);
    EXPECT_FALSE(next.Flag("ToolBar", true));
}

TEST_F(WindowMemoryTest, TextsAreRememberedUnlessTheyAreEmpty) {
    memory.Load();
    EXPECT_EQ(memory.Text("Pattern"), std::nullopt);
    memory.SetText("Pattern", "*.bmp");
    memory.SetText("Empty", "");
    memory.SetText("Unknown", "日"); // not in the code page; it must not keep the others from being stored
    EXPECT_TRUE(memory.Save());
    EXPECT_EQ(Stored(), "Pattern=*.bmp\n");
    WindowMemory next;
    next.Load();
    EXPECT_EQ(next.Text("Pattern"), "*.bmp");
    next.SetText("Pattern", "");
    EXPECT_EQ(next.Text("Pattern"), std::nullopt);
    EXPECT_TRUE(next.Save());
    EXPECT_EQ(Stored(), "");
}

TEST_F(WindowMemoryTest, NothingNewWritesNothing) {
    memory.Load();
    memory.SetFlag("ToolBar", true, true);
    EXPECT_TRUE(memory.Save());
    EXPECT_EQ(Stored(), "no key");
}

TEST_F(WindowMemoryTest, OnlyWhatDiffersIsWritten) {
    Store("Left", "10");
    Store("Top", "20");
    memory.Load();
    // Another program writes meanwhile.
    Store("Top", "99");
    memory.SetNumber("Left", 11);
    memory.SetNumber("Top", 20);
    EXPECT_TRUE(memory.Save());
    EXPECT_EQ(Stored(), "Left=11\nTop=99\n");
}

TEST_F(WindowMemoryTest, AFlagGoesBackToItsDefault) {
    Store("ToolBar", "false");
    memory.Load();
    memory.SetFlag("ToolBar", true, true);
    EXPECT_TRUE(memory.Save());
    EXPECT_EQ(Stored(), "ToolBar=true\n");
}

TEST_F(WindowMemoryTest, TextsThatMakeNoSenseAreIgnored) {
    for (const char* text : {"", "wide", "12x", " 12", "1.5", "99999999999", "0x10", "-"}) {
        Store("Left", text);
        memory.Load();
        EXPECT_EQ(memory.Number("Left"), std::nullopt) << text;
    }
    Store("ToolBar", "perhaps");
    memory.Load();
    EXPECT_TRUE(memory.Flag("ToolBar", true));
    EXPECT_FALSE(memory.Flag("ToolBar", false));
}

TEST_F(WindowMemoryTest, ARegistryThatDoesNotWorkIsIgnored) {
    station.BreakSettings();
    memory.Load();
    memory.SetNumber("Left", 1);
    EXPECT_FALSE(memory.Save());
    EXPECT_TRUE(messages.empty());
}

} // namespace
} // namespace nesk
