#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "unit/CoreFixture.h"
#include "unit/platform/portable/ChildProcess.h"

#include <filesystem>
#include <sys/stat.h>

namespace nesk {
namespace {

using nesk::testing::BecomePlainUser;
using nesk::testing::ChildEnd;
using nesk::testing::InChildProcess;
using platform::ErrorCode;
namespace fs = std::filesystem;

const std::string Path = "C:\\Data\\menu.cfg";
const std::string Copy = "C:\\Data\\menu.cfg.bak";

// A file that only one group may read.
class BackupRightsTest : public nesk::testing::CoreTest {
protected:
    static constexpr uid_t Owner = 4321;
    static constexpr gid_t Group = 4322;

    BackupRightsTest() {
        station.Write(Path, "a menu");
        // Other users can reach the folder and write in it.
        for (fs::path folder = TempStation::Host("C:\\Data"); folder != station.Folder().parent_path();
             folder = folder.parent_path())
            fs::permissions(folder, static_cast<fs::perms>(0777));
    }

    void SetUp() override {
        if (::geteuid() != 0) GTEST_SKIP() << "only root may give files to a group that he is not in";
    }

    static struct stat StatusOf(const std::string& path) {
        struct stat status {};
        EXPECT_EQ(0, ::stat(TempStation::Host(path).c_str(), &status)) << path;
        return status;
    }

    static void Give(const std::string& path, uid_t owner, mode_t rights) {
        ASSERT_EQ(0, ::chown(TempStation::Host(path).c_str(), owner, Group));
        ASSERT_EQ(0, ::chmod(TempStation::Host(path).c_str(), rights));
    }

    platform::FileSystem& files = platform::StationFiles();
};

TEST_F(BackupRightsTest, ACopyHasTheOwnerTheGroupAndTheRightsOfTheFile) {
    Give(Path, Owner, 0640);
    ASSERT_EQ(files.KeepCopy(Path, Copy, true), ErrorCode::Success);
    const struct stat status = StatusOf(Copy);
    EXPECT_EQ(status.st_uid, Owner);
    EXPECT_EQ(status.st_gid, Group);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

// The user may read the file as everybody or as its owner, and is not in its group.
TEST_F(BackupRightsTest, AnotherGroupGetsNoMoreThanEverybody) {
    const struct {
        mode_t file;
        mode_t copy;
    } table[] = {{0664, 0644}, {0674, 0644}, {0666, 0666}, {0644, 0644}};
    for (const auto& row : table) {
        SCOPED_TRACE(row.file);
        Give(Path, Owner, row.file);
        const ChildEnd end = InChildProcess([&] {
            BecomePlainUser();
            EXPECT_EQ(files.KeepCopy(Path, Copy, true), ErrorCode::Success);
            EXPECT_NE(StatusOf(Copy).st_gid, Group);
            EXPECT_EQ(StatusOf(Copy).st_mode & 0777U, row.copy);
            station.Write("C:\\Data\\mine", "another menu");
            EXPECT_EQ(files.CopyAccessRights(Path, "C:\\Data\\mine"), ErrorCode::Success);
            EXPECT_EQ(StatusOf("C:\\Data\\mine").st_mode & 0777U, row.copy);
            return true;
        });
        EXPECT_EQ(end, ChildEnd::Good);
        fs::remove(TempStation::Host(Copy));
        fs::remove(TempStation::Host("C:\\Data\\mine"));
    }
}

} // namespace
} // namespace nesk
