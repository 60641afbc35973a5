#include "partedit/FormSelectHistory.h"

#include "gui/PartDialogFixture.h"
#include "partedit/FormBrowse.h"
#include "partedit/FormFolderTree.h"
#include "settings/NeskRegistry.h"
#include "shell/FieldMessage.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormSelectHistoryTest : public PartDialogTest {
protected:
    FormSelectHistoryTest() {
        station.Write("C:\\History\\Old\\file.txt", "");
        station.Write("C:\\Other\\file.txt", "");
    }

    bool Show(const std::function<void(FormSelectHistory&)>& act, bool defaultCaption = true) {
        WhenShown<FormSelectHistory>("FormSelectHistory", act);
        return FormSelectHistory(nullptr).Display(directory, title, defaultCaption);
    }

    static void FillBoth(FormSelectHistory& form, const std::string& newDirectory,
                         const std::string& newTitle) {
        Fill(form.txtHistoryDir, newDirectory);
        Fill(form.txtHistoryTitle, newTitle);
    }

    std::string directory = "C:\\History";
    std::string title = "Bracket";
};

TEST_F(FormSelectHistoryTest, ShowsTextsAndValues) {
    Show([](FormSelectHistory& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), "History");
        EXPECT_EQ(FromWx(form.lblHistoryDir->GetLabel()), "History &folder");
        EXPECT_EQ(FromWx(form.lblHistoryTitle->GetLabel()), "History &title");
        EXPECT_EQ(FromWx(form.cmdBrowse->GetLabel()), "&Browse...");
        EXPECT_EQ(FromWx(form.cmdDefault->GetLabel()), "Use &default");
        EXPECT_EQ(FromWx(form.cmdHelp->GetLabel()), "&Help");
        EXPECT_EQ(TextOf(form.txtHistoryDir), "C:\\History");
        EXPECT_EQ(TextOf(form.txtHistoryTitle), "Bracket");
        EXPECT_EQ(TabOrder(), "txtHistoryDir cmdBrowse txtHistoryTitle cmdDefault cmdOK cmdCancel cmdHelp");
        Click(form.cmdCancel);
    });
}

TEST_F(FormSelectHistoryTest, GainingTheFocusSelectsTheTitle) {
    Show([](FormSelectHistory& form) {
        ClickInto(form.txtHistoryTitle);
        EXPECT_TRUE(form.txtHistoryTitle->HasFocus());
        EXPECT_EQ(FromWx(form.txtHistoryTitle->GetStringSelection()), "Bracket");
        Click(form.cmdCancel);
    });
}

TEST_F(FormSelectHistoryTest, TheCallerChoosesTheCaptionOfDefault) {
    Show(
        [](FormSelectHistory& form) {
            EXPECT_EQ(FromWx(form.cmdDefault->GetLabel()), "&No history");
            EXPECT_GE(form.cmdDefault->GetSize().x, form.cmdDefault->GetBestSize().x);
            Click(form.cmdCancel);
        },
        false);
}

TEST_F(FormSelectHistoryTest, OkReturnsTheTrimmedTexts) {
    EXPECT_TRUE(Show([](FormSelectHistory& form) {
        FillBoth(form, "  C:\\Other ", "  Gear & shaft ");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(directory, "C:\\Other");
    EXPECT_EQ(title, "Gear & shaft");
}

TEST_F(FormSelectHistoryTest, TypingAndEnterConfirm) {
    EXPECT_TRUE(Show([](FormSelectHistory&) {
        Press('T', wxMOD_ALT);
        Type("Gear");
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(title, "Gear");
}

TEST_F(FormSelectHistoryTest, ADirectoryThatDoesNotExistIsRefused) {
    for (const char* wrong : {"   ", "C:\\None"}) {
        Expect();
        messages.clear();
        EXPECT_FALSE(Show([&](FormSelectHistory& form) {
            Focus(form.cmdOK);
            FillBoth(form, wrong, "  Untouched ");
            Click(form.cmdOK);
            ASSERT_EQ(messages.size(), 1u);
            EXPECT_EQ(messages[0].text, "Please check the field History folder");
            EXPECT_EQ(messages[0].options, modMessageBox::Option::Exclamation);
            EXPECT_EQ(messages[0].title, LoadResString(32067));
            EXPECT_TRUE(form.lblReason->IsShown());
            EXPECT_EQ(TextOf(form.lblReason), FieldMessage::FolderReason(modUtilities::Trim(wrong)));
            EXPECT_TRUE(form.GetClientRect().Contains(form.cmdOK->GetRect())) << "the dialog has grown";
            EXPECT_LE(form.lblReason->GetRect().GetBottom(), form.cmdOK->GetPosition().y);
            EXPECT_TRUE(WaitUntil([&] { return form.txtHistoryDir->HasFocus(); }));
            EXPECT_EQ(TextOf(form.txtHistoryDir), modUtilities::Trim(wrong));
            EXPECT_EQ(TextOf(form.txtHistoryTitle), "  Untouched ");
            Click(form.cmdCancel);
        }));
    }
    EXPECT_EQ(directory, "C:\\History");
}

TEST_F(FormSelectHistoryTest, AnEmptyTitleIsRefused) {
    Expect();
    EXPECT_FALSE(Show([&](FormSelectHistory& form) {
        FillBoth(form, "C:\\Other", "   ");
        Click(form.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_EQ(messages[0].text, "Please check the field History title");
        EXPECT_EQ(messages[0].options, modMessageBox::Option::Exclamation);
        EXPECT_TRUE(WaitUntil([&] { return form.txtHistoryTitle->HasFocus(); }));
        EXPECT_EQ(TextOf(form.txtHistoryTitle), "");
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(directory, "C:\\History");
    EXPECT_EQ(title, "Bracket");
}

TEST_F(FormSelectHistoryTest, TheReasonGoesWhenOkIsPressedAgain) {
    Expect();
    Expect();
    EXPECT_FALSE(Show([&](FormSelectHistory& form) {
        EXPECT_FALSE(form.lblReason->IsShown());
        FillBoth(form, "C:\\Other", "");
        Click(form.cmdOK);
        EXPECT_EQ(TextOf(form.lblReason), "The history needs a title.");
        FillBoth(form, "C:\\Other", "\xE6\x97\xA5");
        Click(form.cmdOK);
        EXPECT_FALSE(form.lblReason->IsShown()) << "another message was shown";
        Click(form.cmdCancel);
    }));
}

TEST_F(FormSelectHistoryTest, AnEmptyTitleIsProposedAndNotForced) {
    WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& form) {
        EXPECT_EQ(TextOf(form.txtHistoryTitle), "Angle");
        form.Close();
    });
    title = "";
    EXPECT_TRUE(FormSelectHistory(nullptr).Display(directory, title, true, "Angle"));
    EXPECT_EQ(title, "") << "closing the window changes nothing";
    WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& form) { Click(form.cmdOK); });
    EXPECT_TRUE(FormSelectHistory(nullptr).Display(directory, title, true, "Angle"));
    EXPECT_EQ(title, "Angle");
    WhenShown<FormSelectHistory>("FormSelectHistory", [](FormSelectHistory& form) {
        EXPECT_EQ(TextOf(form.txtHistoryTitle), "Angle");
        Click(form.cmdCancel);
    });
    EXPECT_FALSE(FormSelectHistory(nullptr).Display(directory, title, true, "Other"));
}

TEST_F(FormSelectHistoryTest, ATitleThatCannotBeStoredIsReported) {
    Expect();
    EXPECT_FALSE(Show([&](FormSelectHistory& form) {
        FillBoth(form, "C:\\History", "\xE6\x97\xA5");
        Click(form.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].text.find("\xE6\x97\xA5"), std::string::npos);
        EXPECT_TRUE(IsOpen(form));
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(title, "Bracket");
}

TEST_F(FormSelectHistoryTest, DefaultEmptiesBothWithoutACheck) {
    EXPECT_TRUE(Show([](FormSelectHistory& form) {
        FillBoth(form, "C:\\None", "");
        Click(form.cmdDefault);
    }));
    EXPECT_EQ(directory, "");
    EXPECT_EQ(title, "");
}

TEST_F(FormSelectHistoryTest, CancelAndEscapeRefuse) {
    EXPECT_FALSE(Show([](FormSelectHistory& form) {
        FillBoth(form, "C:\\Other", "Gear");
        Click(form.cmdCancel);
    }));
    EXPECT_FALSE(Show([](FormSelectHistory& form) {
        FillBoth(form, "C:\\Other", "Gear");
        Press(WXK_ESCAPE);
    }));
    EXPECT_EQ(directory, "C:\\History");
    EXPECT_EQ(title, "Bracket");
}

TEST_F(FormSelectHistoryTest, TheCloseBoxAcceptsTheUnchangedValues) {
    EXPECT_TRUE(Show([](FormSelectHistory& form) {
        FillBoth(form, "C:\\None", "Gear");
        form.Close();
    }));
    EXPECT_EQ(directory, "C:\\History");
    EXPECT_EQ(title, "Bracket");
}

TEST_F(FormSelectHistoryTest, BrowseReplacesTheDirectory) {
    EXPECT_TRUE(Show([&](FormSelectHistory& form) {
        WhenShown<FormBrowse>("FormBrowse", [](FormBrowse& browse) {
            std::string prompt = TextOf(browse.lblPrompt);
            std::replace(prompt.begin(), prompt.end(), '\n', ' '); // line breaks of the wrapping
            EXPECT_EQ(prompt, LoadResString(32022));
            EXPECT_EQ(browse.Dir1->Path(), "C:\\History");
            browse.Dir1->SetPath("C:\\History\\Old");
            Click(browse.cmdOK);
        });
        Click(form.cmdBrowse);
        EXPECT_EQ(TextOf(form.txtHistoryDir), "C:\\History\\Old\\");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(directory, "C:\\History\\Old\\");
}

TEST_F(FormSelectHistoryTest, BrowsingBeginsAtTheSettingsWhenTheFieldIsEmpty) {
    NeskRegistry::Instance().HistoryDirectory = "C:\\Other";
    directory = "";
    Show([&](FormSelectHistory& form) {
        WhenShown<FormBrowse>("FormBrowse", [](FormBrowse& browse) {
            EXPECT_EQ(browse.Dir1->Path(), "C:\\Other");
            Click(browse.cmdCancel);
        });
        Click(form.cmdBrowse);
        EXPECT_EQ(TextOf(form.txtHistoryDir), "");
        Click(form.cmdCancel);
    });
}

} // namespace
} // namespace nesk::testing
