#include "checking/FormChangeFolder.h"

#include "checking/UiRowList.h"
#include "gui/ModalDriver.h"
#include "gui/UiDriver.h"
#include "menu/MenuItem.h"
#include "partedit/FormBrowse.h"
#include "shell/Startup.h"
#include "unit/checking/CheckingFixture.h"
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
    EXPECT_TRUE(Show([](FormChangeFolder& dialog) {
        Press(WXK_DOWN);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog.txtPlace) == "C:\\Parts\\A"; }));
        EXPECT_EQ(TextOf(dialog.lblCount), "Paths that change: 1");
        Press('N', wxMOD_ALT);
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtPlace->HasFocus(); }));
        Press('A', wxMOD_CONTROL);
        Type("D:\\New\\");
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(Item("R.1").ProgramID(), "@D:\\New\\partinfo.ini@");
    EXPECT_EQ(Item("R.1").Graphic(), "D:\\Pictures\\a.bmp");
    editor.Undo();
    EXPECT_EQ(Item("R.1").ProgramID(), "@C:\\Parts\\A\\partinfo.ini@");
}

TEST_F(FormChangeFolderTest, SaysWhatIsWrongWithThePlace) {
    AddParts();
    EXPECT_FALSE(Show([](FormChangeFolder& dialog) {
        Click(dialog.cmdOK);
        EXPECT_TRUE(dialog.lblReason->IsShown());
        const std::string same = TextOf(dialog.lblReason);
        Fill(dialog.txtPlace, "relative");
        Click(dialog.cmdOK);
        EXPECT_NE(TextOf(dialog.lblReason), same);
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
