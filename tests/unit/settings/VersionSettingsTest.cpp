#include "settings/VersionSettings.h"

#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

namespace nesk {
namespace {

class VersionSettingsTest : public testing::CoreTest {
protected:
    static void Store(const char* name, const char* text) {
        RegEntry entry;
        entry.CreateKey("Neskworks");
        entry.SetString(name, text);
    }

    static void Expect(int newest, int days) {
        const VersionSettings settings = VersionSettings::Read();
        EXPECT_EQ(settings.newest, newest);
        EXPECT_EQ(settings.days, days);
    }
};

TEST_F(VersionSettingsTest, WithoutNumbersTheUsualOnesHold) {
    Expect(50, 365);
}

TEST_F(VersionSettingsTest, TheNumbersOfTheKeyAreRead) {
    Store("MenuVersions", "7");
    Expect(7, 365);
    Store("MenuVersionDays", "0");
    Expect(7, 0);
}

TEST_F(VersionSettingsTest, WrongNumbersAreIgnored) {
    for (const char* wrong : {"", "x", "-1", "1x", "10001", "99999999999999999999"}) {
        Store("MenuVersions", wrong);
        Store("MenuVersionDays", wrong);
        Expect(50, 365);
    }
    Store("MenuVersions", "0");
    Expect(50, 365);
}

} // namespace
} // namespace nesk
