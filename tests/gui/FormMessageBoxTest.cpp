#include "shell/FormMessageBox.h"

#include "gui/ModalDriver.h"
#include "shell/modMessageBox.h"
#include "widgets/UiUtilities.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/display.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/sizer.h>
#include <wx/statbmp.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modUtilities::FromWx;

// Shows a message box and runs an action on it as soon as it is shown.
class FormMessageBoxTest : public ::testing::Test {
protected:
    std::int16_t Show(const std::string& text, std::int16_t options,
                      const std::function<void(FormMessageBox&)>& act, wxWindow* parent = nullptr) {
        FormMessageBox box(parent);
        return ShowIn(box, text, options, act);
    }

    static std::int16_t ShowIn(FormMessageBox& box, const std::string& text, std::int16_t options,
                               const std::function<void(FormMessageBox&)>& act) {
        const ModalDriver driver(box, [&] { act(box); });
        const std::int16_t result = box.Initialize(text, options, "Title");
        EXPECT_EQ(result, box.ReturnCode());
        return result;
    }

    // Returns whether the end of the text is visible in its box without scrolling.
    static bool ShowsItsEnd(const FormMessageBox& box) {
        const wxPoint end = box.lblMsg->PositionToCoords(box.lblMsg->GetLastPosition());
        return end.x >= 0 && end.y >= 0 &&
               end.y + box.lblMsg->GetCharHeight() <= box.lblMsg->GetClientSize().y + 2;
    }
};

TEST_F(FormMessageBoxTest, ShowsTextTitleIconAndButtons) {
    const std::int16_t result = Show("Something happened & is shown", 0x33, [](FormMessageBox& box) {
        EXPECT_EQ(FromWx(box.GetTitle()), "Title");
        EXPECT_EQ(TextOf(box.lblMsg), "Something happened & is shown");
        EXPECT_TRUE(box.picIcon->IsShown());
        ASSERT_EQ(box.cmdButton.size(), 3u);
        EXPECT_EQ(FromWx(box.cmdButton[0]->GetLabel()), "Yes");
        EXPECT_EQ(FromWx(box.cmdButton[1]->GetLabel()), "No");
        EXPECT_EQ(FromWx(box.cmdButton[2]->GetLabel()), "Cancel");
        EXPECT_EQ(Find(box, "cmdButton2"), box.cmdButton[1]);
        // The buttons are in one row and inside the window.
        EXPECT_EQ(box.cmdButton[0]->GetPosition().y, box.cmdButton[2]->GetPosition().y);
        EXPECT_LT(box.cmdButton[0]->GetRect().GetRight(), box.cmdButton[1]->GetPosition().x);
        EXPECT_LE(box.cmdButton[2]->GetRect().GetRight(), box.GetClientSize().x);
        Click(box.cmdButton[1]);
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
        EXPECT_TRUE(IsOpen(box));
        Press('N');
    });
    EXPECT_EQ(result, modMessageBox::Result::No);
}

TEST_F(FormMessageBoxTest, TheFirstLetterOfAButtonPressesIt) {
    EXPECT_EQ(Show("Failed", 2, [](FormMessageBox&) { Press('R'); }), modMessageBox::Result::Retry);
    EXPECT_EQ(Show("Failed", 2, [](FormMessageBox&) { Press('I'); }), modMessageBox::Result::Ignore);
}

TEST_F(FormMessageBoxTest, SoDoesTheLetterWithAltAndWithNothingElse) {
    EXPECT_EQ(Show("Question", 4, [](FormMessageBox&) { Press('N', wxMOD_ALT); }), modMessageBox::Result::No);
    const std::int16_t result = Show("Question", 4, [](FormMessageBox& box) {
        Press('N', wxMOD_CONTROL);
        EXPECT_TRUE(IsOpen(box));
        Press('Y');
    });
    EXPECT_EQ(result, modMessageBox::Result::Yes);
}

TEST_F(FormMessageBoxTest, ClosedWithoutAButtonIsNoAnswer) {
    EXPECT_EQ(Show("Question", 4, [](FormMessageBox& box) { box.Close(); }), modMessageBox::Result::None);
}

TEST_F(FormMessageBoxTest, LongTextsAreWrappedAndFit) {
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += "many words in a row ";
    text += "end";
    Show(text, 48, [](FormMessageBox& box) {
        EXPECT_LE(box.GetSize().x, wxGetDisplaySize().x);
        EXPECT_GT(box.lblMsg->GetSize().y, 3 * box.lblMsg->GetCharHeight());
        EXPECT_LE(box.lblMsg->GetRect().GetBottom(), box.cmdButton[0]->GetPosition().y);
        EXPECT_TRUE(ShowsItsEnd(box));
        Press(WXK_RETURN);
    });
}

TEST_F(FormMessageBoxTest, AShortTextIsSeenWhole) {
    for (const char* text : {"x", "The file was not found.", "One line\n\nand another one"})
        Show(text, 48, [&](FormMessageBox& box) {
            EXPECT_TRUE(ShowsItsEnd(box)) << text;
            Press(WXK_RETURN);
        });
}

TEST_F(FormMessageBoxTest, ALongPathIsBrokenAnywhere) {
    const std::string path = "C:\\" + std::string(400, 'W') + "\\menu.cfg";
    Show("The file " + path + " was not found.", 48, [](FormMessageBox& box) {
        EXPECT_LE(box.GetSize().x, wxGetDisplaySize().x * 3 / 4);
        EXPECT_GT(box.lblMsg->GetSize().y, 4 * box.lblMsg->GetCharHeight());
        EXPECT_TRUE(ShowsItsEnd(box)) << "nothing of it is cut";
        EXPECT_GT(box.lblMsg->GetNumberOfLines(), 4) << "without the hyphens of the text box";
        Focus(box.lblMsg);
        box.lblMsg->SelectAll();
        box.lblMsg->Copy();
        const std::string text = "The file C:\\" + std::string(400, 'W') + "\\menu.cfg was not found.";
        EXPECT_TRUE(WaitUntil([&] { return Clipboard() == text; })) << Clipboard();
        Press(WXK_RETURN);
    });
}

TEST_F(FormMessageBoxTest, ATextThatIsHigherThanTheScreenScrolls) {
    std::string text;
    for (int i = 0; i < 300; ++i)
        text += "Line " + std::to_string(i) + "\n";
    Show(text, 48, [](FormMessageBox& box) {
        EXPECT_TRUE(wxDisplay(&box).GetClientArea().Contains(box.GetScreenRect()));
        EXPECT_TRUE(box.GetClientRect().Contains(box.cmdButton[0]->GetRect())) << "the button stays in view";
        EXPECT_FALSE(ShowsItsEnd(box));
        EXPECT_TRUE(box.cmdButton[0]->HasFocus()) << "and has the focus";
        const wxPoint before = box.lblMsg->PositionToCoords(0);
        Press(WXK_PAGEDOWN);
        EXPECT_TRUE(WaitUntil([&] { return box.lblMsg->PositionToCoords(0).y < before.y; }))
            << "a key scrolls";
        Press(WXK_RETURN);
    });
}

TEST_F(FormMessageBoxTest, TheTextIsCopied) {
    const std::string text = "The file C:\\menu.cfg was not found.\n\nNothing was changed.";
    Show(text, 48, [&](FormMessageBox& box) {
        EXPECT_FALSE(box.lblMsg->IsEditable());
        EXPECT_TRUE(box.cmdButton[0]->HasFocus());
        Press('C', wxMOD_CONTROL);
        EXPECT_TRUE(WaitUntil([&] { return Clipboard() == text; })) << Clipboard();
        Focus(box.lblMsg);
        box.lblMsg->SetSelection(9, 20);
        Press('C', wxMOD_CONTROL);
        EXPECT_TRUE(WaitUntil([] { return Clipboard() == "C:\\menu.cfg"; })) << "what is selected";
        EXPECT_EQ(TextOf(box.lblMsg), text);
        Press(WXK_RETURN); // presses the default button although the text has the focus
    });
}

TEST_F(FormMessageBoxTest, ASecondMessageOfOneBoxStartsEmpty) {
    FormMessageBox box(nullptr);
    EXPECT_EQ(ShowIn(box, "First", 0x23, [](FormMessageBox&) { Press('Y'); }), modMessageBox::Result::Yes);
    EXPECT_EQ(ShowIn(box, "Second", 0,
                     [](FormMessageBox& again) {
                         EXPECT_EQ(again.cmdButton.size(), 1u);
                         EXPECT_EQ(again.ReturnCode(), modMessageBox::Result::None);
                         EXPECT_FALSE(again.picIcon->IsShown());
                         EXPECT_EQ(TextOf(again.lblMsg), "Second");
                         int buttons = 0;
                         for (const wxWindow* child : again.GetChildren())
                             if (dynamic_cast<const wxButton*>(child) != nullptr) ++buttons;
                         EXPECT_EQ(buttons, 1) << "none of the first message is left";
                         Press(WXK_RETURN);
                     }),
              modMessageBox::Result::Ok);
}

TEST_F(FormMessageBoxTest, StandsInTheMiddleOfTheScreen) {
    auto* corner = new wxFrame(nullptr, wxID_ANY, "Corner", wxPoint(0, 0), wxSize(200, 150));
    ShowActive(*corner);
    Show(
        "Something happened", 48,
        [](FormMessageBox& box) {
            EXPECT_TRUE(WaitUntil([&] { return IsInTheMiddle(box); })) << box.GetScreenRect().x;
            Press(WXK_RETURN);
        },
        corner);
    corner->Destroy();
}

TEST_F(FormMessageBoxTest, HasTheCommonFont) {
    FormMessageBox box(nullptr);
    wxFont small = box.GetFont();
    small.SetPointSize(6);
    box.SetFont(small); // the controls would inherit this font
    ShowIn(box, "Something happened", 0, [](FormMessageBox& form) {
        EXPECT_GE(form.lblMsg->GetFont().GetPointSize(), 8);
        EXPECT_GE(form.cmdButton[0]->GetFont().GetPointSize(), 8);
        Press(WXK_RETURN);
    });
}

// Answers the message box instead of showing it, and records its owner.
class OwnerRecorder : public wxModalDialogHook {
public:
    OwnerRecorder() { Register(); }
    ~OwnerRecorder() override { Unregister(); }

    std::vector<wxWindow*> owners;

protected:
    int Enter(wxDialog* dialog) override {
        if (dynamic_cast<FormMessageBox*>(dialog) == nullptr) return wxID_NONE;
        owners.push_back(dialog->GetParent());
        return modMessageBox::Result::Ok;
    }
};

TEST_F(FormMessageBoxTest, BelongsToTheModalDialogInFront) {
    auto* const main = new wxFrame(nullptr, wxID_ANY, "Main");
    ShowActive(*main);
    wxTheApp->SetTopWindow(main);
    OwnerRecorder recorder;
    wxDialog outer(main, wxID_ANY, "Outer");
    wxDialog inner(&outer, wxID_ANY, "Inner");
    const ModalDriver outerDriver(outer, [&] {
        const ModalDriver innerDriver(inner, [&] {
            modMessageBox::ShowMessage("In front of the inner one");
            inner.EndModal(wxID_OK);
        });
        inner.ShowModal();
        modMessageBox::ShowMessage("In front of the outer one");
        outer.EndModal(wxID_OK);
    });
    outer.ShowModal();
    modMessageBox::ShowMessage("In front of the window");
    EXPECT_EQ(recorder.owners, (std::vector<wxWindow*>{&inner, &outer, main}));
    wxTheApp->SetTopWindow(nullptr);
    main->Destroy();
}

TEST_F(FormMessageBoxTest, DisplayAndYesNo) {
    const auto answerWith = [](int key, const std::function<void(FormMessageBox&)>& show) {
        FormMessageBox box(nullptr);
        const ModalDriver driver(box, [key] { Press(key); });
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
