// Change folder in the main window, with the mouse.

#include "gui/GuiFixture.h"

#include "checking/FormChangeFolder.h"
#include "gui/NextDialog.h"
#include "menu/MenuItem.h"
#include "partedit/FormBrowse.h"
#include "shell/FormToolBar.h"
#include "shell/UiCommandIcons.h"
#include "widgets/UiRowList.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormMainChangeFolderTest : public MainWindowTest {
protected:
    FormMainChangeFolderTest() {
        WriteMenu("BLOCK MENU\r\n"
                  "CAPTION=Main Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=First\r\nMENUTYPE=Part Program\r\n"
                  "GRAPHIC=D:\\Pictures\\a.bmp\r\nPROGRAMID=@C:\\Parts\\A\\partinfo.ini@\r\nEND\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Second\r\nMENUTYPE=Part Program\r\n"
                  "GRAPHIC=D:\\Pictures\\b.bmp\r\nPROGRAMID=@C:\\Parts\\B\\partinfo.ini@\r\nEND\r\n"
                  "END\r\n");
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    // Opens the dialog, and does with it what the action does.
    void Change(const std::function<void(FormChangeFolder&)>& act) {
        const NextDialog<FormChangeFolder> next([&](FormChangeFolder& dialog) {
            act(dialog);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
        });
        dialogs.Answer(wxID_NONE); // the dialog is shown
        Click(window->mnuEditChangeFolder);
    }

    void ClickUndo() const { ClickTool(*window->tbMain, CommandId(MainCommand::Undo)); }

    // Program and picture of an entry.
    std::string Paths(const std::string& id) const {
        const auto& item = dynamic_cast<const MenuItem&>(*window->Editor().Find(id));
        return std::string(item.ProgramID()) + " " + std::string(item.Graphic());
    }

    static void ClickFolder(FormChangeFolder& dialog, const std::string& folder) {
        for (long row = 0; row < dialog.lstFolders->GetItemCount(); ++row)
            if (modUtilities::FromWx(dialog.lstFolders->GetItemText(row)) == folder)
                return ClickListRow(*dialog.lstFolders, row);
        ADD_FAILURE() << folder << " is not in the list";
    }

    const std::string First = "@C:\\Parts\\A\\partinfo.ini@ D:\\Pictures\\a.bmp";
    const std::string Second = "@C:\\Parts\\B\\partinfo.ini@ D:\\Pictures\\b.bmp";
};

TEST_F(FormMainChangeFolderTest, ByMouse) {
    ASSERT_EQ(Paths("R.1"), First);
    station.Write("E:\\New pictures\\readme.txt", "");
    Change([&](FormChangeFolder& dialog) {
        ClickFolder(dialog, "D:\\Pictures");
        EXPECT_EQ(TextOf(dialog.txtPlace), "D:\\Pictures");
        EXPECT_EQ(TextOf(dialog.lblCount), "Paths in this folder: 2");
        SelectTextByMouse(dialog.txtPlace);
        Type("E:\\New pictures");
        ClickMiddle(dialog.cmdOK);
    });
    EXPECT_EQ(Paths("R.1"), "@C:\\Parts\\A\\partinfo.ini@ E:\\New pictures\\a.bmp");
    EXPECT_EQ(Paths("R.2"), "@C:\\Parts\\B\\partinfo.ini@ E:\\New pictures\\b.bmp");
    EXPECT_TRUE(window->Editor().IsDirty());
    ClickUndo();
    EXPECT_EQ(Paths("R.1"), First);
    EXPECT_EQ(Paths("R.2"), Second);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainChangeFolderTest, AFolderBelowAnotherAndAPlaceFromTheFolderList) {
    station.Write("C:\\Neskroot\\Moved\\readme.txt", "");
    Change([&](FormChangeFolder& dialog) {
        ClickFolder(dialog, "D:\\Pictures");
        ClickFolder(dialog, "C:\\Parts\\B");
        SelectTextByMouse(dialog.txtPlace);
        Type("C:\\Neskroot\\Moved");
        dialogs.Answer(wxID_NONE); // the list of folders is shown
        const NextDialog<FormBrowse> browse([](FormBrowse& folders) {
            ClickMiddle(folders.cmdOK);
            EXPECT_TRUE(WaitUntil([&] { return !IsOpen(folders); }));
        });
        ClickMiddle(dialog.cmdBrowse);
        EXPECT_TRUE(WaitUntil([&] { return TextOf(dialog.txtPlace) == "C:\\Neskroot\\Moved\\"; }))
            << TextOf(dialog.txtPlace);
        ClickMiddle(dialog.cmdOK);
    });
    EXPECT_EQ(Paths("R.1"), First) << "is in another folder";
    EXPECT_EQ(Paths("R.2"), "@C:\\Neskroot\\Moved\\partinfo.ini@ D:\\Pictures\\b.bmp");
    ClickUndo();
    EXPECT_EQ(Paths("R.2"), Second);
}

TEST_F(FormMainChangeFolderTest, CancelByMouseChangesNothing) {
    Change([&](FormChangeFolder& dialog) {
        ClickFolder(dialog, "C:\\Parts");
        SelectTextByMouse(dialog.txtPlace);
        Type("E:\\Elsewhere");
        ClickMiddle(dialog.cmdCancel);
    });
    EXPECT_EQ(Paths("R.1"), First);
    EXPECT_FALSE(window->Editor().IsDirty());
    EXPECT_TRUE(window->Editor().History().UndoNames().empty());
}

} // namespace
} // namespace nesk::testing
