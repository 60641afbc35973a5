#include "platform/FileStamp.h"

#include "unit/platform/TempStation.h"

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace nesk {
namespace {

using platform::ErrorCode;
using platform::FileStamp;

class FileStampTest : public ::testing::Test {
protected:
    static FileStamp Stamp(const std::string& path) {
        FileStamp stamp;
        EXPECT_EQ(platform::StampOf(path, stamp), ErrorCode::Success) << path;
        return stamp;
    }

    TempStation station;
    const std::string path = "C:\\Pictures\\a.png";
};

TEST_F(FileStampTest, AFileHasItsSize) {
    station.Write(path, "12345");
    EXPECT_EQ(Stamp(path).size, 5u);
    EXPECT_EQ(Stamp("c:\\pictures\\A.PNG"), Stamp(path)) << "case does not matter";
}

TEST_F(FileStampTest, AnotherTimeIsAnotherStamp) {
    station.Write(path, "12345");
    const FileStamp before = Stamp(path);
    EXPECT_EQ(Stamp(path), before);
    const auto host = TempStation::Host(path);
    std::filesystem::last_write_time(host, std::filesystem::last_write_time(host) + std::chrono::seconds(1));
    EXPECT_NE(Stamp(path), before) << "of the same size";
}

TEST_F(FileStampTest, AMissingFileHasNone) {
    FileStamp stamp{7, 8};
    EXPECT_NE(platform::StampOf("C:\\Pictures\\missing.png", stamp), ErrorCode::Success);
    EXPECT_NE(platform::StampOf("", stamp), ErrorCode::Success);
    EXPECT_EQ(stamp, (FileStamp{7, 8}));
}

} // namespace
} // namespace nesk
