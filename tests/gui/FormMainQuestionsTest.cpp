// The buttons of the main window's questions.

#include "gui/GuiFixture.h"

#include <wx/defs.h>

namespace nesk::testing {
namespace {

class FormMainQuestionsTest : public MainWindowTest {
protected:
    // The buttons of the last dialog that was shown.
    long Buttons() const {
        return dialogs.shown.back().style & (wxOK | wxCANCEL | wxYES | wxNO | wxHELP | wxCLOSE);
    }
};

TEST_F(FormMainQuestionsTest, RemovingIsAnsweredByYesOrNo) {
    WriteMenu(SmallMenu);
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuFileOpen));
    Select("R.2");
    dialogs.Answer(wxID_NO);
    ASSERT_TRUE(Click(window->mnuMenuRemove));
    EXPECT_EQ(Buttons(), wxYES | wxNO);
    EXPECT_NE(dialogs.shown.back().style & wxICON_QUESTION, 0);
}

TEST_F(FormMainQuestionsTest, ThatTheRootStaysIsOnlyConfirmed) {
    WriteMenu(SmallMenu);
    OpenWindow();
    ASSERT_TRUE(Click(window->mnuFileOpen));
    dialogs.Answer(wxID_OK);
    ClickDisabled(window->mnuMenuRemove);
    EXPECT_EQ(Buttons(), wxOK);
}

} // namespace
} // namespace nesk::testing
