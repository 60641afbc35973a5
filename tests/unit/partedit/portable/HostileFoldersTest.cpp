#include "partedit/FolderList.h"
#include "partedit/PartScanner.h"
#include "platform/ErrorCode.h"
#include "platform/TextEncoding.h"
#include "unit/CoreFixture.h"
#include "unit/platform/portable/ChildProcess.h"

#include <filesystem>
#include <set>
#include <sys/stat.h>

namespace nesk {
namespace {

namespace fs = std::filesystem;
using nesk::testing::ChildEnd;
using platform::ErrorCode;

// Counts the entries found and records those that cannot be read.
class Counter : public PartScanVisitor {
public:
    Node OnFolder(Node, const std::string&, const std::string& name) override {
        ++folders;
        names.insert(name);
        return nullptr;
    }
    void OnPart(Node, const std::string&, const std::string& name, const std::string&) override {
        ++parts;
        names.insert(name);
    }
    void OnUnreadable(const std::string& path, platform::ErrorCode code, std::uint32_t) override {
        unreadable.push_back(path + " " + std::to_string(Number(code)));
    }
    bool OnProgress(std::size_t) override { return true; }

    std::size_t folders = 0;
    std::size_t parts = 0;
    std::set<std::string> names;
    std::vector<std::string> unreadable;
};

class HostileFoldersTest : public nesk::testing::CoreTest {
protected:
    HostileFoldersTest() { fs::create_directories(m_root); }

    void Scan() { EXPECT_TRUE(ScanParts("D:\\Parts", nullptr, m_found)); }

    const fs::path m_root = TempStation::Host("D:\\Parts");
    Counter m_found;
};

TEST_F(HostileFoldersTest, EachFolderLinksToAllOthers) {
    constexpr std::size_t Folders = 12; // hundreds of millions of paths lead through them
    const auto name = [](std::size_t number) { return "f" + std::to_string(number); };
    for (std::size_t i = 0; i < Folders; ++i)
        fs::create_directory(m_root / name(i));
    for (std::size_t i = 0; i < Folders; ++i)
        for (std::size_t k = 0; k < Folders; ++k)
            fs::create_directory_symlink(m_root / name(k), m_root / name(i) / ("to" + name(k)));
    Scan();
    EXPECT_EQ(m_found.names.size(), 2 * Folders) << "everything is listed at least once";
    // Each folder is entered by its own name and through ten links, and lists the same number each time.
    EXPECT_LE(m_found.folders, Folders + 11 * Folders * Folders);
}

TEST_F(HostileFoldersTest, AFolderIsShownInEveryPlaceThatAFewLinksGiveIt) {
    station.Write("D:\\Parts\\real\\part\\partinfo.ini", "[Part]\r\nName=x\r\n");
    for (int i = 0; i < 5; ++i)
        fs::create_directory_symlink(m_root / "real", m_root / ("link" + std::to_string(i)));
    Scan();
    EXPECT_EQ(m_found.folders, 6u);
    EXPECT_EQ(m_found.parts, 6u);
}

TEST_F(HostileFoldersTest, LinksToThemselvesAndToParents) {
    fs::create_directory_symlink(m_root / "self", m_root / "self");
    fs::create_directory_symlink("..", m_root / "up");
    fs::create_directory_symlink(".", m_root / "here");
    fs::create_directory_symlink("here/here/here/up", m_root / "around");
    Scan();
    EXPECT_LT(m_found.folders, 100u);
    EXPECT_TRUE(m_found.names.contains("here"));
    ASSERT_FALSE(m_found.unreadable.empty());
    const std::string code = " " + std::to_string(Number(ErrorCode::PathNotFound));
    EXPECT_EQ(m_found.unreadable[0].substr(m_found.unreadable[0].rfind('\\')), "\\self" + code);
}

TEST_F(HostileFoldersTest, AThousandFolders) {
    for (int i = 0; i < 1'000; ++i)
        ASSERT_EQ(::mkdir((m_root / std::to_string(i)).c_str(), 0777), 0);
    std::vector<std::string> names;
    EXPECT_EQ(FolderList::Read("D:\\Parts", names), ErrorCode::Success);
    EXPECT_EQ(names.size(), 1'000u);
    Scan();
    EXPECT_EQ(m_found.folders, 1'000u);
    EXPECT_TRUE(m_found.unreadable.empty());
}

TEST_F(HostileFoldersTest, NamesOfEveryKind) {
    platform::SelectCodePage(1033);
    const std::string longest(255, 'n');
    const std::string bytes = "\xFF\xFE\x80";
    const std::string kanji = "日本語";
    const std::string controls = "a\nb\tc\x01";
    const std::string windows = "con: <a>|?\"*";
    for (const std::string& name : {longest, bytes, kanji, controls, windows})
        fs::create_directory(m_root / name);
    Scan();
    // Folders with names that no drive can hold are listed, and reported because they cannot be entered.
    EXPECT_TRUE(m_found.names.contains(longest));
    EXPECT_TRUE(m_found.names.contains(kanji));
    EXPECT_EQ(m_found.folders, 5u);
    EXPECT_EQ(m_found.unreadable.size(), 2u);
    for (const std::string& text : m_found.unreadable)
        EXPECT_TRUE(text.ends_with(" " + std::to_string(Number(ErrorCode::InvalidName)))) << text;
}

TEST_F(HostileFoldersTest, FoldersDeeperThanAPathMayBe) {
    // Created from inside the folders, because the path to the last ones is too long.
    const ChildEnd end = nesk::testing::InChildProcess([this] {
        fs::current_path(m_root);
        const std::string name(250, 'd');
        for (int i = 0; i < 20; ++i) {
            EXPECT_EQ(::mkdir(name.c_str(), 0777), 0);
            EXPECT_EQ(::chdir(name.c_str()), 0);
        }
        return true;
    });
    ASSERT_EQ(end, ChildEnd::Good);
    Scan();
    EXPECT_GT(m_found.folders, 10u);
    EXPECT_LT(m_found.folders, 20u);
    ASSERT_EQ(m_found.unreadable.size(), 1u);
    EXPECT_TRUE(m_found.unreadable[0].ends_with(" " + std::to_string(Number(ErrorCode::InvalidName))));
}

TEST_F(HostileFoldersTest, AFolderThatMayNotBeRead) {
    station.Write("D:\\Parts\\locked\\part\\partinfo.ini", "[Part]\r\nName=x\r\n");
    station.Write("D:\\Parts\\open\\part\\partinfo.ini", "[Part]\r\nName=x\r\n");
    fs::permissions(station.Folder(), fs::perms::all);
    fs::permissions(m_root / "locked", fs::perms::none);
    const ChildEnd end = nesk::testing::InChildProcess([this] {
        nesk::testing::BecomePlainUser();
        Scan();
        EXPECT_EQ(m_found.folders, 2u);
        EXPECT_EQ(m_found.parts, 1u);
        EXPECT_EQ(
            m_found.unreadable,
            std::vector<std::string>{"D:\\Parts\\locked " + std::to_string(Number(ErrorCode::AccessDenied))});
        std::vector<std::string> names;
        EXPECT_EQ(FolderList::Read("D:\\Parts\\locked", names), ErrorCode::AccessDenied);
        EXPECT_TRUE(names.empty());
        return true;
    });
    fs::permissions(m_root / "locked", fs::perms::all);
    EXPECT_EQ(end, ChildEnd::Good);
}

} // namespace
} // namespace nesk
