#include "partedit/HelpFileChoice.h"

#include "platform/FileSystem.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

namespace nesk::HelpFileChoice {
namespace {

class HelpFileChoiceTest : public nesk::testing::CoreTest {};

TEST_F(HelpFileChoiceTest, ATextThatIsANumberIsTheTopic) {
    EXPECT_EQ(Topic("0", 7), 0);
    EXPECT_EQ(Topic("33000", 7), 33000);
    EXPECT_EQ(Topic("2147483647", 7), 2147483647);
    EXPECT_EQ(Topic("-5", 7), -5);
}

TEST_F(HelpFileChoiceTest, AnythingElseKeepsTheEarlierTopic) {
    for (const char* text : {"", "   ", "abc", "2147483648", "99999999999999999999"})
        EXPECT_EQ(Topic(text, 7), 7) << text;
}

TEST_F(HelpFileChoiceTest, TheDefaultFolderIsThatOfSlides) {
    RegEntry settings;
    settings.CreateKey("Neskworks");
    EXPECT_EQ(DefaultFolder(), platform::ProgramFolder());
    settings.SetString("DefaultSlideDirectory", "C:\\Slides");
    EXPECT_EQ(DefaultFolder(), "C:\\Slides");
}

TEST_F(HelpFileChoiceTest, BrowsingBeginsWhereTheFieldLeads) {
    station.Write("C:\\Help\\part.chm", "");
    EXPECT_EQ(BrowseFolder("C:\\Help\\part.chm", "C:\\Slides"), "C:\\Help\\");
    EXPECT_EQ(BrowseFolder("C:\\Help\\none.chm", "C:\\Slides"), "C:\\Help\\");
    EXPECT_EQ(BrowseFolder("C:\\Help", "C:\\Slides"), "C:\\Help");
    for (const char* nowhere : {"", "part.chm", "C:\\Gone\\part.chm"})
        EXPECT_EQ(BrowseFolder(nowhere, "C:\\Slides"), "C:\\Slides") << nowhere;
}

TEST_F(HelpFileChoiceTest, WithoutSettingsTheDefaultFolderIsThatOfTheProgram) {
    EXPECT_EQ(DefaultFolder(), platform::ProgramFolder());
}

} // namespace
} // namespace nesk::HelpFileChoice
