// The order in which Tab visits the controls of the dialogs whose own tests do not check it: the reading
// order.

#include "gui/PartDialogFixture.h"

#include "menu/FormEditMenu.h"
#include "menu/FormSelectMenuPicture.h"
#include "partedit/FormEditPart.h"
#include "partedit/FormSelectDrive.h"
#include "partedit/FormSelectPart.h"
#include "settings/FormAccess.h"
#include "settings/FormSelectMachine.h"
#include "settings/RegEntry.h"
#include "widgets/FormPicture.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class TabOrderTest : public PartDialogTest {
protected:
    // Shows a dialog, prepares it, and returns the order that starts at one of its controls.
    std::string OrderOf(
        FormDialog& dialog, const char* first, std::function<void()> ready = [] {}) {
        std::string order;
        WhenShown<FormDialog>(modUtilities::FromWx(dialog.GetName()), [&](FormDialog& form) {
            ready();
            Focus(Find(form, first));
            order = TabOrder();
            form.EndModal(wxID_CANCEL);
        });
        dialog.ShowModal();
        return order;
    }
};

TEST_F(TabOrderTest, OfThePartEditor) {
    FormEditPart wide(nullptr, 1024);
    const auto makeReady = [](FormEditPart& form) {
        // The information of a part program can be edited, which enables a button.
        return [&form] {
            Fill(form.txtPartName, "@C:\\p\\partinfo.ini@");
            // An existing picture can be removed, which enables a button.
            form.picItemHost->SetPath("C:\\a.bmp");
            form.picPreviewHost->SetPath("C:\\b.bmp");
        };
    };
    EXPECT_EQ(OrderOf(wide, "txtPartName", makeReady(wide)),
              "txtPartName cmdSelectPart cmdSlideShow cmdMenuSelect cmdMenuDelete cmdPreviewSelect "
              "cmdPreviewDelete cmdHelpFile txtHelpFile txtHelpTopic cmdHistory txtHistoryDir "
              "txtHistoryTitle cmdOK cmdCancel cmdHelp");
    FormEditPart compact(nullptr, 640);
    EXPECT_EQ(OrderOf(compact, "txtPartName", makeReady(compact)),
              "txtPartName cmdSelectPart cmdSlideShow cmdMenuPicture cmdPreviewSelect cmdPreviewDelete "
              "cmdHelpFile txtHelpFile txtHelpTopic cmdHistory txtHistoryDir txtHistoryTitle cmdOK cmdCancel "
              "cmdHelp");
}

TEST_F(TabOrderTest, OfThePartTree) {
    FormSelectPart form(nullptr);
    EXPECT_EQ(OrderOf(form, "tvMain", [&] { form.cmdOK->Enable(); }),
              "tvMain cmdSelectDrive cmdOK cmdCancel cmdHelp");
}

TEST_F(TabOrderTest, OfTheDriveDialog) {
    FormSelectDrive form(nullptr);
    EXPECT_EQ(OrderOf(form, "cmdOK"), "cmdOK cmdCancel optDrive0");
}

TEST_F(TabOrderTest, OfTheMachineList) {
    RegEntry lists;
    lists.CreateKey("Machines\\M1");
    FormSelectMachine form(nullptr);
#ifdef NESK_PORTABLE_STATION
    EXPECT_EQ(OrderOf(form, "lstMain"), "lstMain cmdAdd cmdRemove cmdOK cmdCancel cmdHelp");
#else
    EXPECT_EQ(OrderOf(form, "lstMain"), "lstMain cmdOK cmdCancel cmdHelp");
#endif
}

TEST_F(TabOrderTest, OfTheAccessCode) {
    FormAccess form(nullptr);
    EXPECT_EQ(OrderOf(form, "txtCode1"), "txtCode1 txtCode2 chkShow cmdOK cmdCancel cmdHelp");
}

TEST_F(TabOrderTest, OfThePictureDialogs) {
    FormSelectMenuPicture picture(nullptr);
    EXPECT_EQ(OrderOf(picture, "cmdMenuSelect", [&] { picture.picItemHost->SetPath("C:\\a.bmp"); }),
              "cmdMenuSelect cmdMenuDelete cmdOK cmdCancel cmdHelp");
    FormEditMenu menu(nullptr);
    EXPECT_EQ(OrderOf(menu, "cmdPicture", [&] { menu.picItemHost->SetPath("C:\\a.bmp"); }),
              "cmdPicture cmdDelete cmdOK cmdCancel cmdHelp");
}

} // namespace
} // namespace nesk::testing
