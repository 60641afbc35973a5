#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/portable/FileNames.h"
#include "platform/portable/Station.h"
#include "unit/platform/TempStation.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace nesk::platform::portable {
namespace {

namespace fs = std::filesystem;

class HostPathTest : public ::testing::Test {
protected:
    fs::path Drive(const std::string& letter) const { return station.Folder() / "drives" / letter; }

    TempStation station;
};

TEST_F(HostPathTest, DrivesLieInTheStation) {
    EXPECT_EQ(ToHostPath("C:\\a\\b.txt"), Drive("c") / "a" / "b.txt");
    EXPECT_EQ(ToHostPath("d:/a"), Drive("d") / "a");
    EXPECT_EQ(ToHostPath("C:"), Drive("c"));
    EXPECT_EQ(ToHostPath("C:\\"), Drive("c"));
    EXPECT_EQ(ToHostPath("\\a"), Drive("c") / "a");
    EXPECT_EQ(ToHostPath("a"), Drive("c") / "a");
    EXPECT_EQ(ToHostPath("Z:\\etc\\passwd"), "/etc/passwd");
}

// The path of a station may end with or without a separator. Naming a drive does not create it.
TEST_F(HostPathTest, ADriveThatIsNotThere) {
    const fs::path drive = Drive("q");
    for (const fs::path& folder : {station.Folder(), station.Folder() / ""}) {
        UseStation(folder);
        EXPECT_EQ(ToHostPath("Q:\\"), drive);
        for (const char* path : {"Q:", "Q:\\", "q:/", "Q:\\a\\.."})
            EXPECT_EQ(StationFiles().MakeFolder(path), ErrorCode::PathNotFound) << folder << " " << path;
        EXPECT_FALSE(fs::exists(drive));
    }
    EXPECT_EQ(StationFiles().MakeFolder("C:\\q"), ErrorCode::Success) << "a folder of that name is none";
}

TEST_F(HostPathTest, NoPathIsNoHostPath) {
    EXPECT_TRUE(ToHostPath("").empty());
    EXPECT_TRUE(ToHostPath("\\\\server\\share\\x").empty());
    EXPECT_TRUE(ToHostPath(std::string("C:\\a\0b", 6)).empty());
}

TEST_F(HostPathTest, NothingLeadsOutOfADrive) {
    EXPECT_EQ(ToHostPath("C:\\..\\..\\x"), Drive("c") / "x");
    EXPECT_EQ(ToHostPath("C:\\a\\..\\..\\b\\.\\c"), Drive("c") / "b" / "c");
    EXPECT_EQ(ToHostPath("C:\\\\a\\\\b\\"), Drive("c") / "a" / "b");
    // An escaped "/" would lead out of the drive, but only bytes that are not ASCII are ever escaped.
    EXPECT_EQ(ToHostPath("C:\\..\xF4\x8F\xB8\xAF..").filename(), "..\xF4\x8F\xB8\xAF");
}

TEST_F(HostPathTest, NamesMatchWithoutRegardToCase) {
    station.Write("C:\\Data\\Prüfung.INI", "x");
    EXPECT_EQ(ToHostPath("c:\\DATA\\PRÜFUNG.ini"), Drive("c") / "Data" / "Prüfung.INI");
    EXPECT_EQ(ToHostPath("C:\\data\\New.ini"), Drive("c") / "Data" / "New.ini")
        << "what is new keeps its spelling";
    EXPECT_EQ(ToHostPath("C:\\Data\\Prüfung.INI. "), Drive("c") / "Data" / "Prüfung.INI");
    station.Write("C:\\Data\\x", "");
    fs::create_directories(Drive("c") / "data");
    EXPECT_EQ(ToHostPath("C:\\data"), Drive("c") / "data") << "the exact spelling comes first";
}

TEST_F(HostPathTest, WindowsPathsOfHostPaths) {
    EXPECT_EQ(ToWindowsPath(Drive("d") / "Parts" / "a b.txt"), "D:\\Parts\\a b.txt");
    EXPECT_EQ(ToWindowsPath(Drive("c")), "C:\\");
    EXPECT_EQ(ToWindowsPath("/usr/share"), "Z:\\usr\\share");
    EXPECT_EQ(ToWindowsPath("/"), "Z:\\");
}

TEST_F(HostPathTest, NamesThatAreNotUtf8Survive) {
    const std::string name = "caf\xE9\xFF.txt";
    EXPECT_EQ(NameFromHost("plain ä"), "plain ä");
    EXPECT_NE(NameFromHost(name), name);
    EXPECT_EQ(NameToHost(NameFromHost(name)), name);
    const fs::path path = Drive("c") / name;
    EXPECT_EQ(ToHostPath(ToWindowsPath(path)), path);
}

// After a file was found, the next ones are first looked for where it was.
class LikelyPathTest : public HostPathTest {
protected:
    LikelyPathTest() {
        station.Write("C:\\Parts\\group1\\a.txt", "a");
        EXPECT_TRUE(IsThere("C:\\Parts\\group1\\a.txt"));
    }

    static bool IsThere(const std::string& path) {
        std::uint32_t attributes = 0;
        const bool exists = StationFiles().Attributes(path, attributes) == ErrorCode::Success;
        std::unique_ptr<FileReader> reader;
        const bool opens = StationFiles().OpenForReading(path, reader) == ErrorCode::Success;
        EXPECT_EQ(exists, opens) << path;
        return exists;
    }
};

TEST_F(LikelyPathTest, FilesInTheSameAndInOtherFolders) {
    station.Write("C:\\Parts\\group1\\b.txt", "b");
    station.Write("C:\\Parts\\group2\\deep\\c.txt", "c");
    EXPECT_EQ(LikelyHostPath("C:\\Parts\\group1\\b.txt"), Drive("c") / "Parts" / "group1" / "b.txt");
    EXPECT_EQ(LikelyHostPath("C:\\Parts\\group2\\x"), Drive("c") / "Parts" / "group2" / "x");
    station.Write("D:\\d.txt", "d");
    EXPECT_EQ(LikelyHostPath("C:\\Parts\\group1\\b.txt"), "") << "only the last folder is known";
    EXPECT_TRUE(IsThere("C:\\Parts\\group1\\b.txt"));
    EXPECT_TRUE(IsThere("C:\\Parts\\group2\\deep\\c.txt"));
    EXPECT_TRUE(IsThere("D:\\d.txt"));
    EXPECT_FALSE(IsThere("C:\\Parts\\group1\\d.txt"));
    EXPECT_FALSE(IsThere("D:\\Parts\\group1\\a.txt"));
}

TEST_F(LikelyPathTest, OtherSpellings) {
    for (const char* path :
         {"c:\\parts\\GROUP1\\A.TXT", "C:\\Parts\\group1\\a.txt.", "C:\\Parts\\group1 \\a.txt",
          "C:/Parts/group1/a.txt", "C:\\Parts\\\\group1\\a.txt", "\\Parts\\group1\\a.txt",
          "C:\\Parts\\group1\\..\\group1\\a.txt"})
        EXPECT_TRUE(IsThere(path)) << path;
    for (const char* path : {"C:\\Parts\\group1\\a.txt\\", "C:\\Parts\\group1\\a?txt",
                             "C:\\Parts\\group1\\a.txt:x", "1:\\Parts\\group1\\a.txt"})
        EXPECT_FALSE(IsThere(path)) << path;
}

// On the host a name may contain what a Windows name cannot.
TEST_F(LikelyPathTest, NamesThatWindowsDoesNotKnow) {
    for (const char* name : {"dot.", "blank ", "a?b", "a:b", "a<b"}) {
        std::ofstream(Drive("c") / "Parts" / "group1" / name) << "x";
        EXPECT_FALSE(IsThere("C:\\Parts\\group1\\" + std::string(name))) << name;
    }
}

TEST_F(LikelyPathTest, FoldersThatAreRenamedMeanwhile) {
    fs::rename(Drive("c") / "Parts", Drive("c") / "PARTS");
    EXPECT_TRUE(IsThere("C:\\Parts\\group1\\a.txt"));
    fs::rename(Drive("c") / "PARTS", Drive("c") / "Other");
    EXPECT_FALSE(IsThere("C:\\Parts\\group1\\a.txt"));
    const TempStation other;
    EXPECT_FALSE(IsThere("C:\\Other\\group1\\a.txt"));
}

// Sets or removes an environment variable while the object lives.
class Variable {
public:
    Variable(const char* name, const char* value) : m_name(name) {
        if (const char* before = std::getenv(name)) m_before = before;
        Set(value);
    }
    ~Variable() { Set(m_before ? m_before->c_str() : nullptr); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    void Set(const char* value) const {
        if (value != nullptr)
            ::setenv(m_name, value, 1);
        else
            ::unsetenv(m_name);
    }

    const char* m_name;
    std::optional<std::string> m_before;
};

TEST(StationFolderTest, TheEnvironmentNamesIt) {
    const Variable home("HOME", "/home/someone");
    {
        const Variable station("NESKMANAGER_STATION", "/tmp/some station/x/../y");
        EXPECT_EQ(DefaultStationFolder(), "/tmp/some station/y");
    }
    const Variable station("NESKMANAGER_STATION", nullptr);
    {
        const Variable data("XDG_DATA_HOME", "/tmp/data");
        EXPECT_EQ(DefaultStationFolder(), "/tmp/data/neskmanager/station");
    }
    const Variable data("XDG_DATA_HOME", "relative");
    EXPECT_EQ(DefaultStationFolder(), "/home/someone/.local/share/neskmanager/station");
}

} // namespace
} // namespace nesk::platform::portable
