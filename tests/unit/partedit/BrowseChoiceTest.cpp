#include "partedit/BrowseChoice.h"

#include "platform/FileSystem.h"
#include "unit/CoreFixture.h"

namespace nesk::BrowseChoice {
namespace {

class BrowseChoiceTest : public nesk::testing::CoreTest {
protected:
    BrowseChoiceTest() {
        station.Write("C:\\Data\\file.txt", "");
        station.Write("C:\\x\\file.txt", "");
    }
};

TEST_F(BrowseChoiceTest, ARootIsNeverAccepted) {
    EXPECT_EQ(Accept("C:\\"), std::nullopt);
    EXPECT_EQ(Accept("C:"), std::nullopt);
    EXPECT_EQ(Accept(""), std::nullopt);
}

TEST_F(BrowseChoiceTest, AFolderGetsATrailingSeparator) {
    EXPECT_EQ(Accept("C:\\Data"), "C:\\Data\\");
    EXPECT_EQ(Accept("C:\\Data\\"), "C:\\Data\\");
    EXPECT_EQ(Accept("C:\\x"), "C:\\x\\");
}

TEST_F(BrowseChoiceTest, WhatIsNoFolderIsNotAccepted) {
    EXPECT_EQ(Accept("C:\\None"), std::nullopt);
    EXPECT_EQ(Accept("C:\\Data\\file.txt"), std::nullopt);
}

TEST_F(BrowseChoiceTest, BrowsingBeginsAtTheFolderOrAtTheProgram) {
    EXPECT_EQ(StartFolder("C:\\Data"), "C:\\Data");
    EXPECT_EQ(StartFolder("C:\\"), "C:\\");
    for (const char* path : {"", "C:\\None", "C:\\Data\\file.txt"})
        EXPECT_EQ(StartFolder(path), platform::ProgramFolder()) << path;
}

} // namespace
} // namespace nesk::BrowseChoice
