#include "partedit/FormSelectHelpFile.h"

#include "gui/PartDialogFixture.h"
#include "settings/RegEntry.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/frame.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormSelectHelpFileTest : public PartDialogTest {
protected:
    FormSelectHelpFileTest() {
        station.Write("C:\\Help\\part.chm", "");
        station.Write("C:\\Help\\other.hlp", "");
        station.Write("C:\\Slides\\one.bmp", "");
        RegEntry settings;
        settings.CreateKey("Neskworks");
        settings.SetString("DefaultSlideDirectory", "C:\\Slides");
    }

    bool Show(const std::function<void(FormSelectHelpFile&)>& act) {
        WhenShown<FormSelectHelpFile>("FormSelectHelpFile", act);
        return FormSelectHelpFile(nullptr).Display(file, topic);
    }

    static std::string FileOf(const FormSelectHelpFile& form) { return TextOf(form.txtHelpFile); }
    static std::string TopicOf(const FormSelectHelpFile& form) { return TextOf(form.txtHelpTopic); }

    std::string file = "C:\\Help\\part.chm";
    std::int32_t topic = 12;
};

TEST_F(FormSelectHelpFileTest, ShowsTextsAndValues) {
    Show([](FormSelectHelpFile& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), "Help File");
        EXPECT_EQ(FromWx(form.lblHelpFile->GetLabel()), "Help &file");
        EXPECT_EQ(FromWx(form.lblHelpTopic->GetLabel()), "Help &topic");
        EXPECT_EQ(FromWx(form.cmdBrowse->GetLabel()), "&Browse...");
        EXPECT_EQ(FileOf(form), "C:\\Help\\part.chm");
        EXPECT_EQ(TopicOf(form), "12");
        EXPECT_EQ(TabOrder(), "txtHelpFile cmdBrowse txtHelpTopic cmdOK cmdCancel cmdHelp");
        EXPECT_TRUE(WaitUntil([&] { return IsInTheMiddle(form); })) << form.GetScreenRect().x;
        Click(form.cmdCancel);
    });
}

TEST_F(FormSelectHelpFileTest, StandsInTheMiddleOfTheScreenWhereverItsOwnerIs) {
    auto* corner = new wxFrame(nullptr, wxID_ANY, "Corner", wxPoint(0, 0), wxSize(200, 150));
    ShowActive(*corner);
    WhenShown<FormSelectHelpFile>("FormSelectHelpFile", [](FormSelectHelpFile& form) {
        EXPECT_TRUE(WaitUntil([&] { return IsInTheMiddle(form); })) << form.GetScreenRect().x;
        Click(form.cmdCancel);
    });
    FormSelectHelpFile(corner).Display(file, topic);
    corner->Destroy();
}

TEST_F(FormSelectHelpFileTest, TypedTextsAreTakenAsTheyStand) {
    EXPECT_TRUE(Show([](FormSelectHelpFile&) {
        Press('F', wxMOD_ALT);
        Type(" none ");
        Press('T', wxMOD_ALT);
        Type("345");
        Press(WXK_RETURN);
    }));
    EXPECT_EQ(file, " none ");
    EXPECT_EQ(topic, 345);
}

TEST_F(FormSelectHelpFileTest, GainingTheFocusSelectsTheText) {
    Show([](FormSelectHelpFile& form) {
        for (wxTextCtrl* box : {form.txtHelpTopic, form.txtHelpFile}) {
            Focus(box);
            EXPECT_EQ(box->GetStringSelection(), box->GetValue());
        }
        for (wxTextCtrl* box : {form.txtHelpTopic, form.txtHelpFile}) {
            box->SelectNone();
            Focus(form.cmdOK);
            ClickInto(box);
            EXPECT_TRUE(box->HasFocus());
            EXPECT_EQ(box->GetStringSelection(), box->GetValue()) << "by a click as well";
        }
        Click(form.cmdCancel);
    });
}

TEST_F(FormSelectHelpFileTest, AnEmptyFileIsAccepted) {
    EXPECT_TRUE(Show([](FormSelectHelpFile& form) {
        Fill(form.txtHelpFile, "");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(file, "");
}

TEST_F(FormSelectHelpFileTest, AFileNameThatCannotBeStoredIsReported) {
    Expect();
    EXPECT_FALSE(Show([this](FormSelectHelpFile& form) {
        Fill(form.txtHelpFile, "C:\\\xE6\x97\xA5.chm");
        Click(form.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].text.find("\xE6\x97\xA5"), std::string::npos);
        Click(form.cmdCancel);
    }));
    EXPECT_EQ(file, "C:\\Help\\part.chm");
}

TEST_F(FormSelectHelpFileTest, OnlyDigitsGoIntoTheTopic) {
    Show([](FormSelectHelpFile& form) {
        Focus(form.txtHelpTopic);
        Type("a");
        EXPECT_EQ(TopicOf(form), "12");
        EXPECT_EQ(FromWx(form.txtHelpTopic->GetStringSelection()), "12");
        Type("3");
        Press('-');
        Press('.');
        Type("4");
        EXPECT_EQ(TopicOf(form), "34");
        Paste("5 x-6.7");
        EXPECT_EQ(TopicOf(form), "34567");
        Press(WXK_BACK);
        EXPECT_EQ(TopicOf(form), "3456");
        Click(form.cmdCancel);
    });
}

TEST_F(FormSelectHelpFileTest, ATopicThatIsNoNumberKeepsTheEarlierOne) {
    for (const char* text : {"", "99999999999"}) {
        EXPECT_TRUE(Show([&](FormSelectHelpFile& form) {
            Fill(form.txtHelpTopic, text);
            Click(form.cmdOK);
        }));
        EXPECT_EQ(topic, 12) << text;
    }
}

TEST_F(FormSelectHelpFileTest, BrowseReplacesTheFile) {
    ChooseFile("C:\\Help\\other.hlp");
    EXPECT_TRUE(Show([](FormSelectHelpFile& form) {
        Click(form.cmdBrowse);
        EXPECT_EQ(FileOf(form), "C:\\Help\\other.hlp");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(file, "C:\\Help\\other.hlp");
    ASSERT_EQ(fileDialogs.size(), 1u);
    EXPECT_EQ(fileDialogs[0], LoadResString(32076) + "|C:\\Help\\||" + LoadResString(32078));
}

TEST_F(FormSelectHelpFileTest, BrowsingBeginsInTheFolderThatWasJustTyped) {
    ChooseFile("");
    ChooseFile("");
    Show([](FormSelectHelpFile& form) {
        Fill(form.txtHelpFile, "C:\\Slides\\two.chm");
        Click(form.cmdBrowse);
        Fill(form.txtHelpFile, "C:\\Slides");
        Click(form.cmdBrowse);
        Click(form.cmdCancel);
    });
    EXPECT_EQ(fileDialogs.at(0), LoadResString(32076) + "|C:\\Slides\\||" + LoadResString(32078));
    EXPECT_EQ(fileDialogs.at(1), LoadResString(32076) + "|C:\\Slides||" + LoadResString(32078));
}

TEST_F(FormSelectHelpFileTest, BrowsingBeginsAtTheDefaultFolderWhenThatOfTheFileHasGone) {
    file = "C:\\Gone\\part.chm";
    ChooseFile("C:\\Help\\part.chm");
    Show([](FormSelectHelpFile& form) {
        Click(form.cmdBrowse);
        Click(form.cmdCancel);
    });
    EXPECT_EQ(fileDialogs.at(0), LoadResString(32076) + "|C:\\Slides||" + LoadResString(32078));
    EXPECT_EQ(file, "C:\\Gone\\part.chm");
}

TEST_F(FormSelectHelpFileTest, AFileDialogThatIsCalledOffGivesWhatWasChosenInItBefore) {
    ChooseFile("");
    ChooseFile("C:\\Help\\other.hlp");
    ChooseFile("");
    EXPECT_TRUE(Show([](FormSelectHelpFile& form) {
        Click(form.cmdBrowse);
        EXPECT_EQ(FileOf(form), "");
        Click(form.cmdBrowse);
        EXPECT_EQ(FileOf(form), "C:\\Help\\other.hlp");
        Fill(form.txtHelpFile, "C:\\Typed.chm");
        Click(form.cmdBrowse);
        EXPECT_EQ(FileOf(form), "C:\\Help\\other.hlp");
        Click(form.cmdOK);
    }));
    EXPECT_EQ(file, "C:\\Help\\other.hlp");
}

TEST_F(FormSelectHelpFileTest, CancelEscapeAndCloseBoxChangeNothing) {
    const auto change = [](FormSelectHelpFile& form) {
        Fill(form.txtHelpFile, "x");
        Fill(form.txtHelpTopic, "1");
    };
    EXPECT_FALSE(Show([&](FormSelectHelpFile& form) {
        change(form);
        Click(form.cmdCancel);
    }));
    EXPECT_FALSE(Show([&](FormSelectHelpFile& form) {
        change(form);
        Press(WXK_ESCAPE);
    }));
    EXPECT_FALSE(Show([&](FormSelectHelpFile& form) {
        change(form);
        form.Close();
    }));
    EXPECT_EQ(file, "C:\\Help\\part.chm");
    EXPECT_EQ(topic, 12);
}

} // namespace
} // namespace nesk::testing
