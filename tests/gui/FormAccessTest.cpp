#include "settings/FormAccess.h"

#include "gui/SettingsDialogFixture.h"
#include "settings/AccessCode.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormAccessTest : public SettingsDialogTest {
protected:
    FormAccessTest() { NeskRegistry::Instance().ExitKey = "77"; }

    // Shows the dialog, runs an action on it, and closes it if the action did not.
    void Show(const std::function<void(FormAccess&)>& act) {
        FormAccess dialog(nullptr);
        const ModalDriver driver(dialog, [&] {
            act(dialog);
            if (IsOpen(dialog)) Click(dialog.cmdCancel);
        });
        dialog.Invoke();
    }

    static std::string StoredCode() {
        NeskRegistry settings;
        settings.Load();
        return settings.ExitKey;
    }
};

TEST_F(FormAccessTest, ShowsItsTextsAndNoCode) {
    Show([](FormAccess& dialog) {
        EXPECT_EQ(FromWx(dialog.GetTitle()), LoadResString(32030));
        EXPECT_EQ(FromWx(dialog.lblAccessCode->GetLabel()), LoadResString(32031));
        EXPECT_EQ(FromWx(dialog.lblReenter->GetLabel()), LoadResString(32032));
        EXPECT_EQ(FromWx(dialog.cmdOK->GetLabel()), LoadResString(32004));
        EXPECT_EQ(FromWx(dialog.cmdCancel->GetLabel()), LoadResString(32005));
        EXPECT_EQ(FromWx(dialog.cmdHelp->GetLabel()), LoadResString(32008));
        EXPECT_EQ(dialog.txtCode1->GetValue(), "");
        EXPECT_EQ(dialog.txtCode2->GetValue(), "");
        EXPECT_TRUE(dialog.txtCode1->HasFocus());
        EXPECT_TRUE(dialog.txtCode1->HasFlag(wxTE_PASSWORD));
        EXPECT_TRUE(dialog.txtCode2->HasFlag(wxTE_PASSWORD));
        for (const char* name : {"lblAccessCode", "txtCode1", "lblReenter", "txtCode2", "chkShow"})
            Find(dialog, name);
    });
}

TEST_F(FormAccessTest, SaysWhetherThereIsACode) {
    Show([](FormAccess& dialog) {
        EXPECT_EQ(TextOf(dialog.lblState), "An access code is set. Leave both fields empty to remove it.");
        EXPECT_TRUE(dialog.GetClientRect().Contains(dialog.lblState->GetRect()));
    });
    NeskRegistry::Instance().ExitKey = "";
    Show([](FormAccess& dialog) {
        EXPECT_EQ(TextOf(dialog.lblState), "No access code is set. Leave both fields empty to keep it so.");
    });
}

TEST_F(FormAccessTest, TypedCodesAreStoredByEnter) {
    Show([](FormAccess& dialog) {
        Type("1234");
        Press(WXK_TAB);
        EXPECT_TRUE(dialog.txtCode2->HasFocus());
        Type("1234");
        Press(WXK_RETURN);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "1234");
    EXPECT_EQ(StoredCode(), "1234");
}

TEST_F(FormAccessTest, OnlyDigitsAppear) {
    Show([](FormAccess& dialog) {
        Type("a1B-2 .3");
        EXPECT_EQ(dialog.txtCode1->GetValue(), "123");
        Press(WXK_BACK);
        EXPECT_EQ(dialog.txtCode1->GetValue(), "12");
        Press(WXK_TAB);
        Type("x4y5,");
        EXPECT_EQ(dialog.txtCode2->GetValue(), "45");
    });
}

TEST_F(FormAccessTest, PastedTextIsReducedToItsDigits) {
    Show([](FormAccess& dialog) {
        for (wxTextCtrl** box : {&dialog.txtCode1, &dialog.txtCode2}) {
            Focus(*box);
            Type("12");
            Paste("code 56-78");
            EXPECT_TRUE(WaitUntil([&] { return (*box)->GetValue() == "125678"; })) << (*box)->GetValue();
        }
    });
}

TEST_F(FormAccessTest, DifferentCodesAreRefusedAndKept) {
    Show([this](FormAccess& dialog) {
        Type("1234");
        Press(WXK_TAB);
        Type("12345");
        Expect();
        Focus(dialog.txtCode1);
        Click(dialog.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, LoadResString(32014));
        EXPECT_EQ(messages[0].title, LoadResString(32015));
        EXPECT_EQ(messages[0].options, 64);
        EXPECT_TRUE(IsOpen(dialog));
        EXPECT_EQ(dialog.txtCode1->GetValue(), "1234");
        EXPECT_EQ(dialog.txtCode2->GetValue(), "12345");
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtCode2->HasFocus(); }));
        long from = 0;
        long to = 0;
        dialog.txtCode2->GetSelection(&from, &to);
        EXPECT_EQ(from, 0);
        EXPECT_EQ(to, 5);
        // The next entry therefore replaces the wrong one.
        Type("1234");
        EXPECT_EQ(dialog.txtCode2->GetValue(), "1234");
    });
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "77");
}

TEST_F(FormAccessTest, TwoEmptyFieldsRemoveTheCode) {
    NeskRegistry::Instance().Save();
    ASSERT_EQ(StoredCode(), "77");
    Show([](FormAccess& dialog) { Click(dialog.cmdOK); });
    EXPECT_EQ(NeskRegistry::Instance().ExitKey, "");
    EXPECT_EQ(StoredCode(), "");
}

TEST_F(FormAccessTest, EscapeAndCancelChangeNothing) {
    for (const bool byKey : {true, false}) {
        Show([&](FormAccess& dialog) {
            Type("1");
            Press(WXK_TAB);
            Type("1");
            if (byKey)
                Press(WXK_ESCAPE);
            else
                Click(dialog.cmdCancel);
            EXPECT_FALSE(IsOpen(dialog));
        });
        EXPECT_EQ(NeskRegistry::Instance().ExitKey, "77");
    }
    EXPECT_EQ(StoredCode(), "");
}

TEST_F(FormAccessTest, TheCodeIsShownOnRequestAndHiddenAgain) {
    Show([](FormAccess& dialog) {
        Type("12");
        Press('R', wxMOD_ALT);
        EXPECT_TRUE(dialog.txtCode2->HasFocus());
        Type("34");
        const wxRect place = dialog.txtCode1->GetRect();
        Press('S', wxMOD_ALT);
        EXPECT_TRUE(dialog.chkShow->GetValue());
        EXPECT_FALSE(dialog.txtCode1->HasFlag(wxTE_PASSWORD));
        EXPECT_FALSE(dialog.txtCode2->HasFlag(wxTE_PASSWORD));
        EXPECT_EQ(dialog.txtCode1->GetValue(), "12");
        EXPECT_EQ(dialog.txtCode2->GetValue(), "34");
        EXPECT_EQ(dialog.txtCode1->GetRect(), place);
        // The recreated box can be reached by its access key and filters like the first one.
        Press('A', wxMOD_ALT);
        EXPECT_TRUE(dialog.txtCode1->HasFocus());
        Press(WXK_END);
        Type("x3");
        EXPECT_EQ(dialog.txtCode1->GetValue(), "123");
        Press(WXK_TAB);
        EXPECT_TRUE(dialog.txtCode2->HasFocus());
        Press(WXK_TAB);
        EXPECT_TRUE(dialog.chkShow->HasFocus());
        Press(WXK_SPACE);
        EXPECT_TRUE(dialog.txtCode1->HasFlag(wxTE_PASSWORD));
        EXPECT_TRUE(dialog.txtCode2->HasFlag(wxTE_PASSWORD));
        EXPECT_EQ(dialog.txtCode1->GetValue(), "123");
    });
}

TEST_F(FormAccessTest, NoMoreDigitsThanCanBeStored) {
    Show([](FormAccess& dialog) {
        Paste(std::string(AccessCode::MaxLength, '7'));
        EXPECT_TRUE(WaitUntil([&] { return dialog.txtCode1->GetValue().length() == AccessCode::MaxLength; }));
        Type("8");
        EXPECT_EQ(dialog.txtCode1->GetValue(), wxString('7', AccessCode::MaxLength));
    });
}

} // namespace
} // namespace nesk::testing
