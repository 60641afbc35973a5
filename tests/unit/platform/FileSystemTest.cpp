#include "platform/FileSystem.h"
#include "platform/ErrorCode.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#include <sys/resource.h>
#include <sys/stat.h>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

class FileSystemTest : public ::testing::Test {
protected:
    fs::path Host(const std::string& name) const { return station.Folder() / "drives" / "c" / name; }

    std::string Contents(const std::string& name) const {
        std::ifstream file(Host(name), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Host("")))
            names.insert(entry.path().filename());
        return names;
    }

    int Create(const std::string& path, const std::string& bytes) {
        std::unique_ptr<FileWriter> writer;
        if (const int result = files.CreateNew(path, writer); result != ErrorCode::Success) return result;
        EXPECT_EQ(writer->Write(bytes), ErrorCode::Success);
        EXPECT_EQ(writer->Flush(), ErrorCode::Success);
        return writer->Close();
    }

    TempStation station;
    FileSystem& files = StationFiles();
};

TEST_F(FileSystemTest, Attributes) {
    station.Write("C:\\plain", "");
    station.Write("C:\\locked", "");
    fs::permissions(Host("locked"), fs::perms::owner_read);
    std::uint32_t attributes = 0;
    EXPECT_EQ(files.Attributes("C:\\PLAIN", attributes), ErrorCode::Success);
    EXPECT_EQ(attributes, FileAttribute::Normal);
    EXPECT_EQ(files.Attributes("C:\\locked", attributes), ErrorCode::Success);
    EXPECT_EQ(attributes, FileAttribute::ReadOnly);
    EXPECT_EQ(files.Attributes("C:\\", attributes), ErrorCode::Success);
    EXPECT_EQ(attributes, FileAttribute::Directory);
    EXPECT_EQ(files.Attributes("C:\\none", attributes), ErrorCode::FileNotFound);
    EXPECT_EQ(files.Attributes("C:\\none\\none", attributes), ErrorCode::PathNotFound);
    EXPECT_EQ(files.Attributes("", attributes), ErrorCode::PathNotFound);
}

TEST_F(FileSystemTest, SearchWithWildcards) {
    for (const char* name : {"a.ini", "B.INI", "c.txt"})
        station.Write(std::string("C:\\dir\\") + name, "");
    fs::create_directory(Host("dir/sub.ini"));
    std::set<std::string> found;
    std::unique_ptr<DirectorySearch> search;
    DirectoryEntry entry;
    ASSERT_EQ(files.Search("C:\\dir\\*.ini", search, entry), ErrorCode::Success);
    do
        found.insert(entry.name + ((entry.attributes & FileAttribute::Directory) != 0 ? "/" : ""));
    while (search->Next(entry) == ErrorCode::Success);
    EXPECT_EQ(found, (std::set<std::string>{"a.ini", "B.INI", "sub.ini/"}));
    EXPECT_EQ(search->Next(entry), ErrorCode::NoMoreItems);
    EXPECT_EQ(files.Search("C:\\dir\\*.bmp", search, entry), ErrorCode::FileNotFound);
    EXPECT_EQ(files.Search("C:\\none\\*.*", search, entry), ErrorCode::PathNotFound);
    EXPECT_EQ(files.Search("C:\\dir\\A.INI", search, entry), ErrorCode::Success);
    EXPECT_EQ(entry.name, "a.ini");
    EXPECT_EQ(search->Next(entry), ErrorCode::NoMoreItems);
}

TEST_F(FileSystemTest, MakingFolders) {
    EXPECT_EQ(files.MakeFolder("C:\\new"), ErrorCode::Success);
    EXPECT_EQ(files.MakeFolder("C:\\NEW"), ErrorCode::AlreadyExists);
    EXPECT_EQ(files.MakeFolder("C:\\none\\new"), ErrorCode::PathNotFound);
    EXPECT_EQ(files.MakeFolder("C:\\" + std::string(300, 'x')), ErrorCode::InvalidName);
}

TEST_F(FileSystemTest, Reading) {
    station.Write("C:\\file", "some bytes");
    std::unique_ptr<FileReader> reader;
    ASSERT_EQ(files.OpenForReading("C:\\file", reader), ErrorCode::Success);
    std::array<char, 4> buffer{};
    std::string bytes;
    std::size_t count = 0;
    do {
        ASSERT_EQ(reader->Read(buffer.data(), buffer.size(), count), ErrorCode::Success);
        bytes.append(buffer.data(), count);
    } while (count > 0);
    EXPECT_EQ(bytes, "some bytes");
    EXPECT_EQ(files.OpenForReading("C:\\none", reader), ErrorCode::FileNotFound);
    EXPECT_EQ(files.OpenForReading("C:\\none\\file", reader), ErrorCode::PathNotFound);
    EXPECT_EQ(files.OpenForReading("C:\\", reader), ErrorCode::AccessDenied);
    ASSERT_EQ(::mkfifo(Host("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.OpenForReading("C:\\pipe", reader), ErrorCode::AccessDenied) << "and it does not wait";
    EXPECT_EQ(reader, nullptr);
}

TEST_F(FileSystemTest, CreatingIsExclusiveAndPrivate) {
    EXPECT_EQ(Create("C:\\file", "bytes"), ErrorCode::Success);
    EXPECT_EQ(Contents("file"), "bytes");
    EXPECT_EQ(fs::status(Host("file")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
    std::unique_ptr<FileWriter> writer;
    EXPECT_EQ(files.CreateNew("C:\\FILE", writer), ErrorCode::AlreadyExists);
    fs::create_symlink("/tmp/elsewhere", Host("link"));
    EXPECT_EQ(files.CreateNew("C:\\link", writer), ErrorCode::AlreadyExists) << "links are not followed";
    EXPECT_EQ(files.CreateNew("C:\\none\\file", writer), ErrorCode::PathNotFound);
}

TEST_F(FileSystemTest, AFullDiskIsReported) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(files.CreateNew("C:\\file", writer), ErrorCode::Success);
    // A limit on the size of files stands in for the end of the disk.
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit limit = before;
    limit.rlim_cur = 1000;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const int result = writer->Write(std::string(5000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result, ErrorCode::DiskFull);
}

TEST_F(FileSystemTest, ReplacingIsDoneInOneStep) {
    station.Write("C:\\file", "old");
    ASSERT_EQ(Create("C:\\file.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("C:\\file", "C:\\file.new"), ErrorCode::Success);
    EXPECT_EQ(Contents("file"), "new");
    EXPECT_EQ(Names(), (std::set<std::string>{"file"}));
    ASSERT_EQ(Create("C:\\other.new", "first"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("C:\\other", "C:\\other.new"), ErrorCode::Success) << "nothing to replace";
    EXPECT_EQ(Contents("other"), "first");
}

TEST_F(FileSystemTest, AProtectedFileIsNotReplaced) {
    station.Write("C:\\file", "old");
    fs::permissions(Host("file"), fs::perms::owner_read);
    ASSERT_EQ(Create("C:\\file.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("C:\\file", "C:\\file.new"), ErrorCode::AccessDenied);
    EXPECT_EQ(Contents("file"), "old");
    fs::create_directory(Host("folder"));
    EXPECT_EQ(files.Replace("C:\\folder", "C:\\file.new"), ErrorCode::AccessDenied);
}

TEST_F(FileSystemTest, ReplacingALinkedFileKeepsTheLink) {
    station.Write("C:\\real\\file", "old");
    fs::create_symlink(Host("real/file"), Host("link"));
    ASSERT_EQ(Create("C:\\link.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("C:\\link", "C:\\link.new"), ErrorCode::Success);
    EXPECT_TRUE(fs::is_symlink(Host("link")));
    EXPECT_EQ(Contents("real/file"), "new");
}

TEST_F(FileSystemTest, KeepingCopies) {
    station.Write("C:\\file", "one");
    EXPECT_EQ(files.KeepCopy("C:\\file", "C:\\file.bak", true), ErrorCode::Success);
    station.Write("C:\\file", "two");
    EXPECT_EQ(files.KeepCopy("C:\\file", "C:\\file.bak", false), ErrorCode::AlreadyExists);
    EXPECT_EQ(Contents("file.bak"), "one");
    EXPECT_EQ(files.KeepCopy("C:\\file", "C:\\file.bak", true), ErrorCode::Success);
    EXPECT_EQ(Contents("file.bak"), "two");
    EXPECT_EQ(files.KeepCopy("C:\\file", "C:\\file.damaged", false), ErrorCode::Success);
    EXPECT_EQ(Contents("file.damaged"), "two");
    EXPECT_EQ(Contents("file"), "two");
    EXPECT_EQ(Names(), (std::set<std::string>{"file", "file.bak", "file.damaged"}))
        << "nothing is left behind";
    EXPECT_EQ(files.KeepCopy("C:\\none", "C:\\copy", true), ErrorCode::FileNotFound);
    EXPECT_EQ(files.KeepCopy("C:\\file", "C:\\none\\copy", true), ErrorCode::PathNotFound);
    fs::create_directories(Host("folder/x"));
    EXPECT_NE(files.KeepCopy("C:\\file", "C:\\folder", true), ErrorCode::Success);
    EXPECT_EQ(Names(), (std::set<std::string>{"file", "file.bak", "file.damaged", "folder"}));
}

TEST_F(FileSystemTest, AccessRightsAreTakenOver) {
    station.Write("C:\\old", "");
    station.Write("C:\\new", "");
    fs::permissions(Host("old"), static_cast<fs::perms>(0640));
    EXPECT_EQ(files.CopyAccessRights("C:\\old", "C:\\new"), ErrorCode::Success);
    EXPECT_EQ(fs::status(Host("new")).permissions(), static_cast<fs::perms>(0640));
    EXPECT_EQ(files.CopyAccessRights("C:\\none", "C:\\new"), ErrorCode::FileNotFound);
}

TEST_F(FileSystemTest, RemovingFiles) {
    station.Write("C:\\file", "");
    EXPECT_EQ(files.RemoveFile("C:\\FILE"), ErrorCode::Success);
    EXPECT_EQ(files.RemoveFile("C:\\file"), ErrorCode::FileNotFound);
}

TEST_F(FileSystemTest, TheProgramFolderHoldsTheTexts) {
    std::uint32_t attributes = 0;
    EXPECT_EQ(files.Attributes(ProgramFolder() + "\\ENU32000.DLL", attributes), ErrorCode::Success);
}

} // namespace
} // namespace nesk::platform
