#include "platform/Languages.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace nesk::platform {
namespace {

TEST(LanguagesTest, AreSortedByTheirIdentifiers) {
    ASSERT_GT(Languages().size(), 30u);
    int before = -2;
    for (const Language& language : Languages()) {
        EXPECT_GT(language.id, before);
        before = language.id;
    }
}

TEST(LanguagesTest, ThirtyHaveTexts) {
    std::set<std::string_view> codes;
    for (const Language& language : Languages())
        if (!language.code.empty()) {
            EXPECT_TRUE(codes.insert(language.code).second) << language.code;
        }
    EXPECT_EQ(codes.size(), 30u);
    EXPECT_FALSE(FindLanguage(1045)->englishName.empty());
    EXPECT_EQ(FindLanguage(1045)->code, "") << "Polish stations run in English";
}

TEST(LanguagesTest, ABaseHasAllTextsItself) {
    for (const Language& language : Languages()) {
        if (language.base.empty()) continue;
        bool found = false;
        for (const Language& other : Languages())
            found = found || (other.code == language.base && other.base.empty());
        EXPECT_TRUE(found) << language.code;
    }
}

TEST(LanguagesTest, AreFoundByTheirIdentifier) {
    ASSERT_NE(FindLanguage(1041), nullptr);
    EXPECT_EQ(FindLanguage(1041)->code, "JPN");
    EXPECT_EQ(FindLanguage(1041)->codePage, 932);
    EXPECT_EQ(FindLanguage(1041)->locales, "ja");
    EXPECT_EQ(FindLanguage(1041)->englishName, "Japanese");
    EXPECT_EQ(FindLanguage(1041)->ownName, "\u65E5\u672C\u8A9E");
    EXPECT_EQ(FindLanguage(2055)->base, "DEU");
    EXPECT_EQ(FindLanguage(-1)->code, "PIG");
    for (const int id : {0, 1, -2, 99999})
        EXPECT_EQ(FindLanguage(id), nullptr) << id;
}

} // namespace
} // namespace nesk::platform
