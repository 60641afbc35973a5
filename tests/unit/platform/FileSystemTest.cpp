#include "platform/FileSystem.h"
#include "platform/ErrorCode.h"
#include "platform/UserFolder.h"
#include "unit/platform/TempStation.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <set>
#include <sstream>
#ifdef NESK_PORTABLE_STATION
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

// Uses a drive of its own, because on Windows the system has folders on drive C:.
class FileSystemTest : public ::testing::Test {
protected:
    FileSystemTest() { station.AddDrive('D'); }

    // Attributes without the archive flag. Windows sets the flag on a new file; a station that is a folder
    // does not support it.
    static std::uint32_t WithoutArchive(std::uint32_t attributes) {
        return attributes == FileAttribute::Archive ? FileAttribute::Normal
                                                    : attributes & ~FileAttribute::Archive;
    }

    static fs::path Host(const std::string& name) { return TempStation::Host("D:\\" + name); }

    std::string Contents(const std::string& name) const {
        std::ifstream file(Host(name), std::ios::binary);
        std::ostringstream bytes;
        bytes << file.rdbuf();
        return bytes.str();
    }

    std::set<std::string> Names() const {
        std::set<std::string> names;
        for (const auto& entry : fs::directory_iterator(Host("")))
            names.insert(entry.path().filename().string());
        return names;
    }

    ErrorCode Create(const std::string& path, const std::string& bytes) {
        std::unique_ptr<FileWriter> writer;
        if (const ErrorCode result = files.CreateNew(path, writer); result != ErrorCode::Success)
            return result;
        EXPECT_EQ(writer->Write(bytes), ErrorCode::Success);
        EXPECT_EQ(writer->Flush(), ErrorCode::Success);
        return writer->Close();
    }

    TempStation station;
    FileSystem& files = StationFiles();
};

TEST_F(FileSystemTest, Attributes) {
    station.Write("D:\\plain", "");
    station.Write("D:\\locked", "");
    fs::permissions(Host("locked"), fs::perms::owner_read);
    std::uint32_t attributes = 0;
    EXPECT_EQ(files.Attributes("D:\\PLAIN", attributes), ErrorCode::Success);
    EXPECT_EQ(WithoutArchive(attributes), FileAttribute::Normal);
    EXPECT_EQ(files.Attributes("D:\\locked", attributes), ErrorCode::Success);
    EXPECT_EQ(WithoutArchive(attributes), FileAttribute::ReadOnly);
    EXPECT_EQ(files.Attributes("D:\\", attributes), ErrorCode::Success);
    EXPECT_EQ(attributes, FileAttribute::Directory);
    EXPECT_EQ(files.Attributes("D:\\none", attributes), ErrorCode::FileNotFound);
    EXPECT_EQ(files.Attributes("D:\\none\\none", attributes), ErrorCode::PathNotFound);
    EXPECT_EQ(files.Attributes("", attributes), ErrorCode::PathNotFound);
}

TEST_F(FileSystemTest, SearchWithWildcards) {
    for (const char* name : {"a.ini", "B.INI", "c.txt"})
        station.Write(std::string("D:\\dir\\") + name, "");
    fs::create_directory(Host("dir/sub.ini"));
    std::set<std::string> found;
    std::unique_ptr<DirectorySearch> search;
    DirectoryEntry entry;
    ASSERT_EQ(files.Search("D:\\dir\\*.ini", search, entry), ErrorCode::Success);
    do
        found.insert(entry.name + ((entry.attributes & FileAttribute::Directory) != 0 ? "/" : ""));
    while (search->Next(entry) == ErrorCode::Success);
    EXPECT_EQ(found, (std::set<std::string>{"a.ini", "B.INI", "sub.ini/"}));
    EXPECT_EQ(search->Next(entry), ErrorCode::NoMoreItems);
    EXPECT_EQ(files.Search("D:\\dir\\*.bmp", search, entry), ErrorCode::FileNotFound);
    EXPECT_EQ(files.Search("D:\\none\\*.*", search, entry), ErrorCode::PathNotFound);
    EXPECT_EQ(files.Search("D:\\dir\\A.INI", search, entry), ErrorCode::Success);
    EXPECT_EQ(entry.name, "a.ini");
    EXPECT_EQ(search->Next(entry), ErrorCode::NoMoreItems);
}

TEST_F(FileSystemTest, MakingFolders) {
    EXPECT_EQ(files.MakeFolder("D:\\new"), ErrorCode::Success);
    EXPECT_EQ(files.MakeFolder("D:\\NEW"), ErrorCode::AlreadyExists);
    EXPECT_EQ(files.MakeFolder("D:\\none\\new"), ErrorCode::PathNotFound);
#ifdef NESK_PORTABLE_STATION
    // Windows returns the same code, but Wine returns FileNotFound.
    EXPECT_EQ(files.MakeFolder("D:\\" + std::string(300, 'x')), ErrorCode::InvalidName);
#endif
}

TEST_F(FileSystemTest, Reading) {
    station.Write("D:\\file", "some bytes");
    std::unique_ptr<FileReader> reader;
    ASSERT_EQ(files.OpenForReading("D:\\file", reader), ErrorCode::Success);
    std::array<char, 4> buffer{};
    std::string bytes;
    std::size_t count = 0;
    do {
        ASSERT_EQ(reader->Read(buffer.data(), buffer.size(), count), ErrorCode::Success);
        bytes.append(buffer.data(), count);
    } while (count > 0);
    EXPECT_EQ(bytes, "some bytes");
    EXPECT_EQ(files.OpenForReading("D:\\none", reader), ErrorCode::FileNotFound);
    EXPECT_EQ(files.OpenForReading("D:\\none\\file", reader), ErrorCode::PathNotFound);
    EXPECT_EQ(files.OpenForReading("D:\\", reader), ErrorCode::AccessDenied);
#ifdef NESK_PORTABLE_STATION
    // Windows pipes are not in a folder.
    ASSERT_EQ(::mkfifo(Host("pipe").c_str(), 0600), 0);
    EXPECT_EQ(files.OpenForReading("D:\\pipe", reader), ErrorCode::AccessDenied) << "and it does not wait";
#endif
    EXPECT_EQ(reader, nullptr);
}

// Another program may append to a file faster than it is read.
TEST_F(FileSystemTest, WhatIsAddedAfterOpeningIsNotRead) {
    for (const std::string begin : {"begin", ""}) {
        station.Write("D:\\file", begin);
        std::unique_ptr<FileReader> reader;
        ASSERT_EQ(files.OpenForReading("D:\\file", reader), ErrorCode::Success);
        std::ofstream(Host("file"), std::ios::binary | std::ios::app) << " and more";
        std::array<char, 100> buffer{};
        std::size_t count = 0;
        EXPECT_EQ(reader->Read(buffer.data(), buffer.size(), count), ErrorCode::Success);
        EXPECT_EQ(std::string(buffer.data(), count), begin);
        EXPECT_EQ(reader->Read(buffer.data(), buffer.size(), count), ErrorCode::Success);
        EXPECT_EQ(count, 0U);
    }
}

TEST_F(FileSystemTest, CreatingIsExclusiveAndPrivate) {
    EXPECT_EQ(Create("D:\\file", "bytes"), ErrorCode::Success);
    EXPECT_EQ(Contents("file"), "bytes");
#ifdef NESK_PORTABLE_STATION
    // On Windows a file inherits the rights of its folder.
    EXPECT_EQ(fs::status(Host("file")).permissions(), fs::perms::owner_read | fs::perms::owner_write);
#endif
    std::unique_ptr<FileWriter> writer;
    EXPECT_EQ(files.CreateNew("D:\\FILE", writer), ErrorCode::AlreadyExists);
#ifdef NESK_PORTABLE_STATION
    // On Windows only administrators can create links, and Wine cannot create any.
    fs::create_symlink("/tmp/elsewhere", Host("link"));
    EXPECT_EQ(files.CreateNew("D:\\link", writer), ErrorCode::AlreadyExists) << "links are not followed";
#endif
    EXPECT_EQ(files.CreateNew("D:\\none\\file", writer), ErrorCode::PathNotFound);
}

#ifdef NESK_PORTABLE_STATION
// Windows has no limit that can simulate a full disk.
TEST_F(FileSystemTest, AFullDiskIsReported) {
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(files.CreateNew("D:\\file", writer), ErrorCode::Success);
    // A limit on the file size simulates a full disk.
    struct rlimit before {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    struct rlimit limit = before;
    limit.rlim_cur = 1000;
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &limit), 0);
    const ErrorCode result = writer->Write(std::string(5000, 'x'));
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result, ErrorCode::DiskFull);
}
#endif

TEST_F(FileSystemTest, ReplacingIsDoneInOneStep) {
    station.Write("D:\\file", "old");
    ASSERT_EQ(Create("D:\\file.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("D:\\file", "D:\\file.new"), ErrorCode::Success);
    EXPECT_EQ(Contents("file"), "new");
    EXPECT_EQ(Names(), (std::set<std::string>{"file"}));
    ASSERT_EQ(Create("D:\\other.new", "first"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("D:\\other", "D:\\other.new"), ErrorCode::Success) << "nothing to replace";
    EXPECT_EQ(Contents("other"), "first");
}

TEST_F(FileSystemTest, AProtectedFileIsNotReplaced) {
    station.Write("D:\\file", "old");
    fs::permissions(Host("file"), fs::perms::owner_read);
    ASSERT_EQ(Create("D:\\file.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("D:\\file", "D:\\file.new"), ErrorCode::AccessDenied);
    EXPECT_EQ(Contents("file"), "old");
    fs::create_directory(Host("folder"));
    EXPECT_EQ(files.Replace("D:\\folder", "D:\\file.new"), ErrorCode::AccessDenied);
}

#ifdef NESK_PORTABLE_STATION
// On Windows only administrators can create links, and Wine cannot create any.
TEST_F(FileSystemTest, ReplacingALinkedFileKeepsTheLink) {
    station.Write("D:\\real\\file", "old");
    fs::create_symlink(Host("real/file"), Host("link"));
    ASSERT_EQ(Create("D:\\link.new", "new"), ErrorCode::Success);
    EXPECT_EQ(files.Replace("D:\\link", "D:\\link.new"), ErrorCode::Success);
    EXPECT_TRUE(fs::is_symlink(Host("link")));
    EXPECT_EQ(Contents("real/file"), "new");
}
#endif

TEST_F(FileSystemTest, KeepingCopies) {
    station.Write("D:\\file", "one");
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.bak", true), ErrorCode::Success);
    station.Write("D:\\file", "two");
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.bak", false), ErrorCode::AlreadyExists);
    EXPECT_EQ(Contents("file.bak"), "one");
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.bak", true), ErrorCode::Success);
    EXPECT_EQ(Contents("file.bak"), "two");
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.damaged", false), ErrorCode::Success);
    EXPECT_EQ(Contents("file.damaged"), "two");
    EXPECT_EQ(Contents("file"), "two");
    EXPECT_EQ(Names(), (std::set<std::string>{"file", "file.bak", "file.damaged"}))
        << "nothing is left behind";
    EXPECT_EQ(files.KeepCopy("D:\\none", "D:\\copy", true), ErrorCode::FileNotFound);
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\none\\copy", true), ErrorCode::PathNotFound);
    fs::create_directories(Host("folder/x"));
    EXPECT_NE(files.KeepCopy("D:\\file", "D:\\folder", true), ErrorCode::Success);
    EXPECT_EQ(Names(), (std::set<std::string>{"file", "file.bak", "file.damaged", "folder"}));
}

TEST_F(FileSystemTest, TheCopyOfAProtectedFileIsNotProtected) {
    station.Write("D:\\file", "one");
    fs::permissions(Host("file"), fs::perms::owner_read);
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.bak", true), ErrorCode::Success);
    EXPECT_EQ(files.KeepCopy("D:\\file", "D:\\file.bak", true), ErrorCode::Success);
    EXPECT_EQ(Contents("file.bak"), "one");
    EXPECT_EQ(Names(), (std::set<std::string>{"file", "file.bak"}));
}

#ifdef NESK_PORTABLE_STATION
// The rights on Windows are tested in windows/FileReplaceTest.cpp.
TEST_F(FileSystemTest, AccessRightsAreTakenOver) {
    station.Write("D:\\old", "");
    station.Write("D:\\new", "");
    fs::permissions(Host("old"), static_cast<fs::perms>(0640));
    EXPECT_EQ(files.CopyAccessRights("D:\\old", "D:\\new"), ErrorCode::Success);
    EXPECT_EQ(fs::status(Host("new")).permissions(), static_cast<fs::perms>(0640));
    fs::permissions(Host("old"), static_cast<fs::perms>(06755));
    EXPECT_EQ(files.CopyAccessRights("D:\\old", "D:\\new"), ErrorCode::Success);
    EXPECT_EQ(fs::status(Host("new")).permissions(), static_cast<fs::perms>(0755))
        << "not whose rights it has";
    EXPECT_EQ(files.CopyAccessRights("D:\\none", "D:\\new"), ErrorCode::FileNotFound);
}
#endif

TEST_F(FileSystemTest, RemovingFiles) {
    station.Write("D:\\file", "");
    EXPECT_EQ(files.RemoveFile("D:\\FILE"), ErrorCode::Success);
    EXPECT_EQ(files.RemoveFile("D:\\file"), ErrorCode::FileNotFound);
}

TEST_F(FileSystemTest, AFileIsHeldUntilItsWriterIsGone) {
    EXPECT_FALSE(files.IsHeld("D:\\file")) << "there is no file";
    EXPECT_EQ(files.RemoveUnheld("D:\\file"), ErrorCode::FileNotFound);
    std::unique_ptr<FileWriter> writer;
    ASSERT_EQ(files.CreateNew("D:\\file", writer), ErrorCode::Success);
    EXPECT_TRUE(files.IsHeld("D:\\file"));
    EXPECT_TRUE(files.IsHeld("D:\\file")) << "asking does not change the answer";
    EXPECT_EQ(files.RemoveUnheld("D:\\file"), ErrorCode::SharingViolation);
    EXPECT_EQ(Names(), std::set<std::string>{"file"});
    writer.reset();
    EXPECT_FALSE(files.IsHeld("D:\\file"));
    std::unique_ptr<FileReader> reader;
    ASSERT_EQ(files.OpenForReading("D:\\file", reader), ErrorCode::Success);
    EXPECT_FALSE(files.IsHeld("D:\\file")) << "it is only read";
    reader.reset();
    EXPECT_EQ(files.RemoveUnheld("D:\\file"), ErrorCode::Success) << "although it is new";
    // The folder is not listed: an empty drive has no entries at all on Windows.
    std::uint32_t attributes = 0;
    EXPECT_EQ(files.Attributes("D:\\file", attributes), ErrorCode::FileNotFound);
}

TEST_F(FileSystemTest, TheUserHasAFolder) {
    const std::string folder = UserDataFolder();
    ASSERT_FALSE(folder.empty());
    EXPECT_FALSE(folder.ends_with('\\'));
    EXPECT_EQ(files.MakeFolder(folder), ErrorCode::Success) << folder;
    ASSERT_EQ(Create(folder + "\\file", "bytes"), ErrorCode::Success);
    EXPECT_EQ(files.RemoveFile(folder + "\\file"), ErrorCode::Success);
    fs::remove(TempStation::Host(folder));
}

TEST_F(FileSystemTest, TheProgramFolderHoldsTheTexts) {
    std::uint32_t attributes = 0;
    EXPECT_EQ(files.Attributes(ProgramFolder() + "\\ENU32000.DLL", attributes), ErrorCode::Success);
}

} // namespace
} // namespace nesk::platform
