#include "shell/FormMessageBox.h"

#include "shell/FormUtilities.h"
#include "shell/modMessageBox.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/evtloop.h>
#include <wx/statbmp.h>
#include <wx/stattext.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

// Shows a message box and does something with it as soon as it is there.
class FormMessageBoxTest : public ::testing::Test {
protected:
    std::int16_t Show(const std::string& text, std::int16_t options,
                      const std::function<void(FormMessageBox&)>& act) {
        FormMessageBox box(nullptr);
        wxTimer timer;
        int tries = 0;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (!box.IsActive() && ++tries < 100) return;
            timer.Stop();
            act(box);
        });
        timer.Start(20);
        const std::int16_t result = box.Initialize(text, options, "Title");
        EXPECT_EQ(result, box.ReturnCode());
        return result;
    }

    static void Press(int key) {
        wxUIActionSimulator simulator;
        simulator.Char(key);
    }
};

TEST_F(FormMessageBoxTest, ShowsTextTitleIconAndButtons) {
    const std::int16_t result = Show("Something happened & is shown", 0x33, [](FormMessageBox& box) {
        EXPECT_EQ(FromWx(box.GetTitle()), "Title");
        EXPECT_EQ(FromWx(box.lblMsg->GetLabelText()), "Something happened & is shown");
        EXPECT_TRUE(box.picIcon->IsShown());
        ASSERT_EQ(box.cmdButton.size(), 3u);
        EXPECT_EQ(FromWx(box.cmdButton[0]->GetLabel()), "Yes");
        EXPECT_EQ(FromWx(box.cmdButton[1]->GetLabel()), "No");
        EXPECT_EQ(FromWx(box.cmdButton[2]->GetLabel()), "Cancel");
        EXPECT_EQ(box.FindWindowByName("cmdButton2", &box), box.cmdButton[1]);
        // In one row, and inside the window.
        EXPECT_EQ(box.cmdButton[0]->GetPosition().y, box.cmdButton[2]->GetPosition().y);
        EXPECT_LT(box.cmdButton[0]->GetRect().GetRight(), box.cmdButton[1]->GetPosition().x);
        EXPECT_LE(box.cmdButton[2]->GetRect().GetRight(), box.GetClientSize().x);
        wxCommandEvent press(wxEVT_BUTTON, box.cmdButton[1]->GetId());
        box.cmdButton[1]->ProcessWindowEvent(press);
    });
    EXPECT_EQ(result, modMessageBox::Result::No);
}

TEST_F(FormMessageBoxTest, TheIconBoxIsHiddenWithoutAnIcon) {
    Show("Plain", 0, [](FormMessageBox& box) {
        EXPECT_FALSE(box.picIcon->IsShown());
        Press(WXK_RETURN);
    });
}

TEST_F(FormMessageBoxTest, EnterPressesTheDefaultButton) {
    const auto defaultOf = [&](std::int16_t options) {
        return Show("Question", options, [&](FormMessageBox& box) {
            const auto index = static_cast<std::size_t>(LayoutOf(options).defaultButton) - 1;
            EXPECT_TRUE(box.cmdButton.at(index)->HasFocus());
            Press(WXK_RETURN);
        });
    };
    EXPECT_EQ(defaultOf(0x103), modMessageBox::Result::No);
    EXPECT_EQ(defaultOf(0x204), modMessageBox::Result::Yes);
    EXPECT_EQ(defaultOf(0x202), modMessageBox::Result::Ignore);
    EXPECT_EQ(defaultOf(0x30), modMessageBox::Result::Ok);
}

TEST_F(FormMessageBoxTest, EscapeCancels) {
    EXPECT_EQ(Show("Question", 3, [](FormMessageBox&) { Press(WXK_ESCAPE); }), modMessageBox::Result::Cancel);
    EXPECT_EQ(Show("Notice", 0, [](FormMessageBox&) { Press(WXK_ESCAPE); }), modMessageBox::Result::Ok);
}

TEST_F(FormMessageBoxTest, EscapeAnswersNoQuestionWithoutACancelButton) {
    const std::int16_t result = Show("Question", 4, [](FormMessageBox& box) {
        Press(WXK_ESCAPE);
        // Were Escape an answer, the box would be gone before this letter arrives.
        box.CallAfter([] { Press('N'); });
    });
    EXPECT_EQ(result, modMessageBox::Result::No);
}

TEST_F(FormMessageBoxTest, TheFirstLetterOfAButtonPressesIt) {
    EXPECT_EQ(Show("Failed", 2, [](FormMessageBox&) { Press('R'); }), modMessageBox::Result::Retry);
    EXPECT_EQ(Show("Failed", 2, [](FormMessageBox&) { Press('I'); }), modMessageBox::Result::Ignore);
}

TEST_F(FormMessageBoxTest, ClosedWithoutAButtonIsNoAnswer) {
    EXPECT_EQ(Show("Question", 4, [](FormMessageBox& box) { box.Close(); }), modMessageBox::Result::None);
}

TEST_F(FormMessageBoxTest, LongTextsAreWrappedAndFit) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "many words in a row ";
    Show(text, 48, [](FormMessageBox& box) {
        EXPECT_LE(box.GetSize().x, wxGetDisplaySize().x);
        EXPECT_GT(box.lblMsg->GetSize().y, 3 * box.lblMsg->GetCharHeight());
        EXPECT_LE(box.lblMsg->GetRect().GetBottom(), box.cmdButton[0]->GetPosition().y);
        Press(WXK_RETURN);
    });
}

TEST_F(FormMessageBoxTest, DisplayAndYesNo) {
    const auto answerWith = [](int key, const std::function<void(FormMessageBox&)>& show) {
        FormMessageBox box(nullptr);
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (!box.IsActive()) return;
            timer.Stop();
            Press(key);
        });
        timer.Start(20);
        show(box);
    };
    bool yes = false;
    answerWith('Y', [&](FormMessageBox& box) { yes = box.YesNo("Question", "Title"); });
    EXPECT_TRUE(yes);
    answerWith('N', [&](FormMessageBox& box) { yes = box.YesNo("Question", "Title"); });
    EXPECT_FALSE(yes);
    answerWith(WXK_RETURN, [](FormMessageBox& box) {
        box.Display("Notice", "Title");
        EXPECT_EQ(box.ReturnCode(), modMessageBox::Result::Ok);
        EXPECT_EQ(box.cmdButton.size(), 1u);
    });
}

} // namespace
} // namespace nesk::testing
