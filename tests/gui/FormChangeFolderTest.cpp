#include "checking/FormChangeFolder.h"

#include "gui/ModalDriver.h"
#include "gui/UiDriver.h"
#include "menu/MenuItem.h"
#include "partedit/FormBrowse.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "unit/checking/CheckingFixture.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormChangeFolderTest : public CheckingTest {
protected:
    FormChangeFolderTest() { Startup::InitLanguage(); }

    void AddParts() {
        station.Write("C:\\Parts\\A\\partinfo.ini", "");
        PartFields fields;
        fields.programId = "@C:\\Parts\\A\\partinfo.ini@";
        fields.graphic = "D:\\Pictures\\a.bmp";
        Part("R", "a", fields);
    }

    bool Show(const std::function<void(FormChangeFolder&)>& act) {
        FormChangeFolder dialog(nullptr, editor);
        const ModalDriver driver(dialog, [&] {
            act(dialog);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        return dialog.Invoke();
    }

    static std::string Row(FormChangeFolder& dialog, long row) {
        std::string text;
        for (int column = 0; column < 3; ++column)
            text +=
                (column == 0 ? "" : "|") + modUtilities::FromWx(dialog.lstFolders->GetItemText(row, column));
        return text;
    }
};

TEST_F(FormChangeFolderTest, ListsTheFoldersAndWhetherTheyExist) {
    AddParts();
    EXPECT_FALSE(Show([](FormChangeFolder& dialog) {
        EXPECT_TRUE(WaitUntil([&] { return Row(dialog, 2) == "D:\\Pictures|1|missing"; })) << Row(dialog, 2);
        EXPECT_EQ(Row(dialog, 0), "C:\\Parts|1|exists");
        EXPECT_EQ(Row(dialog, 1), "C:\\Parts\\A|1|exists");
        EXPECT_EQ(TextOf(dialog.txtPlace), "C:\\Parts") << "of the first folder, which is selected";
        Press(WXK_ESCAPE);
    }));
}

TEST_F(FormChangeFolderTest, ChangesAllPathsByKeyboard) {
    AddParts();
    Expect(modMessageBox::Result::Ok);
    EXPECT_TRUE(Show([](FormChangeFolder& dialog) {
        Press(WXK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog.txtPlace) == "C:\\Parts\\A"; }));
        EXPECT_EQ(TextOf(dialog.lblCount), "Paths in this folder: 1");
        Press('N', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtPlace->HasFocus(); }));
        Press('A', wxMOD_CONTROL);
        Type("D:\\New\\");
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(messages.at(0).text,
              "The folder D:\\New\\ does not exist here.\n\nOK changes the paths all the same.");
    EXPECT_EQ(Item("R.1").ProgramID(), "@D:\\New\\partinfo.ini@");
    EXPECT_EQ(Item("R.1").Graphic(), "D:\\Pictures\\a.bmp");
    editor.Undo();
    EXPECT_EQ(Item("R.1").ProgramID(), "@C:\\Parts\\A\\partinfo.ini@");
}

TEST_F(FormChangeFolderTest, ListsThePathsBeforeAndAfter) {
    AddParts();
    station.Write("E:\\Here\\x", "");
    EXPECT_TRUE(Show([](FormChangeFolder& dialog) {
        const auto path = [&](int column) {
            return modUtilities::FromWx(dialog.lstPaths->GetItemText(0, column));
        };
        EXPECT_TRUE(WaitUntil([&] { return dialog.lstPaths->GetItemCount() == 1; }));
        EXPECT_EQ(path(0), "a");
        EXPECT_EQ(path(1), "Main Menu");
        EXPECT_EQ(path(2), "C:\\Parts\\A\\partinfo.ini");
        EXPECT_EQ(path(3), "C:\\Parts\\A\\partinfo.ini");
        Fill(dialog.txtPlace, "E:\\Here");
        EXPECT_EQ(path(3), "E:\\Here\\A\\partinfo.ini");
        dialog.lstFolders->SelectRow(2);
        EXPECT_TRUE(WaitUntil([&] { return path(2) == "D:\\Pictures\\a.bmp"; })) << path(2);
        Fill(dialog.txtPlace, "E:\\Here");
        Click(dialog.cmdOK); // the folder exists, so nothing is asked
    }));
    EXPECT_EQ(Item("R.1").Graphic(), "E:\\Here\\a.bmp");
}

TEST_F(FormChangeFolderTest, APlaceThatDoesNotExistMayBeCorrected) {
    AddParts();
    Expect(modMessageBox::Result::Cancel);
    EXPECT_FALSE(Show([](FormChangeFolder& dialog) {
        Fill(dialog.txtPlace, "E:\\Here");
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtPlace->HasFocus(); }));
        Press(WXK_ESCAPE);
    }));
    EXPECT_EQ(Item("R.1").ProgramID(), "@C:\\Parts\\A\\partinfo.ini@");
}

TEST_F(FormChangeFolderTest, SaysWhatIsWrongWithThePlace) {
    AddParts();
    EXPECT_FALSE(Show([this](FormChangeFolder& dialog) {
        Click(dialog.cmdOK);
        EXPECT_TRUE(dialog.lblReason->IsShown());
        const std::string same = TextOf(dialog.lblReason);
        Fill(dialog.txtPlace, "relative");
        Click(dialog.cmdOK);
        EXPECT_NE(TextOf(dialog.lblReason), same);
        station.Write("C:\\日\\x", "");
        Fill(dialog.txtPlace, "C:\\日");
        Click(dialog.cmdOK);
        EXPECT_NE(TextOf(dialog.lblReason).find("Nothing was changed"), std::string::npos);
        EXPECT_TRUE(IsOpen(dialog));
        Press(WXK_ESCAPE);
    }));
    EXPECT_EQ(Item("R.1").ProgramID(), "@C:\\Parts\\A\\partinfo.ini@");
}

TEST_F(FormChangeFolderTest, AMenuWithoutPaths) {
    EXPECT_FALSE(Show([](FormChangeFolder& dialog) {
        EXPECT_NE(TextOf(dialog.lblFolders).find("uses no folders"), std::string::npos);
        EXPECT_FALSE(dialog.cmdOK->IsEnabled());
        EXPECT_FALSE(dialog.txtPlace->IsEnabled());
        Press(WXK_ESCAPE);
    }));
}

} // namespace
} // namespace nesk::testing
