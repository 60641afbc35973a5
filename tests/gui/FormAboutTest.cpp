#include "shell/FormAbout.h"

#include "gui/SettingsDialogFixture.h"
#include "shell/AboutText.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class FormAboutTest : public SettingsDialogTest {};

TEST_F(FormAboutTest, ItsTextCanBeSelectedAndEscapeClosesIt) {
    FormAbout dialog(nullptr);
    const ModalDriver driver(dialog, [&] {
        const std::string text = TextOf(dialog.txtAbout);
        EXPECT_NE(text.find(ProgramVersion()), std::string::npos);
        EXPECT_NE(text.find("wxWidgets 3."), std::string::npos) << text;
        EXPECT_FALSE(dialog.txtAbout->IsEditable());
        EXPECT_FALSE(dialog.cmdCancel->IsShown()) << "there is nothing to call off";
        Focus(dialog.txtAbout);
        Press('A', wxMOD_CONTROL);
        EXPECT_TRUE(
            WaitUntil([&] { return modUtilities::FromWx(dialog.txtAbout->GetStringSelection()) == text; }));
        Press(WXK_ESCAPE);
        EXPECT_FALSE(IsOpen(dialog));
    });
    dialog.ShowModal();
}

} // namespace
} // namespace nesk::testing
