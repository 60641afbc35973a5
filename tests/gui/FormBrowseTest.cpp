#include "partedit/FormBrowse.h"

#include "gui/PartDialogFixture.h"
#include "partedit/FormFolder.h"
#include "partedit/FormFolderTree.h"
#include "platform/FileSystem.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

namespace fs = std::filesystem;
using modStringRes::LoadResString;
using modUtilities::FromWx;
using modUtilities::ToWx;

class FormBrowseTest : public PartDialogTest {
protected:
    FormBrowseTest() {
        station.AddDrive('D');
        fs::create_directories(TempStation::Host("C:\\Data\\Sub"));
        fs::create_directories(TempStation::Host("D:\\Other"));
    }

    // Makes drive D: not ready, as if its medium were removed.
    void EmptyDriveD() {
#ifdef NESK_PORTABLE_STATION
        station.Write("D:\\.notready", "");
#else
        fs::remove_all(station.Folder() / "D");
#endif
    }

    std::string Show(const std::function<void(FormBrowse&)>& act, const std::string& path = "C:\\Data",
                     const std::string& prompt = "Choose R&D") {
        WhenShown<FormBrowse>("FormBrowse", act);
        return FormBrowse(nullptr).Invoke(prompt, path);
    }
};

TEST_F(FormBrowseTest, ShowsTextsAndLists) {
    Show([](FormBrowse& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), "Browse for Folder");
        EXPECT_EQ(TextOf(form.lblPrompt), "Choose R&D");
        EXPECT_EQ(FromWx(form.cmdOK->GetLabel()), "OK");
        EXPECT_EQ(FromWx(form.cmdCancel->GetLabel()), "Cancel");
        EXPECT_EQ(FromWx(form.cmdHelp->GetLabel()), "&Help");
        EXPECT_EQ(FromWx(form.cmdFolder->GetLabel()), "&New folder");
        ASSERT_EQ(form.Drive1->GetCount(), 3u);
        EXPECT_EQ(FromWx(form.Drive1->GetString(0)), "C:");
        EXPECT_EQ(FromWx(form.Drive1->GetString(2)), "Z:");
        EXPECT_EQ(FromWx(form.Drive1->GetStringSelection()), "C:");
        EXPECT_EQ(form.Dir1->Path(), "C:\\Data");
        EXPECT_EQ(TabOrder(),
                  std::string("Dir1 cmdFolder cmdOK cmdCancel cmdHelp ") + FocusName(*form.Drive1));
        Click(form.cmdCancel);
    });
}

TEST_F(FormBrowseTest, OkReturnsTheFolder) {
    EXPECT_EQ(Show([](FormBrowse& form) { Click(form.cmdOK); }), "C:\\Data\\");
}

TEST_F(FormBrowseTest, TheKeyboardAloneChoosesAFolder) {
    EXPECT_EQ(Show([](FormBrowse& form) {
                  Press(WXK_DOWN);
                  EXPECT_EQ(form.Dir1->Path(), "C:\\Data\\Sub");
                  Press(WXK_RETURN);
              }),
              "C:\\Data\\Sub\\");
}

TEST_F(FormBrowseTest, AccessKeysLeadToTheLists) {
    Show([](FormBrowse& form) {
        Focus(form.cmdCancel);
        Press('D', wxMOD_ALT);
        Press(WXK_DOWN);
        EXPECT_EQ(FromWx(form.Drive1->GetStringSelection()), "D:");
        EXPECT_EQ(form.Dir1->Path(), "D:\\");
        Focus(form.cmdCancel);
        Press('F', wxMOD_ALT);
        EXPECT_TRUE(form.Dir1->Window().HasFocus());
        Press(WXK_DOWN);
        EXPECT_EQ(form.Dir1->Path(), "D:\\Other");
        Click(form.cmdCancel);
    });
}

TEST_F(FormBrowseTest, TheRootOfADriveCannotBeChosen) {
    ExpectSystemBox();
    EXPECT_EQ(Show(
                  [this](FormBrowse& form) {
                      Click(form.cmdOK);
                      ASSERT_EQ(boxes.size(), 1u);
                      EXPECT_EQ(boxes[0].text, LoadResString(32025));
                      EXPECT_EQ(boxes[0].title, LoadResString(32015));
                      EXPECT_TRUE(IsOpen(form));
                      form.Dir1->SetPath("C:\\Data");
                      Click(form.cmdOK);
                  },
                  "C:\\"),
              "C:\\Data\\");
}

TEST_F(FormBrowseTest, AFolderThatHasGoneCannotBeChosen) {
    ExpectSystemBox();
    EXPECT_EQ(Show([this](FormBrowse& form) {
                  fs::remove_all(TempStation::Host("C:\\Data"));
                  Click(form.cmdOK);
                  Press(WXK_ESCAPE);
              }),
              "");
    EXPECT_EQ(boxes.at(0).text, LoadResString(32025));
}

TEST_F(FormBrowseTest, BeginsAtTheProgramWhenThePathDoesNotExist) {
    Show(
        [](FormBrowse& form) {
            EXPECT_EQ(form.Dir1->Path(), platform::ProgramFolder());
            EXPECT_EQ(form.Drive1->GetStringSelection().Upper() + "\\",
                      ToWx(platform::ProgramFolder()).Left(3));
            Click(form.cmdCancel);
        },
        "C:\\None");
}

TEST_F(FormBrowseTest, AnotherDriveIsShownFromItsRoot) {
    EXPECT_EQ(Show([](FormBrowse& form) {
                  Choose(form.Drive1, "D:");
                  EXPECT_EQ(form.Dir1->Path(), "D:\\");
                  form.Dir1->SetPath("D:\\Other");
                  Click(form.cmdOK);
              }),
              "D:\\Other\\");
}

TEST_F(FormBrowseTest, ADriveThatIsNotReadyIsReportedAndCIsShown) {
    EmptyDriveD();
    Expect();
    Show([this](FormBrowse& form) {
        Choose(form.Drive1, "D:");
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].text.find("D:\\"), std::string::npos) << messages[0].text;
        EXPECT_EQ(messages[0].title, LoadResString(34123));
        EXPECT_EQ(FromWx(form.Drive1->GetStringSelection()), "C:");
        EXPECT_EQ(form.Dir1->Path(), "C:\\");
        Click(form.cmdCancel);
    });
}

#ifdef NESK_PORTABLE_STATION
// On Windows C: is the system drive, which is always ready.
TEST_F(FormBrowseTest, TheFallbackThatIsNotReadyIsReportedOnce) {
    Expect();
    Show(
        [this](FormBrowse& form) {
            station.Write("C:\\.notready", "");
            Choose(form.Drive1, "C:");
            EXPECT_EQ(FromWx(form.Drive1->GetStringSelection()), "C:");
            Click(form.cmdCancel);
        },
        "D:\\Other");
    EXPECT_EQ(messages.size(), 1u);
}
#endif

TEST_F(FormBrowseTest, ANewFolderIsMadeAndEntered) {
    const auto name = [](FormFolder& form) {
        EXPECT_EQ(TextOf(form.lblFolder), "C:\\Data\\");
        Fill(form.txtFolder, "New\\Deep");
        Click(form.cmdOK);
    };
    EXPECT_EQ(Show([&](FormBrowse& form) {
                  WhenShown<FormFolder>("FormFolder", name);
                  Click(form.cmdFolder);
                  EXPECT_EQ(form.Dir1->Path(), "C:\\Data\\New\\Deep");
                  Click(form.cmdOK);
              }),
              "C:\\Data\\New\\Deep\\");
}

TEST_F(FormBrowseTest, ANewFolderThatIsCalledOffChangesNothing) {
    Show([&](FormBrowse& form) {
        WhenShown<FormFolder>("FormFolder", [](FormFolder& folder) { Click(folder.cmdCancel); });
        Click(form.cmdFolder);
        EXPECT_EQ(form.Dir1->Path(), "C:\\Data");
        Click(form.cmdCancel);
    });
}

TEST_F(FormBrowseTest, EscapeAndCloseBoxCancel) {
    EXPECT_EQ(Show([](FormBrowse&) { Press(WXK_ESCAPE); }), "");
    EXPECT_EQ(Show([](FormBrowse& form) { form.Close(); }), "");
}

} // namespace
} // namespace nesk::testing
