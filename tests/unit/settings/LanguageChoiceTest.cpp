#include "settings/LanguageChoice.h"

#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

#include <algorithm>

namespace nesk {
namespace {

class LanguageChoiceTest : public testing::CoreTest {
protected:
    static void SetStored(const std::string& value) {
        RegEntry settings;
        settings.CreateKey("Orvane\\Settings");
        settings.SetString("DefaultLanguage", value);
    }
};

TEST_F(LanguageChoiceTest, OnlyAStationThatIsAFolderHasItsLanguageChosenHere) {
#ifdef NESK_PORTABLE_STATION
    EXPECT_TRUE(LanguageChoice::MayChange());
#else
    EXPECT_FALSE(LanguageChoice::MayChange());
#endif
}

TEST_F(LanguageChoiceTest, OffersEveryLanguageWithTexts) {
    const auto offered = LanguageChoice::Offered();
    EXPECT_EQ(offered.size(), 29u) << "all except the pseudo-language";
    const auto contains = [&](int id) {
        return std::any_of(offered.begin(), offered.end(),
                           [id](const auto* language) { return language->id == id; });
    };
    for (const int id : {1028, 1031, 1033, 2068, 6153})
        EXPECT_TRUE(contains(id)) << id;
    for (const int id : {-1, 1045, 2052})
        EXPECT_FALSE(contains(id)) << id;
}

TEST_F(LanguageChoiceTest, StoresTheLanguage) {
    EXPECT_EQ(LanguageChoice::Stored(), 1033) << "none is set";
    LanguageChoice::Store(1041);
    EXPECT_EQ(LanguageChoice::Stored(), 1041);
    RegEntry settings;
    settings.OpenKey("Orvane\\Settings");
    EXPECT_EQ(settings.GetString("DefaultLanguage"), "1041");
}

TEST_F(LanguageChoiceTest, WhatNoLanguageHasIsEnglish) {
    for (const char* value : {"", "none", "1045", "99999", "99999999999999"}) {
        SetStored(value);
        EXPECT_EQ(LanguageChoice::Stored(), 1033) << value;
    }
    SetStored("-1");
    EXPECT_EQ(LanguageChoice::Stored(), -1);
}

TEST_F(LanguageChoiceTest, EveryLanguageIsInstalled) {
    for (const platform::Language* language : LanguageChoice::Offered())
        EXPECT_EQ(LanguageChoice::MissingLibrary(*language), "");
    platform::Language unknown = *platform::FindLanguage(1031);
    unknown.code = "QQQ";
    EXPECT_EQ(LanguageChoice::MissingLibrary(unknown), "QQQ32000.DLL");
}

TEST_F(LanguageChoiceTest, ANameIsInBothLanguages) {
    EXPECT_EQ(LanguageChoice::Name(*platform::FindLanguage(1053)), "Svenska - Swedish");
    EXPECT_EQ(LanguageChoice::Name(*platform::FindLanguage(2057)), "English (United Kingdom)");
}

} // namespace
} // namespace nesk
