#include "platform/portable/Station.h"
#include "unit/platform/RegistryFixture.h"
#include "unit/platform/portable/ChildProcess.h"
#include "unit/platform/portable/FakeBusyClock.h"

#include <functional>
#include <sqlite3.h>

namespace nesk::platform {
namespace {

using nesk::testing::ChildEnd;
using nesk::testing::FakeBusyClock;

class RegistryGroupTest : public testing::RegistryFixture {
protected:
    // An open database must not be carried into a child process.
    RegistryGroupTest() { portable::UseStation("/nonexistent/station"); }

    // Runs `action` as another program on the station, which ends as if it were killed and does not know
    // about this program's group.
    void InProgram(const std::function<void()>& action, bool fromGroup = false) {
        EXPECT_EQ(nesk::testing::InChildProcess([&] {
                      portable::UseStation(station.Folder());
                      if (fromGroup) {
                          EXPECT_EQ(Reg().EndGroup(), ErrorCode::Success);
                      }
                      action();
                      return true;
                  }),
                  ChildEnd::Good);
    }

    void ExpectStored(const std::string& name, std::optional<std::string> data, bool fromGroup = false) {
        InProgram([&] { EXPECT_EQ(Get(Create("Key"), name), data) << name; }, fromGroup);
    }
};

TEST_F(RegistryGroupTest, IsStoredWhenItEnds) {
    InProgram([&] {
        const RegKey key = Create("Key");
        EXPECT_EQ(Set(key, "before", "1"), ErrorCode::Success);
        RegistryGroup group(Reg());
        EXPECT_EQ(Set(key, "within", "2"), ErrorCode::Success);
        EXPECT_EQ(Get(key, "within"), "2");
        ExpectStored("before", "1", true);
        ExpectStored("within", std::nullopt, true);
        EXPECT_EQ(group.End(), ErrorCode::Success);
        ExpectStored("within", "2");
        EXPECT_EQ(Set(key, "behind", "3"), ErrorCode::Success);
        EXPECT_EQ(group.End(), ErrorCode::Success) << "ending twice does nothing";
    });
    ExpectStored("behind", "3");
}

TEST_F(RegistryGroupTest, OfAKilledProgramIsNotStored) {
    InProgram([&] {
        Reg().BeginGroup();
        const RegKey key = Create("Key");
        EXPECT_EQ(Set(key, "a", "1"), ErrorCode::Success);
    });
    ExpectStored("a", std::nullopt);
}

TEST_F(RegistryGroupTest, TheOutermostCounts) {
    InProgram([&] {
        RegistryGroup outer(Reg());
        {
            const RegistryGroup inner(Reg());
            EXPECT_EQ(Set(Create("Key"), "a", "1"), ErrorCode::Success);
        }
        EXPECT_EQ(Set(Create("Key"), "b", "2"), ErrorCode::Success);
    });
    ExpectStored("a", "1");
    ExpectStored("b", "2");
}

TEST_F(RegistryGroupTest, WithoutAWriteMakesNoStore) {
    InProgram([&] {
        RegistryGroup group(Reg());
        EXPECT_EQ(OpenResult("Key"), ErrorCode::FileNotFound);
        EXPECT_EQ(group.End(), ErrorCode::Success);
    });
    EXPECT_FALSE(std::filesystem::exists(station.Folder() / "registry.db"));
}

TEST_F(RegistryGroupTest, AStepThatFailsTakesNothingElseBack) {
    InProgram([&] {
        RegistryGroup group(Reg());
        const RegKey key = Create("Key\\Below");
        EXPECT_EQ(Set(key, "a", "1"), ErrorCode::Success);
        EXPECT_EQ(Reg().DeleteKey(Root(), "Key"), ErrorCode::AccessDenied) << "it has a subkey";
        EXPECT_EQ(group.End(), ErrorCode::Success);
    });
    InProgram([&] { EXPECT_EQ(Get(Create("Key\\Below"), "a"), "1"); });
}

// Two programs that increment the same counter must not both start from the same number.
TEST_F(RegistryGroupTest, WhatIsReadInItStaysTrueUntilItsEnd) {
    const FakeBusyClock clock;
    InProgram([&] { EXPECT_EQ(Set(Create("Key"), "n", "5"), ErrorCode::Success); });
    InProgram([&] {
        const RegKey key = Create("Key");
        RegistryGroup group(Reg());
        EXPECT_EQ(Get(key, "n"), "5");
        InProgram([&] { EXPECT_EQ(Set(Create("Key"), "n", "7"), ErrorCode::Busy); }, true);
        EXPECT_EQ(Set(key, "n", "6"), ErrorCode::Success);
        EXPECT_EQ(group.End(), ErrorCode::Success);
    });
    ExpectStored("n", "6");
}

TEST_F(RegistryGroupTest, WhatItCouldNotReadItDoesNotOverwrite) {
    const FakeBusyClock clock;
    InProgram([&] { EXPECT_EQ(Set(Create("Key"), "n", "5"), ErrorCode::Success); });
    InProgram([&] {
        const RegKey key = Create("Key");
        sqlite3* other = nullptr;
        ASSERT_EQ(SQLITE_OK, sqlite3_open((station.Folder() / "registry.db").c_str(), &other));
        ASSERT_EQ(SQLITE_OK, sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr));
        RegistryGroup group(Reg());
        EXPECT_EQ(Get(key, "n"), std::nullopt);
        sqlite3_close(other);
        EXPECT_EQ(Set(key, "n", "1"), ErrorCode::Busy);
        EXPECT_EQ(group.End(), ErrorCode::Success);
        EXPECT_EQ(Get(key, "n"), "5") << "the next one begins afresh";
        EXPECT_EQ(Set(key, "n", "6"), ErrorCode::Success);
    });
    ExpectStored("n", "6");
}

} // namespace
} // namespace nesk::platform
