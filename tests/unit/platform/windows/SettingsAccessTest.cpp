#include "base/Messages.h"
#include "platform/ErrorCode.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/Startup.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/platform/windows/Security.h"

namespace nesk {
namespace {

using modStringRes::FormatResString;
using nesk::testing::ErrorOf;
using platform::ErrorCode;

const std::string Key = "SOFTWARE\\Quarndale\\Neskworks";
constexpr const char* FullAccess = "D:P(A;;KA;;;WD)";
constexpr const char* ReadAccess = "D:P(A;;KR;;;WD)";
constexpr const char* NoAccess = "D:P";

// The settings key, with one setting in it and with access rights that the test sets.
class SettingsAccessTest : public nesk::testing::CoreTest {
protected:
    SettingsAccessTest() {
        RegEntry entry;
        entry.CreateKey("Neskworks");
        entry.SetString("NeskRoot", "C:\\Neskroot");
    }
    ~SettingsAccessTest() override { NeskRegistry::Instance() = {}; }

    // The stored setting, read regardless of the access rights.
    static std::string Stored() {
        nesk::testing::SetKeyAccessList(Key, FullAccess);
        RegEntry entry;
        entry.OpenKey("Neskworks");
        return entry.GetString("NeskRoot");
    }
};

TEST_F(SettingsAccessTest, OpeningSaysWhichKeyIsDenied) {
    for (const char* rights : {NoAccess, ReadAccess}) {
        nesk::testing::SetKeyAccessList(Key, rights);
        RegEntry entry;
        const NeskError error = ErrorOf([&] { entry.OpenKey("Neskworks"); });
        EXPECT_EQ(5001, error.number) << rights;
        EXPECT_EQ(Message::RegKeyNotOpened, error.messageId) << rights;
        EXPECT_NE(std::string::npos, modUtilities::MessageText(error).find(Key));
        EXPECT_EQ(ErrorCode::AccessDenied, entry.LastResult()) << rights;
        EXPECT_FALSE(entry.TestKey("Neskworks"));
        EXPECT_EQ("", entry.GetString("NeskRoot")) << "no key is open";
    }
    EXPECT_EQ("C:\\Neskroot", Stored());
}

TEST_F(SettingsAccessTest, ReadingGivesNoSettings) {
    nesk::testing::SetKeyAccessList(Key, NoAccess);
    NeskRegistry record;
    record.Load();
    EXPECT_EQ("", record.NeskRoot);
    EXPECT_EQ("", record.MenuFile());
}

TEST_F(SettingsAccessTest, SavingSaysSoAndChangesNothing) {
    for (const char* rights : {NoAccess, ReadAccess}) {
        nesk::testing::SetKeyAccessList(Key, rights);
        const std::string before = nesk::testing::KeyAccessListOf(Key);
        NeskRegistry record;
        record.NeskRoot = "C:\\Other";
        Expect();
        record.Save();
        EXPECT_EQ(before, nesk::testing::KeyAccessListOf(Key)) << "no rights are taken";
        const NeskError error(5000, "RegEntry.CreateInternal", Message::SettingsNotSaved,
                              {FormatResString(Message::RegKeyNotOpened, "Neskworks"),
                               FormatResString(Message::PermissionDenied, "HKEY_LOCAL_MACHINE")});
        EXPECT_EQ(modUtilities::ErrorText(error), messages.back().text) << rights;
        EXPECT_EQ("C:\\Neskroot", Stored());
    }
}

TEST_F(SettingsAccessTest, TheProgramStartsAndSaysSo) {
    for (const char* rights : {NoAccess, ReadAccess}) {
        nesk::testing::SetKeyAccessList(Key, rights);
        bool shown = false;
        Expect();
        Startup::Main([&] { shown = true; });
        EXPECT_TRUE(shown);
        EXPECT_EQ(
            FormatResString(Message::StoreDenied, "HKEY_LOCAL_MACHINE", Number(ErrorCode::AccessDenied)),
            messages.back().text)
            << rights;
    }
}

} // namespace
} // namespace nesk
