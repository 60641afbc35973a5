#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/portable/Station.h"
#include "unit/platform/TempStation.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace nesk::platform {
namespace {

namespace fs = std::filesystem;

TEST(LinkSearchTest, ASearchTellsWhatIsALink) {
    TempStation station;
    station.Write("C:\\there\\file.txt", "x");
    const fs::path drive = TempStation::Host("C:\\");
    fs::create_directory_symlink(drive / "there", drive / "linked");
    fs::create_symlink(drive / "there" / "file.txt", drive / "linked.txt");
    fs::create_symlink(drive / "nowhere", drive / "dangling");
    std::map<std::string, std::uint32_t> found;
    std::unique_ptr<DirectorySearch> search;
    DirectoryEntry entry;
    ErrorCode result = StationFiles().Search("C:\\*.*", search, entry);
    for (; result == ErrorCode::Success; result = search->Next(entry))
        found[entry.name] = entry.attributes;
    EXPECT_EQ(result, ErrorCode::NoMoreItems);
    EXPECT_EQ(found["there"], FileAttribute::Directory);
    EXPECT_EQ(found["linked"], FileAttribute::Directory | FileAttribute::Link);
    EXPECT_EQ(found["linked.txt"], FileAttribute::Normal | FileAttribute::Link);
    EXPECT_EQ(found["dangling"], FileAttribute::Normal | FileAttribute::Link);
}

// The cache of folders notices changes on the host.
TEST(KnownFoldersTest, FollowWhatHappensOnTheHost) {
    TempStation station;
    station.Write("C:\\Parts\\Bore\\partinfo.ini", "x");
    const fs::path parts = TempStation::Host("C:\\") / "Parts";
    EXPECT_EQ(portable::ToHostPath("C:\\parts\\BORE\\partinfo.ini"), parts / "Bore" / "partinfo.ini");
    fs::rename(parts / "Bore", parts / "bore");
    EXPECT_EQ(portable::ToHostPath("C:\\parts\\BORE\\partinfo.ini"), parts / "bore" / "partinfo.ini");
    fs::rename(parts, parts.parent_path() / "PARTS");
    EXPECT_EQ(portable::ToHostPath("C:\\parts\\BORE\\partinfo.ini"),
              parts.parent_path() / "PARTS" / "bore" / "partinfo.ini");
    EXPECT_EQ(portable::ToHostPath("D:\\parts\\BORE"), station.Folder() / "drives" / "d" / "parts" / "BORE");
    EXPECT_EQ(portable::ToHostPath("\\parts\\bore. \\x"), parts.parent_path() / "PARTS" / "bore" / "x");
    EXPECT_EQ(portable::ToHostPath("C:\\parts\\bore\\..\\x"), parts.parent_path() / "PARTS" / "x");
}

TEST(KnownFoldersTest, EachStationHasItsOwn) {
    TempStation first;
    first.Write("C:\\Parts\\a.txt", "x");
    EXPECT_EQ(portable::ToHostPath("C:\\PARTS\\A.TXT"), first.Folder() / "drives" / "c" / "Parts" / "a.txt");
    TempStation second;
    second.Write("C:\\parts\\a.txt", "x");
    EXPECT_EQ(portable::ToHostPath("C:\\PARTS\\A.TXT"), second.Folder() / "drives" / "c" / "parts" / "a.txt");
}

} // namespace
} // namespace nesk::platform
