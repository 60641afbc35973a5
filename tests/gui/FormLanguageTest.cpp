#include "gui/GuiFixture.h"
#include "gui/ModalDriver.h"
#include "gui/SettingsDialogFixture.h"

#include "settings/FormLanguage.h"
#include "settings/LanguageChoice.h"
#include "shell/modMessageBox.h"
#include "widgets/UiUtilities.h"

#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;
using modUtilities::ToWx;

class FormLanguageTest : public SettingsDialogTest {
protected:
    static int RowOf(const FormLanguage& dialog, const std::string& name) {
        const int row = dialog.lstLanguage->FindString(ToWx(name));
        EXPECT_NE(row, wxNOT_FOUND) << name;
        return row;
    }

    static void Select(FormLanguage& dialog, const std::string& name) {
        dialog.lstLanguage->SetSelection(RowOf(dialog, name));
        wxCommandEvent event(wxEVT_LISTBOX, dialog.lstLanguage->GetId());
        dialog.lstLanguage->ProcessWindowEvent(event);
    }
};

TEST_F(FormLanguageTest, TheStoredLanguageIsSelected) {
    LanguageChoice::Store(1031);
    const FormLanguage dialog(nullptr);
    EXPECT_EQ(FromWx(dialog.lstLanguage->GetStringSelection()), "Deutsch (Deutschland) - German (Germany)");
}

TEST_F(FormLanguageTest, TheChosenLanguageIsStored) {
    FormLanguage dialog(nullptr);
    const ModalDriver driver(dialog, [&] {
        Select(dialog, "Svenska - Swedish");
        Press(WXK_RETURN);
    });
    EXPECT_TRUE(dialog.Invoke());
    EXPECT_EQ(LanguageChoice::Stored(), 1053);
}

TEST_F(FormLanguageTest, EscapeStoresNothing) {
    FormLanguage dialog(nullptr);
    const ModalDriver driver(dialog, [&] {
        Select(dialog, "Svenska - Swedish");
        Press(WXK_ESCAPE);
    });
    EXPECT_FALSE(dialog.Invoke());
    EXPECT_EQ(LanguageChoice::Stored(), 1033);
}

TEST_F(FormLanguageTest, AnotherCodePageIsAnnounced) {
    FormLanguage dialog(nullptr);
    ShowActive(dialog);
    EXPECT_FALSE(dialog.lblCodePage->IsShown());
    Select(dialog, "\u65E5\u672C\u8A9E - Japanese");
    EXPECT_TRUE(dialog.lblCodePage->IsShown());
    EXPECT_NE(TextOf(dialog.lblCodePage).find("932"), std::string::npos) << TextOf(dialog.lblCodePage);
    Select(dialog, "Svenska - Swedish");
    EXPECT_FALSE(dialog.lblCodePage->IsShown());
}

class FormMainLanguageTest : public MainWindowTest {};

TEST_F(FormMainLanguageTest, TheCommandIsThereWhereTheLanguageIsChosenHere) {
    OpenWindow();
    ASSERT_NE(window->mnuSettingsLanguage, nullptr);
    EXPECT_EQ(window->mnuSettingsLanguage->GetMenu() != nullptr, LanguageChoice::MayChange());
}

} // namespace
} // namespace nesk::testing
