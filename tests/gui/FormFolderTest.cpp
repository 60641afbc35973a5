#include "partedit/FormFolder.h"

#include "gui/PartDialogFixture.h"
#include "shell/modUtilities.h"
#include "unit/FileBytes.h"
#include "widgets/UiUtilities.h"

#include <wx/button.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>
#include <wx/tooltip.h>

namespace nesk::testing {
namespace {

using modUtilities::DirectoryExists;
using modUtilities::FromWx;

class FormFolderTest : public PartDialogTest {
protected:
    FormFolderTest() { station.Write("C:\\Data\\keep.txt", ""); }

    std::string Show(const std::function<void(FormFolder&)>& act, const std::string& base = "C:\\Data") {
        WhenShown<FormFolder>("FormFolder", act);
        return FormFolder(nullptr).Invoke(base);
    }

    // Enters a name and confirms it with OK.
    std::string Make(const std::string& name, const std::string& base = "C:\\Data") {
        return Show(
            [&](FormFolder& form) {
                Fill(form.txtFolder, name);
                Click(form.cmdOK);
            },
            base);
    }
};

TEST_F(FormFolderTest, ShowsTextsAndPath) {
    const std::string base = "C:\\Data\\a very long name of a folder\\and another one below it\\R&D\\last";
    const auto look = [&](FormFolder& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), "New folder");
        EXPECT_EQ(FromWx(form.cmdOK->GetLabel()), "OK");
        EXPECT_EQ(FromWx(form.cmdCancel->GetLabel()), "Cancel");
        EXPECT_EQ(form.cmdHelp, nullptr);
        EXPECT_EQ(TextOf(form.lblFolder), base + "\\");
        EXPECT_EQ(FromWx(form.lblFolder->GetToolTipText()), base + "\\");
        EXPECT_LE(form.lblFolder->GetRect().GetRight(), form.GetClientSize().x);
        EXPECT_EQ(FromWx(form.lblName->GetLabel()), "&Name of the new folder");
        EXPECT_LE(form.lblName->GetRect().GetBottom(), form.txtFolder->GetPosition().y);
        EXPECT_EQ(Find(form, "txtFolder"), form.txtFolder);
        EXPECT_TRUE(form.txtFolder->HasFocus());
        EXPECT_EQ(TabOrder(), "txtFolder cmdOK cmdCancel");
        Click(form.cmdCancel);
    };
    EXPECT_EQ(Show(look, base + "   "), "");
}

TEST_F(FormFolderTest, TypedNameAndEnterMakeTheFolder) {
    const std::string made = Show([](FormFolder& form) {
        Focus(form.cmdOK);
        Press('N', wxMOD_ALT);
        EXPECT_TRUE(form.txtFolder->HasFocus());
        Type("New");
        Press(WXK_RETURN);
    });
    EXPECT_EQ(made, "C:\\Data\\New\\");
    EXPECT_TRUE(DirectoryExists("C:\\Data\\New"));
}

TEST_F(FormFolderTest, SeparatorsAroundTheNameGo) {
    EXPECT_EQ(Make(" \\New\\ "), "C:\\Data\\New\\");
    EXPECT_TRUE(DirectoryExists("C:\\Data\\New"));
}

TEST_F(FormFolderTest, NestedFoldersAreMadeLevelByLevel) {
    EXPECT_EQ(Make("A\\B", "C:\\None\\"), "C:\\None\\A\\B\\");
    EXPECT_TRUE(DirectoryExists("C:\\None\\A\\B"));
}

TEST_F(FormFolderTest, AnExistingFolderIsAccepted) {
    station.Write("C:\\Data\\Old\\keep.txt", "");
    EXPECT_EQ(Make("old"), "C:\\Data\\old\\");
    EXPECT_EQ(FilesIn("C:\\Data"), "Old keep.txt");
}

TEST_F(FormFolderTest, AnEmptyNameDoesNothing) {
    const std::string made = Show([](FormFolder& form) {
        Fill(form.txtFolder, " \\\\ ");
        Click(form.cmdOK);
        EXPECT_TRUE(IsOpen(form));
        Press(WXK_ESCAPE);
    });
    EXPECT_EQ(made, "");
}

TEST_F(FormFolderTest, TheColonIsDroppedSilently) {
    Show([](FormFolder& form) {
        const auto typeColon = [] { Press(';', wxMOD_SHIFT); };
        Type("a");
        typeColon();
        Type("b");
        EXPECT_EQ(TextOf(form.txtFolder), "ab");
        // A refused key does not replace the selection.
        form.txtFolder->SelectAll();
        typeColon();
        EXPECT_EQ(TextOf(form.txtFolder), "ab");
        form.txtFolder->SetInsertionPoint(1);
        Paste("C:\\X");
        EXPECT_EQ(TextOf(form.txtFolder), "aC\\Xb");
        EXPECT_EQ(form.txtFolder->GetInsertionPoint(), 4);
        Click(form.cmdCancel);
    });
}

TEST_F(FormFolderTest, GainingTheFocusSelectsTheText) {
    Show([](FormFolder& form) {
        Fill(form.txtFolder, "Name");
        Focus(form.cmdOK);
        Focus(form.txtFolder);
        EXPECT_EQ(FromWx(form.txtFolder->GetStringSelection()), "Name");
        Focus(form.cmdOK);
        form.txtFolder->SelectNone();
        ClickInto(form.txtFolder);
        EXPECT_TRUE(form.txtFolder->HasFocus());
        EXPECT_EQ(FromWx(form.txtFolder->GetStringSelection()), "Name") << "by a click as well";
        Click(form.cmdCancel);
    });
}

TEST_F(FormFolderTest, AFailureIsReportedAndTheDialogStaysOpen) {
    station.Write("C:\\Data\\File", "");
    Expect();
    const std::string made = Show([&](FormFolder& form) {
        Fill(form.txtFolder, "File\\Below");
        Click(form.cmdOK);
        ASSERT_EQ(messages.size(), 1u);
        EXPECT_NE(messages[0].text.find("C:\\Data\\File"), std::string::npos) << messages[0].text;
        EXPECT_EQ(messages[0].options, modMessageBox::Option::Critical);
        EXPECT_TRUE(IsOpen(form));
        EXPECT_EQ(TextOf(form.txtFolder), "File\\Below");
        Fill(form.txtFolder, "Good");
        Click(form.cmdOK);
    });
    EXPECT_EQ(made, "C:\\Data\\Good\\");
}

TEST_F(FormFolderTest, CancelAndCloseBoxMakeNothing) {
    const auto type = [](FormFolder& form) { Fill(form.txtFolder, "New"); };
    EXPECT_EQ(Show([&](FormFolder& form) {
                  type(form);
                  Click(form.cmdCancel);
              }),
              "");
    EXPECT_EQ(Show([&](FormFolder& form) {
                  type(form);
                  form.Close();
              }),
              "");
    EXPECT_FALSE(DirectoryExists("C:\\Data\\New"));
}

} // namespace
} // namespace nesk::testing
