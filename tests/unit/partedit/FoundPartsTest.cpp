#include "partedit/FoundParts.h"
#include "partedit/PartSearch.h"
#include "unit/CoreFixture.h"

#include <chrono>
#include <thread>

namespace nesk {
namespace {

class FoundPartsTest : public testing::CoreTest {
protected:
    void MakePart(const std::string& folder, const std::string& name = "Part") {
        station.Write(folder + "\\partinfo.ini", "[Part]\r\nName=" + name + "\r\n");
    }

    static FoundParts Find(const std::string& folder) {
        return FindParts(folder, [](const PartSearchProgress&) { return true; });
    }

    // One line an entry, indented by level.
    static std::string Tree(const std::vector<FoundPart>& found) {
        std::string text;
        std::vector<std::size_t> levels;
        for (const FoundPart& entry : found) {
            levels.push_back(entry.parent == FoundPart::NoParent ? 0 : levels[entry.parent] + 1);
            text.append(levels.back(), ' ').append(entry.name).append(entry.isPart ? "\n" : "/\n");
        }
        return text;
    }
};

TEST_F(FoundPartsTest, FoldersComeBeforePartsAndBothAreSorted) {
    for (const char* part : {"b", "A", "c", "Folder 2\\y", "Folder 2\\X", "folder 1\\inner\\z"})
        MakePart(std::string("D:\\Parts\\") + part);
    station.Write("D:\\Parts\\Empty\\below\\file.txt", "");
    EXPECT_EQ(Tree(Find("D:\\Parts").found), "folder 1/\n inner/\n  z\nFolder 2/\n X\n y\nA\nb\nc\n");
}

TEST_F(FoundPartsTest, APartHasItsNameItsPathAndItsFiles) {
    MakePart("D:\\Parts\\b100", "Bracket, left");
    for (const char* file : {"b.bmp", "A.BMP", "program.txt"})
        station.Write(std::string("D:\\Parts\\b100\\") + file, "");
    station.Write("D:\\Parts\\b100\\below\\c.bmp", "");
    const FoundParts parts = Find("D:\\Parts\\");
    ASSERT_EQ(parts.found.size(), 1u);
    EXPECT_EQ(parts.found[0].partName, "Bracket, left");
    EXPECT_EQ(parts.found[0].path, "D:\\Parts\\b100");
    EXPECT_EQ(parts.found[0].files,
              (std::vector<std::string>{"A.BMP", "b.bmp", "partinfo.ini", "program.txt"}));
    EXPECT_TRUE(parts.isComplete);
    EXPECT_TRUE(parts.folderExists);
}

TEST_F(FoundPartsTest, AFolderThatIsAPartIsTheOnlyOne) {
    MakePart("D:\\Parts\\b100", "Bracket");
    MakePart("D:\\Parts\\b100\\below");
    station.Write("D:\\Parts\\b100\\a.bmp", "");
    for (const char* folder : {"D:\\Parts\\b100", "D:\\Parts\\b100\\", "D:\\Parts\\b100\\partinfo.ini",
                               "D:\\Parts\\b100\\PartInfo.INI"}) {
        const FoundParts parts = Find(folder);
        ASSERT_EQ(Tree(parts.found), "b100\n") << folder;
        EXPECT_EQ(parts.found[0].path, "D:\\Parts\\b100");
        EXPECT_EQ(parts.found[0].partName, "Bracket");
        EXPECT_EQ(parts.found[0].files, (std::vector<std::string>{"a.bmp", "partinfo.ini"}));
    }
}

TEST_F(FoundPartsTest, WhatIsNoFolderHasNoParts) {
    station.Write("D:\\file.txt", "");
    for (const char* folder : {"", " ", "D:\\file.txt", "D:\\missing", "X:\\Parts", "nonsense?*"})
        EXPECT_FALSE(Find(folder).folderExists) << folder;
    EXPECT_TRUE(Find("D:\\missing").found.empty());
}

TEST_F(FoundPartsTest, TheFolderOfAPath) {
    EXPECT_EQ(PartSearchFolder("D:\\Parts\\"), "D:\\Parts");
    EXPECT_EQ(PartSearchFolder(" D:\\Parts "), "D:\\Parts");
    EXPECT_EQ(PartSearchFolder("D:\\"), "D:\\");
    EXPECT_EQ(PartSearchFolder("D:\\PARTINFO.ini"), "D:\\");
    EXPECT_EQ(PartSearchFolder("D:\\Parts\\a\\partinfo.ini"), "D:\\Parts\\a");
    EXPECT_EQ(PartSearchFolder("D:\\Parts\\notpartinfo.ini"), "D:\\Parts\\notpartinfo.ini");
    EXPECT_EQ(PartSearchFolder("partinfo.ini"), "partinfo.ini");
}

TEST_F(FoundPartsTest, SeveralFoldersAreInTheResultThemselves) {
    MakePart("D:\\Parts\\Doors\\front");
    MakePart("D:\\Parts\\b100");
    MakePart("D:\\Parts\\other");
    MakePart("E:\\x");
    const std::string text = JoinedPartFolders(
        {"D:\\Parts\\Doors\\", "D:\\Parts\\b100\\partinfo.ini", "D:\\Parts\\missing", "E:\\"});
    EXPECT_EQ(PartSearchFolder(text), "D:\\Parts\\Doors|D:\\Parts\\b100|D:\\Parts\\missing|E:\\");
    const FoundParts parts = Find(text);
    EXPECT_EQ(Tree(parts.found), "Doors/\n front\nE:/\n x\nb100\n");
    EXPECT_TRUE(parts.folderExists);
    EXPECT_TRUE(parts.isComplete);
    ASSERT_EQ(parts.unreadable.size(), 1u);
    EXPECT_EQ(parts.unreadable[0].arguments.front(), "D:\\Parts\\missing");
}

TEST_F(FoundPartsTest, AFolderWithinAnotherOneIsReadOnce) {
    MakePart("D:\\Parts\\Doors\\front");
    MakePart("D:\\Parts\\Doors 2\\rear");
    for (const char* text : {"D:\\Parts\\Doors\\front|D:\\Parts\\DOORS|D:\\Parts\\Doors 2",
                             "D:\\Parts\\Doors 2|D:\\Parts\\Doors|D:\\Parts\\Doors\\front"})
        EXPECT_EQ(platform::ToUpper(Tree(Find(text).found)), "DOORS/\n FRONT\nDOORS 2/\n REAR\n");
}

TEST_F(FoundPartsTest, WhatWasFoundBeforeAStopStays) {
    MakePart("D:\\Parts\\a folder\\first");
    MakePart("D:\\Parts\\b folder\\second");
    int last = 0;
    const FoundParts all = FindParts("D:\\Parts", [&](const PartSearchProgress& progress) {
        EXPECT_LE(progress.parts, 2u);
        ++last;
        return true;
    });
    ASSERT_TRUE(all.isComplete);
    int calls = 0;
    const FoundParts some = FindParts("D:\\Parts", [&](const PartSearchProgress&) { return ++calls < last; });
    EXPECT_FALSE(some.isComplete);
    EXPECT_EQ(Tree(some.found), Tree(all.found)) << "only the last call said stop";
    const FoundParts none = FindParts("D:\\Parts", [](const PartSearchProgress&) { return false; });
    EXPECT_FALSE(none.isComplete);
    EXPECT_TRUE(none.found.empty());
}

TEST_F(FoundPartsTest, FoldersThatArePartsAreCounted) {
    MakePart("D:\\Parts\\b100");
    MakePart("D:\\Parts\\b200");
    MakePart("D:\\Doors\\front");
    MakePart("D:\\Doors\\rear");
    PartSearchProgress last;
    const auto count = [&](const std::string& folders) {
        last = {};
        const FoundParts parts = FindParts(folders, [&](const PartSearchProgress& progress) {
            EXPECT_GE(progress.foldersRead, last.foldersRead) << "it goes on";
            last = progress;
            return true;
        });
        EXPECT_TRUE(parts.isComplete);
    };
    count("D:\\Parts\\b100");
    EXPECT_EQ(last.parts, 1u);
    EXPECT_EQ(last.foldersRead, 1u);
    count("D:\\Parts\\b100|D:\\Parts\\b200");
    EXPECT_EQ(last.parts, 2u);
    EXPECT_EQ(last.foldersRead, 2u);
    count("D:\\Doors|D:\\Parts\\b100|D:\\Parts\\b200");
    EXPECT_EQ(last.parts, 4u);
    EXPECT_EQ(last.foldersRead, 5u);
    const FoundParts stopped =
        FindParts("D:\\Parts\\b100|D:\\Parts\\b200", [](const PartSearchProgress&) { return false; });
    EXPECT_FALSE(stopped.isComplete);
    EXPECT_EQ(stopped.found.size(), 1u);
}

TEST_F(FoundPartsTest, ASearchInTheBackgroundFindsTheSame) {
    for (int i = 0; i < 30; ++i)
        MakePart("D:\\Parts\\folder " + std::to_string(i % 3) + "\\part " + std::to_string(i));
    PartSearch search("D:\\Parts");
    std::optional<FoundParts> found;
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!(found = search.Take()) && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    ASSERT_TRUE(found);
    EXPECT_EQ(Tree(found->found), Tree(Find("D:\\Parts").found));
    EXPECT_TRUE(found->isComplete);
    EXPECT_EQ(search.Progress().foldersRead, 34u);
    EXPECT_EQ(search.Progress().parts, 30u);
    EXPECT_FALSE(search.Take()) << "the result is given once";
}

} // namespace
} // namespace nesk
