#include "platform/NamePattern.h"

#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

TEST(NamePattern, StarsAndQuestionMarks) {
    EXPECT_TRUE(MatchesPattern("anything", "*.*"));
    EXPECT_TRUE(MatchesPattern("Part.INI", "*.ini"));
    EXPECT_TRUE(MatchesPattern("Ä1", "ä?"));
    EXPECT_TRUE(MatchesPattern("aXbXc", "a*b*c"));
    EXPECT_TRUE(MatchesPattern("", "*"));
    EXPECT_FALSE(MatchesPattern("part", "*.ini"));
    EXPECT_FALSE(MatchesPattern("ab", "a?c"));
    EXPECT_FALSE(MatchesPattern("", "?"));
}

} // namespace
} // namespace nesk::platform
