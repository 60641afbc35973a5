#include "partedit/HistoryChoice.h"

#include "settings/NeskRegistry.h"
#include "unit/CoreFixture.h"

namespace nesk::HistoryChoice {
namespace {

class HistoryChoiceTest : public nesk::testing::CoreTest {};

TEST_F(HistoryChoiceTest, TheDirectoryMustExist) {
    station.Write("C:\\History\\file.txt", "");
    EXPECT_TRUE(IsDirectory("C:\\History"));
    EXPECT_TRUE(IsDirectory("  C:\\History\\ "));
    for (const char* directory : {"", "   ", "C:\\None", "C:\\History\\file.txt"})
        EXPECT_FALSE(IsDirectory(directory)) << directory;
}

TEST_F(HistoryChoiceTest, TheTitleMustNotBeEmpty) {
    EXPECT_TRUE(IsTitle(" Bracket "));
    EXPECT_FALSE(IsTitle(""));
    EXPECT_FALSE(IsTitle("   "));
}

TEST_F(HistoryChoiceTest, AnEmptyTitleIsProposed) {
    EXPECT_EQ(TitleToShow("", "Angle"), "Angle");
    EXPECT_EQ(TitleToShow("Mine", "Angle"), "Mine");
    EXPECT_EQ(TitleToShow("", ""), "");
}

TEST_F(HistoryChoiceTest, BrowsingBeginsAtTheFieldOrTheSettings) {
    NeskRegistry::Instance() = NeskRegistry();
    NeskRegistry::Instance().HistoryDirectory = "C:\\History";
    EXPECT_EQ(BrowseFolder("C:\\Mine"), "C:\\Mine");
    EXPECT_EQ(BrowseFolder(""), "C:\\History");
    NeskRegistry::Instance() = NeskRegistry();
}

} // namespace
} // namespace nesk::HistoryChoice
