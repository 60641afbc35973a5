#include "partedit/PartScanner.h"
#include "partedit/RepositoryRoot.h"
#include "platform/ErrorCode.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace nesk {
namespace {

namespace fs = std::filesystem;

// Records the tree of what was found: one line per entry, indented by level.
class Recorder : public PartScanVisitor {
public:
    Node OnFolder(Node parent, const std::string& path, const std::string& name) override {
        EXPECT_TRUE(path.ends_with("\\" + name)) << path;
        levels.push_back(std::make_unique<std::size_t>(Add(parent, name + "/")));
        return levels.back().get();
    }
    void OnPart(Node parent, const std::string& path, const std::string& name,
                const std::string& partName) override {
        EXPECT_TRUE(path.ends_with("\\" + name)) << path;
        Add(parent, name);
        partNames.push_back(partName);
    }
    void OnPartFiles(const std::string& path, std::vector<std::string>& names) override {
        std::sort(names.begin(), names.end());
        files += path + ":";
        for (const std::string& name : names)
            files += " " + name;
        files += "\n";
    }
    void OnUnreadable(const std::string& path, platform::ErrorCode code, std::uint32_t) override {
        unreadable.push_back(path + " " + std::to_string(Number(code)));
    }
    bool OnProgress(std::size_t count) override {
        EXPECT_FALSE(calledOff) << "asked again after it was called off";
        EXPECT_GE(count, foldersRead) << "the number went back";
        EXPECT_LE(count, foldersRead + 1) << "a folder was read without a call before it";
        foldersRead = count;
        ++calls;
        calledOff = foldersRead >= mostFolders;
        return !calledOff;
    }

    std::string tree;
    std::vector<std::string> unreadable;
    std::vector<std::string> partNames;
    std::string files; // of the parts
    std::size_t calls = 0;
    std::size_t foldersRead = 0;
    std::size_t mostFolders = 1000000; // the scan is cancelled after this many folders
    bool calledOff = false;

private:
    std::size_t Add(Node parent, const std::string& text) {
        const std::size_t level = parent == nullptr ? 0 : *static_cast<std::size_t*>(parent) + 1;
        tree += std::string(level, ' ') + text + "\n";
        return level;
    }

    std::vector<std::unique_ptr<std::size_t>> levels;
};

class PartScannerTest : public testing::CoreTest {
protected:
    void MakePart(const std::string& folder, const std::string& name = "Part") {
        station.Write(folder + "\\partinfo.ini", "[Part]\r\nName=" + name + "\r\n");
    }

    static fs::path Host(const std::string& path) { return TempStation::Host(path); }

    Recorder recorder;
};

TEST_F(PartScannerTest, FoldersComeBeforeParts) {
    MakePart("D:\\Parts\\a part");
    MakePart("D:\\Parts\\folder\\inner");
    station.Write("D:\\Parts\\file.txt", "");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "folder/\n inner\na part\n");
    EXPECT_EQ(recorder.foldersRead, 4u) << "the root, and each folder below it once";
}

TEST_F(PartScannerTest, PartsAreToldWithTheirNames) {
    MakePart("D:\\Parts\\b100", "Bracket, left");
    MakePart("D:\\Parts\\folder\\b200", "Bracket, right");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.partNames, (std::vector<std::string>{"Bracket, right", "Bracket, left"}));
}

TEST_F(PartScannerTest, PartsAreToldWithTheirFiles) {
    MakePart("D:\\Parts\\folder\\b200");
    station.Write("D:\\Parts\\folder\\b200\\a.bmp", "");
    station.Write("D:\\Parts\\folder\\b200\\below\\b.bmp", "");
    station.Write("D:\\Parts\\folder\\c.bmp", "");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.files, "D:\\Parts\\folder\\b200: a.bmp partinfo.ini\n");
    EXPECT_EQ(ReadPartFolder("D:\\Parts\\folder"), std::nullopt);
    const std::optional<PartFolder> part = ReadPartFolder("D:\\Parts\\folder\\b200");
    ASSERT_TRUE(part);
    EXPECT_EQ(part->partName, "Part");
    EXPECT_EQ(part->files.size(), 2u);
}

TEST_F(PartScannerTest, ARootThatIsNoFolderIsEmpty) {
    station.Write("D:\\file.txt", "");
    for (const char* root :
         {"D:\\None", "D:\\no|name", "D:\\a*", "Q:\\Parts", "\\\\server\\share", "::", "D:\\file.txt"}) {
        EXPECT_TRUE(ScanParts(root, nullptr, recorder)) << root;
        EXPECT_EQ(recorder.tree, "") << root;
        EXPECT_TRUE(recorder.unreadable.empty()) << root << ": " << recorder.unreadable.front();
        recorder = Recorder();
    }
}

#ifdef NESK_PORTABLE_STATION
// On other systems there is no second way to query the order.
TEST_F(PartScannerTest, FoldersAndPartsKeepTheOrderOfTheFileSystem) {
    for (const char* name : {"m", "c", "z", "a", "q", "f", "x", "b"}) {
        station.Write(std::string("D:\\Parts\\f") + name + "\\x", "");
        MakePart(std::string("D:\\Parts\\p") + name);
    }
    std::string folders;
    std::string parts;
    for (const auto& entry : fs::directory_iterator(Host("D:\\Parts"))) {
        const std::string name = entry.path().filename().string();
        if (name.starts_with('f'))
            folders += name + "/\n";
        else
            parts += name + "\n";
    }
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.tree, folders + parts);
}
#endif

TEST_F(PartScannerTest, TheRootIsScannedEvenWhereItIsAPart) {
    MakePart("D:\\Parts");
    MakePart("D:\\Parts\\inner");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "inner\n");
}

TEST_F(PartScannerTest, WithoutANameItIsAFolder) {
    station.Write("D:\\Parts\\nameless\\partinfo.ini", "[Part]\r\nNumber=1\r\n");
    station.Write("D:\\Parts\\nameless\\empty\\partinfo.ini", "[Part]\r\nName=\r\n");
    MakePart("D:\\Parts\\nameless\\empty\\part");
    ScanParts("D:\\Parts", nullptr, recorder);
    EXPECT_EQ(recorder.tree, "nameless/\n empty/\n  part\n");
}

TEST_F(PartScannerTest, WhatLiesInAPartIsNotShown) {
    MakePart("D:\\Parts\\part");
    MakePart("D:\\Parts\\part\\sub\\other");
    ScanParts("D:\\Parts", nullptr, recorder);
    EXPECT_EQ(recorder.tree, "part\n");
}

TEST_F(PartScannerTest, NamesWithALeadingDotAreLeftOut) {
    MakePart("D:\\Parts\\.hidden");
    station.Write("D:\\Parts\\.git\\x\\y", "");
    ScanParts("D:\\Parts", nullptr, recorder);
    EXPECT_EQ(recorder.tree, "");
    EXPECT_TRUE(recorder.unreadable.empty());
}

TEST_F(PartScannerTest, ADriveIsScannedFromItsRoot) {
    MakePart("D:\\part");
    EXPECT_TRUE(ScanParts("D:\\", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "part\n");
    recorder.tree.clear();
    recorder.foldersRead = 0;
    EXPECT_TRUE(ScanParts("D:", nullptr, recorder)) << "the root as a repository is named";
    EXPECT_EQ(recorder.tree, "part\n");
    EXPECT_EQ(PartInfoPath("D:\\"), "D:\\partinfo.ini");
    EXPECT_EQ(PartInfoPath("D:\\a"), "D:\\a\\partinfo.ini");
}

TEST_F(PartScannerTest, AMissingRootGivesAnEmptyTree) {
    EXPECT_TRUE(ScanParts("D:\\None", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "");
    EXPECT_EQ(recorder.foldersRead, 1u) << "the end of a scan is told of";
    EXPECT_TRUE(recorder.unreadable.empty());
}

TEST_F(PartScannerTest, AScanThatIsCalledOffStopsAtOnce) {
    for (const char* name : {"a", "b", "c", "d"})
        station.Write(std::string("D:\\Parts\\") + name + "\\inner\\x", "");
    recorder.mostFolders = 6; // the root, its entries, and the entry of the first folder
    EXPECT_FALSE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.foldersRead, 6u);
    EXPECT_EQ(recorder.tree.size(), std::string("a/\n").size()) << recorder.tree;
}

// If progress were reported only after all parts of a folder are read, the window would freeze meanwhile.
TEST_F(PartScannerTest, ManyPartsInOneFolderAreReadWithProgress) {
    for (int i = 0; i < 300; ++i)
        MakePart("D:\\Parts\\all\\" + std::to_string(i));
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.foldersRead, 302u);
    EXPECT_EQ(std::count(recorder.tree.begin(), recorder.tree.end(), '\n'), 301);
    EXPECT_GE(recorder.calls, 2 * 300u) << "while they are read, and while they are told of";

    Recorder hasty;
    hasty.mostFolders = 150;
    EXPECT_FALSE(ScanParts("D:\\Parts", nullptr, hasty));
    EXPECT_EQ(hasty.foldersRead, 150u) << "the rest of the folder was read";
    EXPECT_EQ(hasty.tree, "all/\n") << "parts are told of when the folder is read";
}

TEST_F(PartScannerTest, AScanThatIsCalledOffTellsOfNoPart) {
    MakePart("D:\\Parts\\part");
    recorder.mostFolders = 2;
    EXPECT_FALSE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "") << "a part was told of after it was called off";
}

#ifdef NESK_PORTABLE_STATION
// On Windows only administrators can create links, and Wine cannot create any.
TEST_F(PartScannerTest, LinksThatLoopAreNotFollowedForEver) {
    MakePart("D:\\Parts\\folder\\part");
    fs::create_directory_symlink(Host("D:\\Parts"), Host("D:\\Parts\\folder") / "back");
    fs::create_directory_symlink(Host("D:\\Parts\\folder"), Host("D:\\Parts") / "twice");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_NE(recorder.tree.find("folder/\n back/\n"), std::string::npos) << recorder.tree;
    EXPECT_NE(recorder.tree.find("twice/\n"), std::string::npos) << "another way to a folder is a folder";
    EXPECT_LT(recorder.tree.size(), 200u);
}

TEST_F(PartScannerTest, WhatCannotBeReadIsReportedAndTheScanGoesOn) {
    MakePart("D:\\Parts\\part");
    fs::create_symlink("/nonexistent/file", Host("D:\\Parts") / "dangling");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.tree, "part\n");
    ASSERT_EQ(recorder.unreadable.size(), 1u);
    EXPECT_TRUE(recorder.unreadable[0].starts_with("D:\\Parts\\dangling ")) << recorder.unreadable[0];
}
#endif

TEST_F(PartScannerTest, VeryDeepFoldersNeedNoDeepStack) {
    std::string path = "D:\\Parts";
    for (int i = 0; i < 300; ++i)
        path += "\\d";
    MakePart(path + "\\part");
    EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, recorder));
    EXPECT_EQ(recorder.foldersRead, 302u);
    EXPECT_TRUE(recorder.tree.ends_with(std::string(300, ' ') + "part\n"));
}

class RepositoryRootTest : public testing::CoreTest {
protected:
    static void Set(const std::string& key, const std::string& name, const std::string& value) {
        RegEntry entry;
        entry.CreateKey(key);
        entry.SetString(name, value);
    }
};

TEST_F(RepositoryRootTest, ADriveIsNamedWithoutItsBackslashToo) {
    Set("Common", "RepositoryRoot", "E:\\");
    EXPECT_EQ(RepositoryRoot(), "E:");
}

TEST_F(RepositoryRootTest, TheUsersOwnComesFirst) {
    EXPECT_EQ(RepositoryRoot(), "");
    Set("Common", "RepositoryRoot", "D:\\Common\\\\");
    EXPECT_EQ(RepositoryRoot(), "D:\\Common") << "whether it exists or not";
    Set("Neskworks", "NeskUser", "Users\\U1");
    EXPECT_EQ(RepositoryRoot(), "D:\\Common");
    Set("Users\\U1", "RepositoryRoot", "D:\\Own\\");
    EXPECT_EQ(RepositoryRoot(), "D:\\Common") << "the user's folder does not exist";
    station.Write("D:\\Own\\x", "");
    EXPECT_EQ(RepositoryRoot(), "D:\\Own");
}

} // namespace
} // namespace nesk
