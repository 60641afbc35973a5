#include "menu/ReadMenuQuietly.h"

#include "unit/CoreFixture.h"
#include "unit/FaultyFiles.h"

namespace nesk {
namespace {

using nesk::testing::Fault;
using nesk::testing::FaultyFiles;

const std::string Path = "C:\\Neskroot\\menu.cfg";
const std::string Folder = "C:\\Neskroot";
const std::string File = "BLOCK MENU\r\n\tCAPTION=Parts\r\n\tBLOCK SUBMENU\r\n\t\tCAPTION=A\r\n"
                         "\t\tHISTORY_DIR=C:\\History\r\n\tEND\r\nEND\r\n";

class ReadMenuQuietlyTest : public nesk::testing::CoreTest {};

TEST_F(ReadMenuQuietlyTest, AMissingFileGivesNoMenuAndNoMessage) {
    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    EXPECT_EQ(read.menu, nullptr);
    EXPECT_FALSE(read.Exists());
    EXPECT_FALSE(read.error.has_value());
    EXPECT_FALSE(read.IsWhole());
}

TEST_F(ReadMenuQuietlyTest, AFileGivesItsMenuAndItsHash) {
    station.Write(Path, File);
    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    ASSERT_TRUE(read.IsWhole());
    EXPECT_EQ(read.menu->Caption(), "Parts");
    EXPECT_EQ(read.menu->ChildCount(), 1);
    EXPECT_EQ(read.menu->RootDirectory(), Folder);
    EXPECT_EQ(read.hash, FileHash::Of(Path));
}

TEST_F(ReadMenuQuietlyTest, AnEmptyFileExists) {
    station.Write(Path, "");
    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    EXPECT_TRUE(read.Exists());
    EXPECT_TRUE(read.error.has_value());
    EXPECT_EQ(read.hash, FileHash::Of(Path));
}

TEST_F(ReadMenuQuietlyTest, ADamagedFileGivesItsErrorAndTheEntriesBefore) {
    station.Write(Path, File.substr(0, File.size() - 5) + "\tnonsense\r\n" + std::string(1 << 20, '\n'));
    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    ASSERT_TRUE(read.error.has_value());
    EXPECT_EQ(read.error->file, Path);
    EXPECT_EQ(read.error->line, 7);
    EXPECT_EQ(read.menu->ChildCount(), 1);
    EXPECT_EQ(read.hash, FileHash::Of(Path));
}

TEST_F(ReadMenuQuietlyTest, AMissingEndIsNoticed) {
    station.Write(Path, File.substr(0, File.size() - 5));
    const QuietMenu read = ReadMenuQuietly(Path, Folder);
    EXPECT_FALSE(read.error.has_value());
    EXPECT_TRUE(read.endIsMissing);
    EXPECT_FALSE(read.IsWhole());
}

TEST_F(ReadMenuQuietlyTest, NoHistoryIsRegistered) {
    station.Write(Path, File);
    station.BreakSettings(); // registering would fail
    EXPECT_TRUE(ReadMenuQuietly(Path, Folder).IsWhole());
}

TEST_F(ReadMenuQuietlyTest, AFailedReadIsAnError) {
    station.Write(Path, File);
    for (const int first : {1, 2}) {
        FaultyFiles files(Fault{first, platform::ErrorCode::ReadFault, true});
        const QuietMenu read = ReadMenuQuietly(Path, Folder, files);
        ASSERT_TRUE(read.error.has_value());
        EXPECT_TRUE(read.Exists());
        EXPECT_EQ(read.hash.Error(), platform::ErrorCode::ReadFault);
    }
}

} // namespace
} // namespace nesk
