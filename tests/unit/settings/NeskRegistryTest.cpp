#include "settings/NeskRegistry.h"
#include "base/Messages.h"
#include "base/NeskError.h"
#include "platform/Registry.h"
#include "settings/RegEntry.h"
#include "shell/modUtilities.h"
#include "unit/CoreFixture.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

namespace nesk {
namespace {

struct TextField {
    const char* name;
    std::string NeskRegistry::*field;
};

// The texts in the order in which they are written. The two numbers are written after the title of the
// history.
constexpr TextField Texts[] = {
    {"NeskRoot", &NeskRegistry::NeskRoot},
    {"DefaultSlideDirectory", &NeskRegistry::DefaultSlideDirectory},
    {"DefaultBitmapDirectory", &NeskRegistry::DefaultBitmapDirectory},
    {"HistoryDirectory", &NeskRegistry::HistoryDirectory},
    {"HistoryTitle", &NeskRegistry::HistoryTitle},
    {"NeskMachine", &NeskRegistry::NeskMachine},
    {"NeskUser", &NeskRegistry::NeskUser},
    {"ExitKey", &NeskRegistry::ExitKey},
    {"PrinterDevice", &NeskRegistry::PrinterDevice},
    {"PrinterDriver", &NeskRegistry::PrinterDriver},
    {"PrinterOrientation", &NeskRegistry::PrinterOrientation},
    {"PrinterPaperSize", &NeskRegistry::PrinterPaperSize},
    {"PrinterPaperBin", &NeskRegistry::PrinterPaperBin},
    {"PrinterQuality", &NeskRegistry::PrinterQuality},
    {"PrinterZoom", &NeskRegistry::PrinterZoom},
};

class NeskRegistryTest : public nesk::testing::CoreTest {
protected:
    // A record in which all texts differ and some are not ASCII.
    static NeskRegistry FullRecord() {
        NeskRegistry record;
        for (const TextField& text : Texts)
            record.*text.field = std::string("Wärt von ") + text.name;
        record.SampleSize = -12;
        record.HistoryMaxParts = 35;
        return record;
    }

    // The names and texts of all values, in the order of their first write.
    static std::vector<std::string> Stored() {
        RegEntry entry;
        entry.OpenKey("Neskworks");
        std::vector<RegValue> values;
        entry.QueryValues(values);
        std::vector<std::string> stored;
        for (const RegValue& value : values) {
            EXPECT_EQ(value.type, platform::RegType::Text) << value.name;
            stored.push_back(value.name + "=" + value.data);
        }
        return stored;
    }

    static void Store(const std::string& name, const std::string& value) {
        RegEntry entry;
        entry.CreateKey("Neskworks");
        entry.SetString(name, value);
    }
};

TEST_F(NeskRegistryTest, ANewRecordIsEmpty) {
    const NeskRegistry record;
    for (const TextField& text : Texts)
        EXPECT_EQ(record.*text.field, "") << text.name;
    EXPECT_EQ(record.SampleSize, 0);
    EXPECT_EQ(record.HistoryMaxParts, 0);
}

TEST_F(NeskRegistryTest, ThereIsOneRecordOfTheProgram) {
    NeskRegistry::Instance().ExitKey = "4711";
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "4711");
    NeskRegistry::Instance() = {};
}

TEST_F(NeskRegistryTest, LoadingWithoutTheKey) {
    NeskRegistry record;
    record.Load();
    for (const TextField& text : Texts)
        EXPECT_EQ(record.*text.field, "") << text.name;
    EXPECT_EQ(record.SampleSize, 0);
    EXPECT_EQ(record.HistoryMaxParts, 20);
    EXPECT_EQ(record.MenuFile(), "");
    record = FullRecord();
    record.Load();
    for (const TextField& text : Texts)
        EXPECT_EQ(record.*text.field, "") << text.name << " must not stay";
    EXPECT_EQ(record.SampleSize, -12) << "the empty text is no number";
    EXPECT_EQ(record.HistoryMaxParts, 20);
}

TEST_F(NeskRegistryTest, SavingWritesEveryFieldInItsOrder) {
    FullRecord().Save();
    std::vector<std::string> expected;
    for (const TextField& text : Texts) {
        expected.push_back(std::string(text.name) + "=Wärt von " + text.name);
        if (std::string(text.name) != "HistoryTitle") continue;
        expected.push_back("HistoryMaxParts=35");
        expected.push_back("SampleSize=-12");
    }
    std::vector<std::string> stored = Stored();
#ifndef NESK_PORTABLE_STATION
    // Windows guarantees no order of values, and Wine sorts them by name.
    std::sort(stored.begin(), stored.end());
    std::sort(expected.begin(), expected.end());
#endif
    EXPECT_EQ(stored, expected);
}

TEST_F(NeskRegistryTest, WhatWasSavedIsLoaded) {
    const NeskRegistry saved = FullRecord();
    NeskRegistry record = saved;
    record.Save();
    record = {};
    record.Load();
    for (const TextField& text : Texts)
        EXPECT_EQ(record.*text.field, saved.*text.field) << text.name;
    EXPECT_EQ(record.SampleSize, -12);
    EXPECT_EQ(record.HistoryMaxParts, 20) << "the number saved is not read back";
}

TEST_F(NeskRegistryTest, EmptyFieldsLeaveNoValue) {
    NeskRegistry record = FullRecord();
    record.Save();
    record.ExitKey = "";
    record.Save();
    const std::vector<std::string> stored = Stored();
    EXPECT_EQ(stored.size(), 16u);
    EXPECT_TRUE(std::none_of(stored.begin(), stored.end(),
                             [](const std::string& value) { return value.starts_with("ExitKey="); }));
    NeskRegistry().Save();
    EXPECT_EQ(Stored(), (std::vector<std::string>{"HistoryMaxParts=0", "SampleSize=0"}));
}

TEST_F(NeskRegistryTest, SampleSizes) {
    const struct {
        const char* stored;
        int loaded; // the field is 7 before loading
    } table[] = {
        {"", 7},          {"abc", 7},         {"12 x", 7},        {"40000", 7}, {"-32769", 7}, {"1e99", 7},
        {"12", 12},       {" 12 ", 12},       {"-5", -5},         {"0", 0},     {"2.5", 2},    {"3.5", 4},
        {"32767", 32767}, {"-32768", -32768}, {"32767.4", 32767}, {"32768", 7},
    };
    for (const auto& row : table) {
        Store("SampleSize", row.stored);
        NeskRegistry record;
        record.SampleSize = 7;
        record.Load();
        EXPECT_EQ(record.SampleSize, row.loaded) << row.stored;
    }
}

TEST_F(NeskRegistryTest, AStepThatFailsDoesNotEndTheLoad) {
    Store("SampleSize", "abc");
    Store("NeskUser", "Users\\1");
    Store("PrinterZoom", "100");
    NeskRegistry record;
    record.Load();
    EXPECT_EQ(record.NeskUser, "Users\\1");
    EXPECT_EQ(record.PrinterZoom, "100");
}

TEST_F(NeskRegistryTest, TheNumberOfPartsIsReadWhereASubkeyHasItsName) {
    RegEntry().CreateKey("Neskworks\\HistoryMaxParts");
    const struct {
        const char* stored;
        int loaded; // the field is 7 before loading
    } table[] = {{"35", 35}, {"", 0}, {"abc", 0}, {"35 parts", 0}, {" 999 ", 999}, {"-1", -1}, {"40000", 7}};
    for (const auto& row : table) {
        Store("HistoryMaxParts", row.stored);
        NeskRegistry record;
        record.HistoryMaxParts = 7;
        record.Load();
        EXPECT_EQ(record.HistoryMaxParts, row.loaded) << row.stored;
    }
}

TEST_F(NeskRegistryTest, ATextTooLongToBeReadIsEmpty) {
    Store("HistoryTitle", std::string(255, 't'));
    Store("NeskMachine", std::string(256, 'm'));
    NeskRegistry record = FullRecord();
    record.Load();
    EXPECT_EQ(record.HistoryTitle, std::string(255, 't'));
    EXPECT_EQ(record.NeskMachine, "");
}

TEST_F(NeskRegistryTest, MenuFiles) {
    station.Write("C:\\Neskroot\\file", "x");
    const struct {
        const char* root;
        const char* menuFile;
    } table[] = {
        {"", ""},
        {"C:\\Neskroot", "C:\\Neskroot\\menu.cfg"},
        {"c:\\NESKROOT", "c:\\NESKROOT\\menu.cfg"},
        {"C:\\Neskroot\\", "C:\\Neskroot\\\\menu.cfg"},
        {"C:\\", "C:\\\\menu.cfg"},
        {"C:\\None", ""},
        {"C:\\Neskroot\\file", ""},
        {"Q:\\", ""},
    };
    for (const auto& row : table) {
        NeskRegistry record;
        record.NeskRoot = row.root;
        EXPECT_EQ(record.MenuFile(), row.menuFile) << row.root;
    }
}

TEST_F(NeskRegistryTest, TheFirstFailureEndsASaveAndIsShown) {
    NeskRegistry record = FullRecord();
    record.NeskUser = "Müller 日本";
    record.ExitKey = "日";
    Expect();
    record.Save();
    const std::vector<std::string> stored = Stored();
    ASSERT_EQ(stored.size(), 8u) << "what was written before stays, nothing is written behind";
    EXPECT_EQ(1, std::count(stored.begin(), stored.end(), "NeskMachine=" + record.NeskMachine));
#ifdef NESK_PORTABLE_STATION
    // Windows guarantees no order of values.
    EXPECT_TRUE(stored.back().starts_with("NeskMachine="));
#endif
    const NeskError error(5002, "RegEntry.SetValue", Message::RegNotEncodable, {"NeskUser", "日", "1252"});
    EXPECT_EQ(messages.at(0).text, modUtilities::ErrorText(error));
    EXPECT_EQ(messages[0].options, modMessageBox::Option::Critical);
    EXPECT_EQ(messages[0].title, modStringRes::LoadResString(Message::ErrorTitle));
}

TEST_F(NeskRegistryTest, ARegistryThatCannotBeUsed) {
    station.BreakSettings();
    NeskRegistry record = FullRecord();
    record.Load();
    EXPECT_EQ(record.NeskRoot, "");
    EXPECT_EQ(record.HistoryMaxParts, 20);
    Expect();
    record.Save();
    const NeskError error(
        5000, "RegEntry.CreateInternal", Message::SettingsNotSaved,
        {modStringRes::LoadResString(Message::RegLevelNotCreated),
         modStringRes::FormatResString(Message::PermissionDenied, platform::StationRegistry().Location())});
    EXPECT_EQ(messages.at(0).text, modUtilities::ErrorText(error));
}

#ifdef NESK_PORTABLE_STATION
TEST_F(NeskRegistryTest, ADamagedRegistryIsSaidToHaveLostTheSettingsAndNothingElse) {
    std::filesystem::remove(station.Folder() / "registry.db");
    std::ofstream(station.Folder() / "registry.db") << std::string(5000, 'x');
    NeskRegistry record = FullRecord();
    Expect();
    record.Save();
    const std::string& text = messages.at(0).text;
    EXPECT_NE(text.find("is damaged"), std::string::npos) << text;
    EXPECT_NE(text.find("ettings have"), std::string::npos) << text;
    EXPECT_EQ(text.find("Nothing in it has been changed"), std::string::npos)
        << "one box says what has not been changed once: " << text;
}
#endif

} // namespace
} // namespace nesk
