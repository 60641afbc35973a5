#include "settings/AccessCode.h"

#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

using modStringRes::LoadResString;

class AccessCodeTest : public testing::CoreTest {
protected:
    AccessCodeTest() { NeskRegistry::Instance() = NeskRegistry(); }
    ~AccessCodeTest() override { NeskRegistry::Instance() = NeskRegistry(); }

    // The stored code; "none" if the value is missing.
    static std::string Stored() {
        RegEntry entry;
        if (!entry.TestKey("Neskworks")) return "none";
        entry.OpenKey("Neskworks");
        std::vector<RegValue> values;
        entry.QueryValues(values);
        for (const RegValue& value : values)
            if (value.name == "ExitKey") return value.data;
        return "none";
    }
};

TEST_F(AccessCodeTest, EqualEntriesAreStored) {
    EXPECT_TRUE(AccessCode::Store("1234", "1234"));
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "1234");
    EXPECT_EQ(Stored(), "1234");
}

TEST_F(AccessCodeTest, DifferentEntriesAreRefused) {
    ASSERT_TRUE(AccessCode::Store("77", "77"));
    for (const char* repeated : {"12345", "123", "", "01234"}) {
        Expect();
        EXPECT_FALSE(AccessCode::Store("1234", repeated)) << repeated;
        EXPECT_EQ(messages.back().text, LoadResString(32014));
        EXPECT_EQ(messages.back().title, LoadResString(32015));
        EXPECT_EQ(messages.back().options, 64);
    }
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "77");
    EXPECT_EQ(Stored(), "77");
}

TEST_F(AccessCodeTest, AnEmptyCodeRemovesTheStoredOne) {
    ASSERT_TRUE(AccessCode::Store("1234", "1234"));
    EXPECT_TRUE(AccessCode::Store("", ""));
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "");
    EXPECT_EQ(Stored(), "none");
}

TEST_F(AccessCodeTest, TheLongestCodeIsReadBack) {
    const std::string longest(AccessCode::MaxLength, '9');
    EXPECT_TRUE(AccessCode::Store(longest, longest));
    NeskRegistry loaded;
    loaded.Load();
    EXPECT_EQ(loaded.ExitKey, longest);
}

TEST_F(AccessCodeTest, AFailedSaveIsReportedOnce) {
    // A folder in place of the registry's file cannot be opened as a file.
    station.BreakSettings();
    Expect();
    EXPECT_TRUE(AccessCode::Store("1", "1"));
    EXPECT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages.back().title, LoadResString(34123));
}

} // namespace
} // namespace nesk
