#include "versions/VersionStore.h"

#include "unit/CoreFixture.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"

#include <chrono>
#include <filesystem>
#include <map>

namespace nesk {
namespace {

using nesk::testing::Fault;
using nesk::testing::FaultyFiles;
using nesk::testing::FileBytes;
using nesk::testing::FilesIn;

const std::string Path = "C:\\Neskroot\\menu.cfg";
const std::string Folder = "C:\\Neskroot\\menu.versions";

std::tm TimeAt(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
    std::tm time{};
    time.tm_year = year - 1900;
    time.tm_mon = month - 1;
    time.tm_mday = day;
    time.tm_hour = hour;
    time.tm_min = minute;
    time.tm_sec = second;
    return time;
}

class VersionStoreTest : public nesk::testing::CoreTest {
protected:
    void WriteVersion(const std::string& name, const std::string& bytes = "old") {
        station.Write(Folder + "\\" + name, bytes);
    }

    std::string Names() const {
        std::string names;
        for (const MenuVersion& version : VersionStore(Path).List())
            names.append(version.path.substr(Folder.size() + 1)).append("\n");
        return names;
    }
};

TEST_F(VersionStoreTest, TheFolderStandsBesideTheFile) {
    EXPECT_EQ(VersionNames::FolderOf(Path), Folder);
    EXPECT_EQ(VersionNames::FolderOf("C:\\a.b\\menu"), "C:\\a.b\\menu.versions");
    EXPECT_EQ(VersionNames::FolderOf("C:\\a\\my.menu.cfg"), "C:\\a\\my.menu.versions");
}

TEST_F(VersionStoreTest, NamesAreReadAsTheyAreWritten) {
    const std::tm time = TimeAt(2026, 11, 22, 14, 32, 5);
    EXPECT_EQ(VersionNames::NameOf(Path, time, 1), "menu 2026-11-22 14.32.05.cfg");
    EXPECT_EQ(VersionNames::NameOf(Path, time, 12), "menu 2026-11-22 14.32.05.12.cfg");
    EXPECT_EQ(VersionNames::NameOf("C:\\menu", time, 2), "menu 2026-11-22 14.32.05.2");
    for (const std::string& path : {Path, std::string("C:\\menu")}) {
        for (const int number : {1, 2, 12}) {
            const auto version = VersionNames::Parse(path, VersionNames::NameOf(path, time, number));
            ASSERT_TRUE(version.has_value());
            EXPECT_EQ(VersionNames::NameOf(path, version->time, version->number),
                      VersionNames::NameOf(path, time, number));
        }
    }
    EXPECT_TRUE(VersionNames::Parse(Path, "MENU 2026-11-22 14.32.05.CFG").has_value());
}

TEST_F(VersionStoreTest, OtherNamesAreNoVersions) {
    for (const char* name :
         {"menu.cfg", "menu 2026-11-22.cfg", "menu 2026-13-22 14.32.05.cfg", "menu 2026-02-30 14.32.05.cfg",
          "menu 2026-11-22 24.32.05.cfg", "menu 2026-11-22 14.32.05.bak", "menu 2026-11-22 14.32.05.1.cfg",
          "menu 2026-11-22 14.32.05.x.cfg", "menu 2026-11-22 14.32.05..cfg", "menus 2026-11-22 14.32.05.cfg",
          "other 2026-11-22 14.32.05.cfg", "menu 2026-11-22 14.32.05.cfg.tmp",
          "menu 2026-11-22 14.32.05 x.cfg", "menu 2026-11-22 14.32.05.02.cfg",
          "menu 2026-11-22 14.32.05.12345678.cfg", ""})
        EXPECT_FALSE(VersionNames::Parse(Path, name).has_value()) << name;
}

TEST_F(VersionStoreTest, AVersionIsKeptOnce) {
    station.Write(Path, "first");
    const VersionStore::Kept kept = VersionStore(Path).Keep();
    EXPECT_FALSE(kept.error.has_value());
    EXPECT_TRUE(kept.isNew);
    EXPECT_EQ(FileBytes(kept.path), "first");
    EXPECT_FALSE(VersionStore(Path).Keep().isNew);
    const auto versions = VersionStore(Path).List();
    ASSERT_EQ(versions.size(), 1u);
    EXPECT_EQ(versions[0].path, kept.path);
    EXPECT_EQ(versions[0].size, 5u);
}

TEST_F(VersionStoreTest, VersionsOfOneSecondGetNumbers) {
    using namespace std::filesystem;
    for (const char* bytes : {"a", "b", "c"}) {
        station.Write(Path, bytes);
        last_write_time(TempStation::Host(Path), file_time_type() + std::chrono::hours(24));
        ASSERT_TRUE(VersionStore(Path).Keep().isNew) << bytes;
    }
    const auto versions = VersionStore(Path).List();
    ASSERT_EQ(versions.size(), 3u);
    EXPECT_EQ(versions[0].number, 3);
    EXPECT_EQ(FileBytes(versions[0].path), "c");
    EXPECT_EQ(FileBytes(versions[2].path), "a");
}

TEST_F(VersionStoreTest, TheNewestOfOneSecondHasTheHighestNumber) {
    using namespace std::filesystem;
    for (const char* bytes : {"a", "b", "c", "d", "e"}) {
        station.Write(Path, bytes);
        last_write_time(TempStation::Host(Path), file_time_type() + std::chrono::hours(24));
        VersionStore store(Path, platform::StationFiles(), {2, 0});
        const VersionStore::Kept kept = store.Keep();
        ASSERT_FALSE(kept.error.has_value());
        EXPECT_EQ(store.List().front().path, kept.path) << bytes;
        EXPECT_EQ(FileBytes(kept.path), bytes);
    }
    const auto versions = VersionStore(Path).List();
    ASSERT_EQ(versions.size(), 2u);
    EXPECT_EQ(FileBytes(versions[1].path), "d");
}

TEST_F(VersionStoreTest, AMissingFileIsNoError) {
    station.Write("C:\\Neskroot\\other.txt", "");
    const VersionStore::Kept kept = VersionStore(Path).Keep();
    EXPECT_FALSE(kept.isNew);
    EXPECT_FALSE(kept.error.has_value());
    EXPECT_EQ(FilesIn("C:\\Neskroot"), "other.txt");
    EXPECT_TRUE(VersionStore(Path).List().empty());
}

TEST_F(VersionStoreTest, TheNewestComesFirstAndOtherFilesAreNotListed) {
    WriteVersion("menu 2026-01-02 10.00.00.cfg");
    WriteVersion("menu 2025-12-31 10.00.00.cfg");
    WriteVersion("menu 2026-01-02 10.00.00.2.cfg");
    WriteVersion("notes.txt");
    std::filesystem::create_directory(TempStation::Host(Folder + "\\menu 2026-01-03 10.00.00.cfg"));
    EXPECT_EQ(Names(), "menu 2026-01-02 10.00.00.2.cfg\nmenu 2026-01-02 10.00.00.cfg\n"
                       "menu 2025-12-31 10.00.00.cfg\n");
}

TEST_F(VersionStoreTest, SurplusKeepsTheNewestAndTheLastOfEachDay) {
    std::vector<MenuVersion> versions;
    for (const std::tm& time : {TimeAt(2026, 11, 22, 12), TimeAt(2026, 11, 22, 11), TimeAt(2026, 11, 22, 10),
                                TimeAt(2026, 11, 21, 12), TimeAt(2026, 11, 21, 11), TimeAt(2025, 11, 22, 10),
                                TimeAt(2025, 11, 21, 10)}) {
        MenuVersion version;
        version.time = time;
        version.path = std::to_string(versions.size());
        versions.push_back(version);
    }
    const auto surplus = [&](std::size_t newest, int days) {
        std::string paths;
        for (const MenuVersion& version : Surplus(versions, TimeAt(2026, 11, 22, 13), {newest, days}))
            paths += version.path;
        return paths;
    };
    EXPECT_EQ(surplus(2, 365), "246");
    EXPECT_EQ(surplus(2, 366), "24");
    EXPECT_EQ(surplus(2, 0), "23456");
    EXPECT_EQ(surplus(7, 0), "");
    EXPECT_EQ(surplus(0, 1), "12456");
}

TEST_F(VersionStoreTest, SurplusIsRemovedAndNothingElse) {
    WriteVersion("menu 2001-01-01 10.00.00.cfg");
    WriteVersion("menu 2001-01-02 10.00.00.cfg");
    WriteVersion("notes.txt");
    station.Write(Path, "new");
    const VersionStore::Kept kept = VersionStore(Path, platform::StationFiles(), VersionLimits{2, 30}).Keep();
    EXPECT_TRUE(kept.isNew);
    EXPECT_EQ(Names(), kept.path.substr(Folder.size() + 1) + "\nmenu 2001-01-02 10.00.00.cfg\n");
    EXPECT_EQ(FileBytes(Folder + "\\notes.txt"), "old");
}

// A file with an old date is surplus at once, but it was kept a moment ago.
TEST_F(VersionStoreTest, TheVersionJustKeptStays) {
    station.Write(Path, "new");
    const VersionStore::Kept kept = VersionStore(Path, platform::StationFiles(), VersionLimits{0, -1}).Keep();
    EXPECT_TRUE(kept.isNew);
    EXPECT_EQ(FileBytes(kept.path), "new");
}

// Every operation fails in turn, with every kind of failure.
TEST_F(VersionStoreTest, AFailureHarmsNeitherTheFileNorTheVersionsToKeep) {
    const std::string keep = "menu 2001-01-02 10.00.00.cfg";
    int failures = 0;
    for (const auto code : {platform::ErrorCode::DiskFull, platform::ErrorCode::AccessDenied,
                            platform::ErrorCode::SharingViolation, platform::ErrorCode::FileNotFound}) {
        for (const bool lasting : {false, true}) {
            for (const bool done : {false, true}) {
                for (int first = 1;; ++first) {
                    std::filesystem::remove_all(TempStation::Host("C:\\Neskroot"));
                    WriteVersion("menu 2001-01-01 10.00.00.cfg");
                    WriteVersion(keep, "kept");
                    WriteVersion("notes.txt");
                    station.Write(Path, "new");
                    FaultyFiles files({first, code, lasting, done});
                    const VersionStore::Kept kept = VersionStore(Path, files, VersionLimits{2, 30}).Keep();
                    EXPECT_EQ(FileBytes(Path), "new");
                    EXPECT_EQ(FileBytes(Folder + "\\" + keep), "kept");
                    EXPECT_EQ(FileBytes(Folder + "\\notes.txt"), "old");
                    if (kept.isNew) {
                        EXPECT_EQ(FileBytes(kept.path), "new");
                    }
                    // A version that was not copied is reported.
                    const bool copyFailed = !files.Failed().empty() && files.Failed().front() == "copy";
                    EXPECT_TRUE(!copyFailed || kept.error.has_value());
                    if (files.Failed().empty()) break;
                    ++failures;
                }
            }
        }
    }
    EXPECT_GT(failures, 50);
}

} // namespace
} // namespace nesk
