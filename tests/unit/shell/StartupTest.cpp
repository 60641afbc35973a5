#include "shell/Startup.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"
#include "platform/Registry.h"
#include "settings/NeskRegistry.h"
#include "settings/RegEntry.h"
#include "shell/modHelp.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"
#include "unit/platform/StringLibrary.h"
#ifdef NESK_PORTABLE_STATION
#include "platform/portable/Station.h"
#endif

#include <stdexcept>

namespace nesk {
namespace {

using modStringRes::FormatResString;

class StartupTest : public nesk::testing::CoreTest {
protected:
    ~StartupTest() override {
        station.Leave();
        Startup::InitLanguage();
        modHelp::SetHelpFile(1033, "OV");
        NeskRegistry::Instance() = {};
    }

    static void StoreLanguage(const std::string& value) {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("DefaultLanguage", value);
    }

    // Starts the program and returns how often the main window was shown.
    int Start() {
        int shown = 0;
        Startup::Main([&] {
            ++shown;
            EXPECT_TRUE(messages.empty()) << "a message came before the window";
        });
        return shown;
    }

#ifdef NESK_PORTABLE_STATION
    void WriteStore(const std::string& bytes) const {
        std::ofstream(station.Folder() / "registry.db", std::ios::binary) << bytes;
    }
#endif
};

TEST_F(StartupTest, WithoutSettings) {
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(Startup::LanguageID(), 1033);
    EXPECT_EQ(platform::CodePage(), 1252);
    EXPECT_EQ(modStringRes::LoadResString(34001), "NeskManager");
    EXPECT_TRUE(modHelp::HelpFile().ends_with("\\OVENU.chm"));
}

TEST_F(StartupTest, NoSettingsAreStoredByStarting) {
    EXPECT_EQ(Start(), 1);
    EXPECT_FALSE(RegEntry().TestKey("Neskworks"));
}

TEST_F(StartupTest, Languages) {
    const struct {
        const char* stored;
        int languageId;
        int codePage;
    } table[] = {
        {"", 1033, 1252},     {"1031", 1031, 1252}, {"1041", 1041, 932}, {" 1042 ", 1042, 949},
        {"1033", 1033, 1252}, {"-1", -1, 1252},     {"0", 0, 1252},      {"2147483647", 2147483647, 1252},
    };
    [[maybe_unused]] const int systemCodePage = platform::CodePage();
    for (const auto& row : table) {
        StoreLanguage(row.stored);
        Startup::InitLanguage();
        EXPECT_EQ(Startup::LanguageID(), row.languageId) << row.stored;
        EXPECT_EQ(platform::CodePageOfLanguage(row.languageId), row.codePage) << row.stored;
#ifdef NESK_PORTABLE_STATION
        EXPECT_EQ(platform::CodePage(), row.codePage) << row.stored;
#else
        EXPECT_EQ(platform::CodePage(), systemCodePage) << "the system's code page stays";
#endif
    }
}

TEST_F(StartupTest, AKeyWithoutTheValue) {
    RegEntry().CreateKey("Orvane\\Settings");
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(Startup::LanguageID(), 1033);
}

TEST_F(StartupTest, TextsAndHelpFollowTheLanguage) {
    StoreLanguage("1031");
    RegEntry settings;
    settings.OpenKey("Orvane\\Settings");
    settings.SetString("InstallDirectory", "C:\\Orvane");
    nesk::testing::WriteStringLibrary(station, "C:\\Orvane\\Bin\\DEU45000.DLL", {{45001, "deutsch"}});
    station.Write("C:\\Orvane\\Bin\\OVDEU.chm", "help");
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(modStringRes::LoadResString(45001), "deutsch");
    EXPECT_EQ(modHelp::HelpFile(), "C:\\Orvane\\Bin\\OVDEU.chm");
}

TEST_F(StartupTest, ALanguageThatIsNoNumber) {
    for (const char* stored : {"abc", "1031 german", "99999999999", "ENU"}) {
        messages.clear();
        StoreLanguage(stored);
        Expect();
        EXPECT_EQ(Start(), 1) << stored;
        EXPECT_EQ(Startup::LanguageID(), 1033) << stored;
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, FormatResString(Message::LanguageNotANumber, stored));
        EXPECT_EQ(messages[0].options, modMessageBox::Option::Exclamation);
    }
    messages.clear();
    StoreLanguage("1033");
    EXPECT_EQ(Start(), 1) << "the next start says nothing any more";
}

TEST_F(StartupTest, SettingsAndHelpAreThereBeforeTheWindow) {
    NeskRegistry record;
    record.NeskRoot = "C:\\Neskroot";
    record.Save();
    bool shown = false;
    Startup::Main([&] {
        shown = true;
        EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "C:\\Neskroot");
        EXPECT_EQ(NeskRegistry::Instance().HistoryMaxParts, 20);
        EXPECT_TRUE(modHelp::HelpFile().ends_with("\\OVENU.chm"));
    });
    EXPECT_TRUE(shown);
}

#ifdef NESK_PORTABLE_STATION
// The registry of Windows is not a file of the program.
TEST_F(StartupTest, ADamagedStore) {
    std::string bytes(8192, '\0');
    for (std::size_t i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7 + i / 251);
    WriteStore(bytes);
    NeskRegistry::Instance().NeskRoot = "of the run before";
    Expect();
    EXPECT_EQ(Start(), 1) << "the program goes on";
    EXPECT_EQ(Startup::LanguageID(), 1033);
    EXPECT_EQ(NeskRegistry::Instance().NeskRoot, "");
    const std::string store = platform::StationRegistry().Location();
    EXPECT_TRUE(store.ends_with("\\registry.db"));
    EXPECT_EQ(messages.at(0).text,
              FormatResString(Message::StoreDamaged, store, Number(platform::ErrorCode::BadDatabase)));
    EXPECT_NE(messages[0].text.find(store), std::string::npos);
    EXPECT_EQ(messages[0].options, modMessageBox::Option::Exclamation);
    EXPECT_EQ(nesk::testing::FileBytes(store), bytes) << "the damaged store is left as it is";
}

TEST_F(StartupTest, AStoreWithDamagedPages) {
    {
        RegEntry settings;
        settings.CreateKey("Neskworks");
        for (int i = 0; i < 300; ++i)
            settings.SetString("value" + std::to_string(i), std::string(200, 'x'));
    }
    platform::portable::UseStation(station.Folder());
    std::string bytes = nesk::testing::FileBytes(platform::StationRegistry().Location());
    ASSERT_GT(bytes.size(), 65536u);
    // The header stays, so that the file still looks like a store.
    WriteStore(bytes.substr(0, 100) + std::string(bytes.size() - 100, '\xA5'));
    Expect();
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(messages.at(0).text,
              FormatResString(Message::StoreDamaged, platform::StationRegistry().Location(),
                              Number(platform::ErrorCode::RegistryCorrupt)));
}
#endif

TEST_F(StartupTest, AStoreThatMayNotBeOpened) {
    station.BreakSettings();
    Expect();
    EXPECT_EQ(Start(), 1);
    EXPECT_EQ(messages.at(0).text,
              FormatResString(Message::StoreDenied, platform::StationRegistry().Location(),
                              Number(platform::ErrorCode::AccessDenied)));
}

TEST_F(StartupTest, AFailureOfTheWindowIsReported) {
    Expect();
    Startup::Main([] { throw std::runtime_error("no display"); });
    EXPECT_EQ(messages.at(0).text, FormatResString(Message::ErrorUnexpected, "no display"));
    EXPECT_EQ(messages[0].options, modMessageBox::Option::Critical);
    const NeskError known(RuntimeError::Overflow, "FormMain", Message::Overflow);
    Expect();
    Startup::Main([&] { throw known; });
    EXPECT_EQ(messages.at(1).text, modUtilities::ErrorText(known));
}

} // namespace
} // namespace nesk
