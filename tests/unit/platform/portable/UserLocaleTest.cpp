#include "platform/UserLocale.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string>

namespace nesk::platform {
namespace {

constexpr std::array<const char*, 3> Variables{"LC_ALL", "LC_CTYPE", "LANG"};

// Clears the regional settings in the environment and restores them afterwards.
class UserLocaleTest : public ::testing::Test {
protected:
    UserLocaleTest() {
        for (const char* name : Variables) {
            if (const char* value = std::getenv(name)) m_before[name] = value;
            ::unsetenv(name);
        }
    }

    ~UserLocaleTest() override {
        for (const char* name : Variables) {
            if (m_before[name])
                ::setenv(name, m_before[name]->c_str(), 1);
            else
                ::unsetenv(name);
        }
    }

private:
    std::map<std::string, std::optional<std::string>> m_before;
};

TEST_F(UserLocaleTest, IsEnglishWhenNothingIsSet) {
    EXPECT_EQ(1033U, UserDefaultLocale());
}

TEST_F(UserLocaleTest, KnowsTheCommonLocales) {
    const std::map<std::string, unsigned> locales = {
        {"zh_TW", 1028}, {"ja_JP", 1041}, {"ko_KR", 1042}, {"zh_CN", 2052}, {"de_DE", 1031}, {"de_AT", 3079},
        {"de_CH", 2055}, {"fr_FR", 1036}, {"en_US", 1033}, {"en_GB", 2057}, {"it_IT", 1040}, {"es_ES", 3082},
        {"da_DK", 1030}, {"sv_SE", 1053}, {"nl_NL", 1043}, {"nb_NO", 1044}, {"pt_PT", 2070}, {"pt_BR", 1046},
        {"fr_CA", 3084}, {"fr_CH", 4108}, {"es_MX", 2058}, {"en_CA", 4105}, {"en_AU", 3081}, {"it_CH", 2064}};
    for (const auto& [name, id] : locales) {
        for (const char* rest : {"", ".UTF-8", ".utf8", "@euro", ".ISO-8859-15@euro"}) {
            ::setenv("LANG", (name + rest).c_str(), 1);
            EXPECT_EQ(id, UserDefaultLocale()) << name << rest;
        }
    }
}

TEST_F(UserLocaleTest, TakesTheLanguageWhereTheCountryIsUnknown) {
    ::setenv("LANG", "de_LI.UTF-8", 1);
    EXPECT_EQ(1031U, UserDefaultLocale());
    ::setenv("LANG", "ja", 1);
    EXPECT_EQ(1041U, UserDefaultLocale());
    ::setenv("LANG", "zh", 1);
    EXPECT_EQ(2052U, UserDefaultLocale());
}

TEST_F(UserLocaleTest, IsEnglishForWhatItDoesNotKnow) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", "xx_YY.UTF-8", "", ".", "_", "@", "d", "deu_DE"}) {
        ::setenv("LANG", name, 1);
        EXPECT_EQ(1033U, UserDefaultLocale()) << name;
    }
}

TEST_F(UserLocaleTest, TakesTheFirstVariableThatIsSet) {
    ::setenv("LANG", "ja_JP.UTF-8", 1);
    EXPECT_EQ(1041U, UserDefaultLocale());
    ::setenv("LC_CTYPE", "ko_KR.UTF-8", 1);
    EXPECT_EQ(1042U, UserDefaultLocale());
    ::setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_EQ(1031U, UserDefaultLocale());
    // An empty variable counts as not set.
    ::setenv("LC_ALL", "", 1);
    EXPECT_EQ(1042U, UserDefaultLocale());
    ::setenv("LC_CTYPE", "C", 1);
    EXPECT_EQ(1033U, UserDefaultLocale());
}

} // namespace
} // namespace nesk::platform
