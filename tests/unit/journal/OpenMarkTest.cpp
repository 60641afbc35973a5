#include "journal/OpenMark.h"

#include "unit/CoreFixture.h"
#include "unit/FaultyFiles.h"
#include "unit/FileBytes.h"

#include <filesystem>
#include <optional>

namespace nesk {
namespace {

using testing::FaultyFiles;
using testing::FilesIn;
using Names = std::vector<std::string>;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class OpenMarkTest : public testing::CoreTest {
protected:
    OpenMarkTest() { station.Write(Path, "menu"); }
};

TEST_F(OpenMarkTest, TheFirstEditorIsAlone) {
    {
        const OpenMark mark(Path, "Smith on STATION3");
        EXPECT_TRUE(mark.Others().empty());
        EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.open-Smith on STATION3");
    }
    EXPECT_EQ(FilesIn(Folder), "menu.cfg");
}

TEST_F(OpenMarkTest, TheNextOnesSeeWhoIsThere) {
    std::optional<OpenMark> first(std::in_place, Path, "Smith on STATION3");
    std::optional<OpenMark> second(std::in_place, Path, "Smith on STATION3");
    EXPECT_EQ(second->Others(), Names{"Smith on STATION3"});
    const OpenMark third(Path, "Jones on PC");
    EXPECT_EQ(third.Others(), (Names{"Smith on STATION3", "Smith on STATION3"}));
    first.reset();
    EXPECT_EQ(OpenMark(Path, "Miller").Others(), (Names{"Jones on PC", "Smith on STATION3"}));
    second.reset();
    EXPECT_EQ(OpenMark(Path, "Miller").Others(), Names{"Jones on PC"});
}

TEST_F(OpenMarkTest, AMarkOfAKilledProgramIsRemoved) {
    station.Write(Path + ".open-Smith", "");
    const OpenMark mark(Path, "Jones");
    EXPECT_TRUE(mark.Others().empty());
    EXPECT_EQ(FilesIn(Folder), "menu.cfg menu.cfg.open-Jones");
}

TEST_F(OpenMarkTest, MarksOfOtherFilesDoNotCount) {
    const OpenMark other(Folder + "\\menu2.cfg", "Smith");
    EXPECT_TRUE(OpenMark(Path, "Jones").Others().empty());
}

TEST_F(OpenMarkTest, AnOwnerMayHaveAnyName) {
    const OpenMark mark(Path, "A\\B/C:D*E?F\"G<H>I|J");
    EXPECT_EQ(OpenMark(Path, "x").Others(), Names{"A_B_C_D_E_F_G_H_I_J"});
}

TEST_F(OpenMarkTest, EveryFailureLeavesTheMenuAlone) {
    int failed = 0;
    for (int first = 1; first < 10; ++first) {
        station.Write(Path + ".open-Killed", "");
        FaultyFiles files({first, platform::ErrorCode::AccessDenied});
        {
            const OpenMark mark(Path, "Jones", files);
            EXPECT_TRUE(mark.Others().empty());
        }
        failed += static_cast<int>(files.Failed().size());
        EXPECT_EQ(testing::FileBytes(Path), "menu");
        // Whatever was left is cleared away by the next editor.
        EXPECT_TRUE(OpenMark(Path, "Next").Others().empty());
        EXPECT_EQ(FilesIn(Folder), "menu.cfg") << "after the failure of step " << first;
    }
    EXPECT_GE(failed, 4) << "search, next, remove, create and remove again";
}

} // namespace
} // namespace nesk
