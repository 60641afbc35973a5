#include "checking/FolderUse.h"

#include "base/Messages.h"
#include "unit/checking/CheckingFixture.h"

namespace nesk {
namespace {

class FolderUseTest : public testing::CheckingTest {
protected:
    std::string Folders() {
        std::string text;
        const FolderUse use(*editor.OpenMenu());
        for (const FolderUse::Folder& folder : use.Folders())
            text += folder.path + " " + std::to_string(folder.paths) + "\n";
        return text;
    }

    void Change(const std::string& folder, const std::string& place) {
        const auto changes = FolderUse::Plan(*editor.OpenMenu(), folder, place);
        EXPECT_FALSE(Replacement::Apply(editor, changes, {Message::ChangeFolderOf, {folder}}));
    }
};

TEST_F(FolderUseTest, EveryPathCountsForAllFoldersAboveIt) {
    PartFields fields;
    fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
    fields.graphic = "C:\\Pictures\\a.bmp";
    fields.preview = "c:\\pictures\\b.bmp";
    fields.helpFile = "\\\\server\\share\\help\\a.chm";
    fields.historyDir = "D:\\History\\A\\";
    fields.historyTitle = "C:\\Not\\a path.txt";
    Part("R", "C:\\Not\\a path.txt", fields);
    fields = {};
    fields.programId = "@C:\\Parts\\B\\partinfo.ini@";
    fields.graphic = "relative\\c.bmp";
    fields.preview = "C:\\root.bmp";
    fields.historyDir = "D:\\History";
    Part("R", "b", fields);
    editor.SetGraphic("R", "C:\\Pictures\\main.bmp");
    EXPECT_EQ(Folders(), "\\\\server\\share\\help 1\nC:\\Parts 2\nC:\\Parts\\A 1\nC:\\Parts\\B 1\n"
                         "C:\\Pictures 3\nD:\\History 2\nD:\\History\\A 1\n");
}

TEST_F(FolderUseTest, AFolderComesBeforeThoseBelowIt) {
    for (const char* path : {"C:\\a b\\x.bmp", "C:\\a\\b\\x.bmp", "C:\\a\\x.bmp"}) {
        PartFields fields;
        fields.graphic = path;
        Part("R", "x", fields);
    }
    EXPECT_EQ(Folders(), "C:\\a 2\nC:\\a\\b 1\nC:\\a b 1\n");
}

TEST_F(FolderUseTest, WholeNamesAreCompared) {
    EXPECT_TRUE(FolderUse::IsWithin("C:\\Parts\\x", "c:\\parts"));
    EXPECT_TRUE(FolderUse::IsWithin("C:\\Parts", "C:\\Parts\\"));
    EXPECT_FALSE(FolderUse::IsWithin("C:\\Parts\\x", "C:\\Par"));
    EXPECT_FALSE(FolderUse::IsWithin("C:\\Par", "C:\\Parts"));
    EXPECT_FALSE(FolderUse::IsWithin("C:\\Parts", ""));
}

TEST_F(FolderUseTest, AllPathsBelowAFolderChange) {
    PartFields fields;
    fields.programId = "@C:\\Data\\Parts\\A\\partinfo.ini@";
    fields.graphic = "c:\\DATA\\a.bmp";
    fields.preview = "C:\\Database\\a.bmp";
    fields.helpFile = "D:\\Data\\a.chm";
    fields.historyDir = "C:\\Data\\";
    fields.historyTitle = "C:\\Data\\";
    const std::string id = Part("R", "C:\\Data\\", fields);
    Change("C:\\Data", "\\\\srv\\new\\");
    EXPECT_EQ(Item(id).ProgramID(), "@\\\\srv\\new\\Parts\\A\\partinfo.ini@");
    EXPECT_EQ(Item(id).Graphic(), "\\\\srv\\new\\a.bmp");
    EXPECT_EQ(Item(id).Preview(), "C:\\Database\\a.bmp");
    EXPECT_EQ(Item(id).HelpFile(), "D:\\Data\\a.chm");
    EXPECT_EQ(Item(id).HistoryDir(), "\\\\srv\\new\\");
    EXPECT_EQ(Item(id).HistoryTitle(), "C:\\Data\\");
    EXPECT_EQ(Item(id).Caption(), "C:\\Data\\");
    Change("\\\\srv\\new\\Parts", "D:\\");
    EXPECT_EQ(Item(id).ProgramID(), "@D:\\A\\partinfo.ini@");
    editor.Undo();
    editor.Undo();
    EXPECT_EQ(PartFieldsOf(Item(id)), fields);
}

TEST_F(FolderUseTest, PlacesThatAreNoPlaces) {
    const std::pair<const char*, int> places[] = {
        {"", Message::FolderNoPlace},
        {"\\", Message::FolderNoPlace},
        {"Parts", Message::FolderNotFull},
        {"D:Parts", Message::FolderNotFull},
        {"D:\\a*b", Message::FolderBadCharacter},
        {"D:\\a:b", Message::FolderBadCharacter},
        {"D:\\a@b", Message::FolderBadCharacter},
        {"C:\\Data\\", Message::FolderSamePlace},
        {"C:\\data", 0},
        {"D:\\", 0},
        {"D:", 0},
        {"\\\\server\\share", 0},
        {"\\\\server\\share\\x\\", 0},
        {"C:\\Data\\Below", 0},
    };
    for (const auto& [place, reason] : places)
        EXPECT_EQ(FolderUse::WhyNot("C:\\Data", place), reason) << place;
}

} // namespace
} // namespace nesk
