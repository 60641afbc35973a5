#include "platform/FileIdentity.h"

#include "unit/platform/TempStation.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

TEST(FileIdentity, TellsFilesAndFoldersApart) {
    TempStation station;
    station.Write("D:\\folder\\one", "same");
    station.Write("D:\\folder\\two", "same");
    const std::string one = FileIdentity("D:\\folder\\one");
    EXPECT_NE("", one);
    EXPECT_EQ(one, FileIdentity("d:\\FOLDER\\One"));
    EXPECT_NE(one, FileIdentity("D:\\folder\\two"));
    const std::string folder = FileIdentity("D:\\folder");
    EXPECT_NE("", folder);
    EXPECT_NE(one, folder);
    EXPECT_EQ(folder, FileIdentity("D:\\folder\\"));
    EXPECT_NE(folder, FileIdentity("D:\\"));
    for (const char* nowhere : {"", "D:\\none", "D:\\none\\one", "D:\\folder\\one\\x", "Q:\\"})
        EXPECT_EQ("", FileIdentity(nowhere)) << nowhere;
}

TEST(FileIdentity, IsTheSameThroughASecondName) {
    TempStation station;
    station.Write("D:\\one", "");
    std::filesystem::create_hard_link(TempStation::Host("D:\\one"), TempStation::Host("D:\\other"));
    EXPECT_EQ(FileIdentity("D:\\one"), FileIdentity("D:\\other"));
}

} // namespace
} // namespace nesk::platform
