#include "platform/portable/Station.h"
#include "unit/platform/RegistryFixture.h"
#include "unit/platform/portable/ChildProcess.h"

#include <functional>

namespace nesk::platform {
namespace {

using nesk::testing::ChildEnd;

class RegistryGroupTest : public testing::RegistryFixture {
protected:
    // No open database may be carried into another process.
    RegistryGroupTest() { portable::UseStation("/nonexistent/station"); }

    // Another program on the station, which ends as if it were killed.
    void InProgram(const std::function<void()>& action) {
        EXPECT_EQ(nesk::testing::InChildProcess([&] {
                      portable::UseStation(station.Folder());
                      action();
                      return true;
                  }),
                  ChildEnd::Good);
    }

    void ExpectStored(const std::string& name, std::optional<std::string> data) {
        InProgram([&] { EXPECT_EQ(Get(Create("Key"), name), data) << name; });
    }
};

TEST_F(RegistryGroupTest, IsStoredWhenItEnds) {
    InProgram([&] {
        const RegKey key = Create("Key");
        EXPECT_EQ(Set(key, "before", "1"), ErrorCode::Success);
        RegistryGroup group(Reg());
        EXPECT_EQ(Set(key, "within", "2"), ErrorCode::Success);
        EXPECT_EQ(Get(key, "within"), "2");
        ExpectStored("before", "1");
        ExpectStored("within", std::nullopt);
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
        Set(Create("Key"), "b", "2");
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

} // namespace
} // namespace nesk::platform
