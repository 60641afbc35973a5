#include "versions/FindVersion.h"

#include "editing/MenuEditor.h"
#include "unit/CoreFixture.h"
#include "versions/VersionStore.h"

namespace nesk {
namespace {

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

class FindVersionTest : public testing::CoreTest {
protected:
    FindVersionTest() {
        station.Write(Path, "BLOCK MENU\r\nCAPTION=first\r\nEND\r\n");
        m_first = FileHash::Of(Path);
    }

    std::string Found(const FileHash& hash, const std::vector<std::string>& likely = {}) const {
        const std::unique_ptr<Menu> menu = FindVersion(Path, hash.Text(), Folder, likely);
        return menu ? std::string(menu->Caption()) : "(none)";
    }

    FileHash m_first;
};

TEST_F(FindVersionTest, TheBackupIsFound) {
    MenuEditor editor;
    editor.Open(Folder, Path);
    editor.SetCaption("R", "second");
    EXPECT_EQ(Found(m_first), "(none)") << "the menu itself is not a former version";
    editor.Save(Path);
    EXPECT_EQ(Found(m_first), "first");
    EXPECT_EQ(Found(FileHash::Of(Path)), "(none)");
}

TEST_F(FindVersionTest, ANamedFileIsFound) {
    station.Write("D:\\base", "BLOCK MENU\r\nCAPTION=base\r\nEND\r\n");
    EXPECT_EQ(Found(FileHash::Of("D:\\base"), {"", "D:\\missing", "D:\\base"}), "base");
    EXPECT_EQ(Found(FileHash::Of("D:\\base")), "(none)");
}

TEST_F(FindVersionTest, ADatedBackupAndAKeptVersionAreFound) {
    const std::string dated = "BLOCK MENU\r\nCAPTION=dated\r\nEND\r\n";
    station.Write(Path + ".2026-11-22 14.32.05.bak", dated);
    EXPECT_EQ(Found(FileHash::Of(Path + ".2026-11-22 14.32.05.bak")), "dated");
    ASSERT_TRUE(VersionStore(Path).Keep().isNew);
    station.Write(Path, dated);
    EXPECT_EQ(Found(m_first), "first");
}

} // namespace
} // namespace nesk
