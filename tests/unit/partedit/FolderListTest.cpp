#include "partedit/FolderList.h"

#include "platform/ErrorCode.h"
#include "unit/CoreFixture.h"

namespace nesk::FolderList {
namespace {

namespace fs = std::filesystem;
using platform::ErrorCode;
using Names = std::vector<std::string>;

class FolderListTest : public nesk::testing::CoreTest {
protected:
    FolderListTest() { station.AddDrive('D'); }

    // A separate drive, because on Windows the system has folders on drive C:.
    static fs::path Drive() { return TempStation::Host("D:\\"); }
};

TEST_F(FolderListTest, FoldersAreSortedWithoutRegardToCase) {
    for (const char* name : {"beta", "Alpha", "\xC3\xA4rger", "gamma", "ALSO", "\xC3\x84hre"})
        fs::create_directory(TempStation::Host(std::string("D:\\") + name));
    station.Write("D:\\file.txt", "");
    Names names{"from before"};
    EXPECT_EQ(Read("D:\\", names), ErrorCode::Success);
    EXPECT_EQ(names, (Names{"Alpha", "ALSO", "beta", "gamma", "\xC3\x84hre", "\xC3\xA4rger"}));
}

TEST_F(FolderListTest, ThePathMayLackItsSeparator) {
    fs::create_directories(Drive() / "Data" / "Sub");
    Names names;
    EXPECT_EQ(Read("D:\\Data", names), ErrorCode::Success);
    EXPECT_EQ(names, Names{"Sub"});
    EXPECT_EQ(Read("D:\\Data\\Sub\\", names), ErrorCode::Success);
    EXPECT_EQ(names, Names{});
}

#ifdef NESK_PORTABLE_STATION
// On Windows only administrators can create links, and Wine cannot create any.
TEST_F(FolderListTest, LinksToFoldersCountAndLinksThatLeadNowhereDoNot) {
    fs::create_directory_symlink(Drive(), Drive() / "loop");
    fs::create_directory_symlink("/nonexistent", Drive() / "broken");
    Names names;
    EXPECT_EQ(Read("D:\\", names), ErrorCode::Success);
    EXPECT_EQ(names, Names{"loop"});
}
#endif

TEST_F(FolderListTest, AMissingFolderIsAnError) {
    Names names;
    EXPECT_EQ(Read("D:\\None", names), ErrorCode::PathNotFound);
    EXPECT_EQ(Read("E:\\", names), ErrorCode::PathNotFound);
}

TEST_F(FolderListTest, Order) {
    EXPECT_TRUE(Before("alpha", "Beta"));
    EXPECT_FALSE(Before("Beta", "alpha"));
    EXPECT_FALSE(Before("alpha", "alpha"));
    // Names that differ only in case have a fixed order too.
    EXPECT_NE(Before("alpha", "ALPHA"), Before("ALPHA", "alpha"));
}

TEST_F(FolderListTest, APathIsTakenApart) {
    const auto split = [](const char* path) {
        const Parts parts = Split(path);
        std::string text = parts.root;
        for (const std::string& name : parts.names)
            text += "|" + name;
        return text;
    };
    EXPECT_EQ(split("C:\\"), "C:\\");
    EXPECT_EQ(split("d:\\Data\\Sub\\"), "D:\\|Data|Sub");
    EXPECT_EQ(split("C:\\Data\\\\.\\Sub\\..\\Other"), "C:\\|Data|Other");
    EXPECT_EQ(split("C:\\..\\..\\Data"), "C:\\|Data");
    EXPECT_EQ(split("C:/Data/Sub"), "C:\\|Data|Sub");
    EXPECT_EQ(split("\\Data"), "C:\\|Data");
    EXPECT_EQ(split(""), "C:\\");
    EXPECT_EQ(split("\\\\server\\share\\Data\\..\\Other"), "\\\\server\\share\\|Other");
    EXPECT_EQ(split("\\\\server\\share\\..\\.."), "\\\\server\\share\\") << "a share has nothing above it";
    EXPECT_EQ(split("//server/share/Data"), "\\\\server\\share\\|Data");
    EXPECT_EQ(split("\\\\server"), "\\\\server\\");
}

} // namespace
} // namespace nesk::FolderList
