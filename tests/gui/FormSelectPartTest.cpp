#include "gui/PartDialogFixture.h"
#include "gui/TreeIcons.h"

#include "base/Messages.h"
#include "partedit/FormSelectDrive.h"
#include "partedit/FormSelectPart.h"
#include "settings/RegEntry.h"
#include "widgets/UiUtilities.h"

#include <filesystem>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/radiobut.h>
#include <wx/settings.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

using modStringRes::LoadResString;
using modUtilities::FromWx;

class FormSelectPartTest : public PartDialogTest {
protected:
    FormSelectPartTest() {
        for (const char* folder :
             {"D:\\Parts\\Brackets\\Angle", "D:\\Parts\\Brackets\\Plate", "D:\\Parts\\Shaft"})
            station.Write(std::string(folder) + "\\partinfo.ini", "[Part]\r\nName=x\r\n");
        RegEntry common;
        common.CreateKey("Common");
        common.SetString("RepositoryRoot", "D:\\Parts\\");
    }

    // The node at the end of a path of texts below the root; null if it is missing.
    static platform::TreeNode* Node(const FormSelectPart& form, const std::vector<std::string>& path) {
        platform::TreeNode* node = form.tvMain->Root();
        for (const std::string& text : path) {
            platform::TreeNode* found = nullptr;
            for (std::size_t i = 0; i < node->ChildCount() && found == nullptr; ++i)
                if (node->Child(i).Text() == text) found = &node->Child(i);
            if (found == nullptr) return nullptr;
            node = found;
        }
        return node;
    }

    // Number of nodes.
    static std::size_t Count(const FormSelectPart& form) {
        std::size_t count = 0;
        std::vector<const platform::TreeNode*> nodes{form.tvMain->Root()};
        while (!nodes.empty()) {
            const platform::TreeNode* node = nodes.back();
            nodes.pop_back();
            ++count;
            for (std::size_t i = 0; i < node->ChildCount(); ++i)
                nodes.push_back(&node->Child(i));
        }
        return count;
    }

    // A point in the row of a node, in screen coordinates.
    static wxPoint PointIn(const FormSelectPart& form, const platform::TreeNode& node) {
        const wxRect row = form.tvMain->RowRect(node);
        return form.tvMain->Window().ClientToScreen(wxPoint(row.x + 8, row.y + row.height / 2));
    }

    static bool IsScanned(const FormSelectPart& form) {
        return !form.IsBusy() && form.cmdSelectDrive->IsEnabled() && form.tvMain->Root() != nullptr;
    }

    // Creates folders that take longer to scan than any wait of a test.
    void MakeManyFolders() {
#ifdef NESK_PORTABLE_STATION
        // Each folder links to all others, and the scan follows ten links to each: about forty thousand
        // folders.
        constexpr int folders = 60;
#else
        constexpr int folders = 3000;
#endif
        for (int i = 0; i < folders; ++i)
            station.Write("D:\\Parts\\many\\" + std::to_string(i) + "\\x", "");
#ifdef NESK_PORTABLE_STATION
        const std::filesystem::path many = TempStation::Host("D:\\Parts\\many");
        for (int i = 0; i < folders; ++i)
            for (int j = 0; j < folders; ++j)
                if (i != j)
                    std::filesystem::create_directory_symlink(
                        many / std::to_string(j), many / std::to_string(i) / ("to" + std::to_string(j)));
#endif
    }

    // Announces the action that runs when the dialog's scan is finished. A test that waits for the scan
    // inside an action would prevent the scan from finishing.
    void WhenScanned(std::function<void(FormSelectPart&)> act) {
        WhenShown<FormSelectPart>("FormSelectPart", std::move(act), IsScanned);
    }
};

TEST_F(FormSelectPartTest, ShowsTheRepositoryAndReturnsThePart) {
    WhenScanned([](FormSelectPart& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), LoadResString(32047));
        EXPECT_EQ(form.tvMain->Root()->Text(), LoadResString(32069));
        EXPECT_TRUE(form.tvMain->Root()->IsExpanded());
        // The repository itself, Brackets and the three parts.
        EXPECT_EQ(TextOf(form.lblProgress), "Folders read: 5");
        EXPECT_EQ(FromWx(form.cmdSelectDrive->GetLabel()), LoadResString(32068));
        EXPECT_FALSE(form.tvMain->Window().GetCursor().IsSameAs(*wxHOURGLASS_CURSOR));
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        platform::TreeNode* part = Node(form, {"Brackets", "Angle"});
        ASSERT_NE(part, nullptr);
        form.tvMain->Select(part);
        EXPECT_TRUE(form.cmdOK->IsEnabled());
        Click(form.cmdOK);
    });
    FormSelectPart form(nullptr);
    EXPECT_FALSE(form.cmdOK->IsEnabled()) << "before anything is shown";
    EXPECT_EQ(form.SelectPart(), "D:\\Parts\\Brackets\\Angle\\partinfo.ini");
}

TEST_F(FormSelectPartTest, FoldersAndPartsHaveTheirImages) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Expand(*Node(form, {"Brackets"}));
        Settle();
        form.tvMain->Select(Node(form, {"Brackets", "Plate"}));
        EXPECT_TRUE(HasIcon(*form.tvMain, *form.tvMain->Root(), "folder"));
        EXPECT_TRUE(HasIcon(*form.tvMain, *Node(form, {"Brackets"}), "folder"));
        EXPECT_TRUE(HasIcon(*form.tvMain, *Node(form, {"Brackets", "Angle"}), "part"));
        EXPECT_TRUE(HasIcon(*form.tvMain, *Node(form, {"Shaft"}), "part"));
        EXPECT_FALSE(HasIcon(*form.tvMain, *Node(form, {"Shaft"}), "folder"));
        Click(form.cmdCancel);
    });
    FormSelectPart(nullptr).SelectPart();
}

TEST_F(FormSelectPartTest, OkOnAFolderDoesNothing) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        form.tvMain->Select(Node(form, {"Brackets"}));
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        ClickDisabled(form.cmdOK);
        EXPECT_TRUE(IsOpen(form)) << "the dialog stays open";
        Click(form.cmdCancel);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "") << "a folder is no part program";
}

TEST_F(FormSelectPartTest, OkWithoutASelectionDoesNothing) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(nullptr);
        ASSERT_EQ(form.tvMain->Selected(), nullptr);
        ClickDisabled(form.cmdOK);
        EXPECT_TRUE(IsOpen(form)) << "the dialog stays open";
        Click(form.cmdCancel);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "");
}

TEST_F(FormSelectPartTest, TheNameOfAPartStandsBesideItsFolder) {
    station.Write("D:\\Parts\\b100\\partinfo.ini", "[Part]\r\nName=Bracket, left\r\n");
    station.Write("D:\\Parts\\Same\\partinfo.ini", "[Part]\r\nName=Same\r\n");
    WhenScanned([](FormSelectPart& form) {
        EXPECT_EQ(Node(form, {"b100"})->Detail(), "Bracket, left");
        EXPECT_EQ(Node(form, {"Same"})->Detail(), "") << "nothing is said twice";
        EXPECT_EQ(Node(form, {"Brackets"})->Detail(), "");
        Click(form.cmdCancel);
    });
    FormSelectPart(nullptr).SelectPart();
}

TEST_F(FormSelectPartTest, TheCurrentPartIsSelected) {
    const std::string current = "d:\\PARTS\\Brackets\\Angle\\partinfo.ini";
    for (const bool confirm : {true, false}) {
        WhenScanned([confirm](FormSelectPart& form) {
            EXPECT_EQ(form.tvMain->Selected(), Node(form, {"Brackets", "Angle"}));
            EXPECT_FALSE(form.tvMain->RowRect(*form.tvMain->Selected()).IsEmpty()) << "it can be seen";
            EXPECT_TRUE(form.cmdOK->IsEnabled());
            Click(confirm ? form.cmdOK : form.cmdCancel);
        });
        FormSelectPart form(nullptr);
        form.SetCurrent(current);
        EXPECT_EQ(form.SelectPart(), confirm ? "D:\\Parts\\Brackets\\Angle\\partinfo.ini" : "")
            << "what nobody clicked is no result of Cancel";
    }
}

TEST_F(FormSelectPartTest, ACurrentPartElsewhereSelectsNothing) {
    WhenScanned([](FormSelectPart& form) {
        EXPECT_EQ(form.tvMain->Selected(), form.tvMain->Root());
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Click(form.cmdCancel);
    });
    FormSelectPart form(nullptr);
    form.SetCurrent("D:\\Elsewhere\\partinfo.ini");
    EXPECT_EQ(form.SelectPart(), "");
}

TEST_F(FormSelectPartTest, TypingFindsAPart) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Expand(*Node(form, {"Brackets"}));
        Focus(&form.tvMain->Window());
        Type("pl");
        EXPECT_EQ(form.tvMain->Selected(), Node(form, {"Brackets", "Plate"}));
        EXPECT_TRUE(form.cmdOK->IsEnabled());
        Click(form.cmdOK);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "D:\\Parts\\Brackets\\Plate\\partinfo.ini");
}

TEST_F(FormSelectPartTest, CancelKeepsWhatWasSelected) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        Click(form.cmdCancel);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "D:\\Parts\\Shaft\\partinfo.ini");
}

TEST_F(FormSelectPartTest, EnterOnAPartConfirms) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        Focus(&form.tvMain->Window());
        Press(WXK_RETURN);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "D:\\Parts\\Shaft\\partinfo.ini");
}

TEST_F(FormSelectPartTest, ADoubleClickOnAPartConfirms) {
    WhenScanned([](FormSelectPart& form) {
        const auto doubleClick = [&](const platform::TreeNode* node) {
            DoubleClickPoint(PointIn(form, *node));
        };
        doubleClick(Node(form, {"Brackets"}));
        EXPECT_TRUE(IsOpen(form)) << "a folder is no part program";
        doubleClick(Node(form, {"Shaft"}));
        EXPECT_FALSE(IsOpen(form));
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "D:\\Parts\\Shaft\\partinfo.ini");
}

// The tree sends no event for a click on the node that it selected by itself.
TEST_F(FormSelectPartTest, AClickOnTheRootForgetsTheResult) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        Click(form.cmdSelectDrive);
        ASSERT_TRUE(IsScanned(form));
        ClickPoint(PointIn(form, *form.tvMain->Root()));
        EXPECT_FALSE(form.cmdOK->IsEnabled());
        Click(form.cmdCancel);
    });
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) { Click(form.cmdOK); });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "");
}

TEST_F(FormSelectPartTest, ALongScanCanBeCalledOff) {
    MakeManyFolders();
    bool wasBusy = false;
    std::size_t found = 0;
    WhenShown<FormSelectPart>("FormSelectPart", [&](FormSelectPart& form) {
        wasBusy = form.IsBusy();
        EXPECT_FALSE(form.cmdSelectDrive->IsEnabled());
        EXPECT_TRUE(form.tvMain->Window().GetCursor().IsSameAs(*wxHOURGLASS_CURSOR));
        Click(form.cmdCancel);
        EXPECT_FALSE(form.cmdCancel->IsEnabled());
        found = Count(form);
    });
    FormSelectPart form(nullptr);
    EXPECT_EQ(form.SelectPart(), "");
    EXPECT_TRUE(wasBusy);
    EXPECT_EQ(Count(form), found) << "the scan went on";
}

TEST_F(FormSelectPartTest, ALongScanShowsItsProgress) {
    MakeManyFolders();
    std::string shown;
    WhenShown<FormSelectPart>(
        "FormSelectPart", [&](FormSelectPart& form) { shown = TextOf(form.lblProgress); },
        [](const FormSelectPart& form) {
            return form.IsBusy() && !form.lblProgress->GetLabelText().empty();
        });
    WhenShown<FormSelectPart>(
        "FormSelectPart", [](FormSelectPart& form) { Click(form.cmdCancel); },
        [&](const FormSelectPart& form) { return form.IsBusy() && TextOf(form.lblProgress) != shown; });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "");
    EXPECT_FALSE(shown.empty());
}

#ifdef NESK_PORTABLE_STATION
// On Windows only administrators can create links, and Wine cannot create any.
TEST_F(FormSelectPartTest, AnEntryThatCannotBeReadIsToldAndTheScanGoesOn) {
    std::filesystem::create_symlink("/nonexistent/file", TempStation::Host("D:\\Parts") / "dangling");
    ExpectSystemBox();
    WhenScanned([](FormSelectPart& form) {
        EXPECT_NE(Node(form, {"Brackets", "Angle"}), nullptr);
        EXPECT_NE(Node(form, {"Shaft"}), nullptr);
        Click(form.cmdCancel);
    });
    FormSelectPart(nullptr).SelectPart();
    ASSERT_EQ(boxes.size(), 1u);
    const std::string path = "D:\\Parts\\dangling";
    EXPECT_EQ(boxes[0].text, "Error 53 " + modStringRes::FormatResString(Message::FileNotFound, path) +
                                 ": GetAttrib(" + path + ")=0");
}

TEST_F(FormSelectPartTest, MessagesAboutUnreadablePlacesCanBeSkippedAndAreListedAtTheEnd) {
    for (const char* name : {"one", "two", "three"})
        std::filesystem::create_symlink("/nonexistent/file", TempStation::Host("D:\\Parts") / name);
    ExpectSystemBox(wxID_CANCEL);
    Expect();
    WhenScanned([](FormSelectPart& form) {
        EXPECT_TRUE(Node(form, {"Brackets", "Angle"}));
        Click(form.cmdCancel);
    });
    FormSelectPart(nullptr).SelectPart();
    EXPECT_EQ(boxes.size(), 1u) << "the first alone has a box";
    ASSERT_EQ(messages.size(), 1u);
    int listed = 0;
    for (const char* name : {"one", "two", "three"})
        if (messages[0].text.find(std::string("D:\\Parts\\") + name) != std::string::npos) ++listed;
    EXPECT_EQ(listed, 2) << messages[0].text;
    EXPECT_NE(messages[0].text.find("could not be read: 2"), std::string::npos) << messages[0].text;
}
#endif

TEST_F(FormSelectPartTest, WithoutARepositoryThereIsTheRootAlone) {
    station.Write("C:\\Other\\partinfo.ini", "[Part]\r\nName=x\r\n");
    RegEntry common;
    common.OpenKey("Common");
    for (const char* root : {"", "D:\\None"}) {
        common.SetString("RepositoryRoot", root);
        WhenScanned([](FormSelectPart& form) {
            EXPECT_EQ(form.tvMain->Root()->Text(), LoadResString(32069));
            EXPECT_EQ(form.tvMain->Root()->ChildCount(), 0u);
            Click(form.cmdCancel);
        });
        EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "") << root;
    }
}

TEST_F(FormSelectPartTest, AnotherDriveCanBeScanned) {
    station.Write("E:\\Other\\partinfo.ini", "[Part]\r\nName=x\r\n");
    WhenScanned([](FormSelectPart& form) {
        Click(form.cmdSelectDrive);
        ASSERT_TRUE(IsScanned(form));
        EXPECT_EQ(form.tvMain->Root()->Text(), "E:\\");
        form.tvMain->Select(Node(form, {"Other"}));
        Click(form.cmdOK);
    });
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) {
        EXPECT_TRUE(form.optDrive[0]->GetValue());
        Click(form.optDrive[1]);
        Choose(form.drvSelect, "E:");
        Click(form.cmdOK);
    });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "E:\\Other\\partinfo.ini");
}

TEST_F(FormSelectPartTest, ACancelledDriveDialogChangesNothing) {
    WhenScanned([](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        Click(form.cmdSelectDrive);
        EXPECT_NE(Node(form, {"Brackets", "Angle"}), nullptr);
        EXPECT_TRUE(form.cmdOK->IsEnabled());
        Click(form.cmdOK);
    });
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) { Click(form.cmdCancel); });
    EXPECT_EQ(FormSelectPart(nullptr).SelectPart(), "D:\\Parts\\Shaft\\partinfo.ini");
}

TEST_F(FormSelectPartTest, ReadingTheRepositoryAgainKeepsTheResult) {
    WhenScanned([this](FormSelectPart& form) {
        form.tvMain->Select(Node(form, {"Shaft"}));
        station.Write("D:\\Parts\\New\\partinfo.ini", "[Part]\r\nName=x\r\n");
        Click(form.cmdSelectDrive);
        EXPECT_EQ(form.tvMain->Root()->Text(), LoadResString(32069));
        EXPECT_TRUE(form.tvMain->Root()->IsExpanded());
        EXPECT_NE(Node(form, {"New"}), nullptr);
        Click(form.cmdCancel);
    });
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) { Click(form.cmdOK); });
    FormSelectPart form(nullptr);
    EXPECT_EQ(form.SelectPart(), "D:\\Parts\\Shaft\\partinfo.ini");
    WhenScanned([](FormSelectPart& again) { Click(again.cmdCancel); });
    EXPECT_EQ(form.SelectPart(), "") << "opening the dialog forgets it";
}

TEST_F(FormSelectPartTest, TheDriveDialogFollowsItsOptions) {
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) {
        EXPECT_EQ(FromWx(form.GetTitle()), LoadResString(32072));
        EXPECT_EQ(FromWx(form.optDrive[0]->GetLabel()), LoadResString(32071));
        EXPECT_EQ(FromWx(form.optDrive[1]->GetLabel()), LoadResString(32070));
        EXPECT_EQ(FromWx(form.lblSelectDrive->GetLabel()), LoadResString(32068));
        EXPECT_FALSE(form.drvSelect->IsEnabled());
        for (const std::size_t option : {1u, 0u, 1u, 0u}) {
            Click(form.optDrive[option]);
            EXPECT_EQ(form.lblSelectDrive->IsEnabled(), option == 1);
            EXPECT_EQ(form.drvSelect->IsEnabled(), option == 1);
            const wxSystemColour colour = option == 1 ? wxSYS_COLOUR_WINDOWTEXT : wxSYS_COLOUR_GRAYTEXT;
            EXPECT_EQ(form.drvSelect->GetForegroundColour(), wxSystemSettings::GetColour(colour));
        }
        Click(form.cmdOK);
    });
    EXPECT_EQ(FormSelectDrive(nullptr).SelectDrive(), "*") << "the option chosen last";
}

TEST_F(FormSelectPartTest, TheDriveDialogAnswers) {
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) { Click(form.cmdOK); });
    EXPECT_EQ(FormSelectDrive(nullptr).SelectDrive(), "*");
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) { Click(form.cmdCancel); });
    EXPECT_EQ(FormSelectDrive(nullptr).SelectDrive(), "");
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) {
        Click(form.optDrive[1]);
        Press(WXK_RETURN);
    });
    EXPECT_EQ(FormSelectDrive(nullptr).SelectDrive(), "C:\\");
}

TEST_F(FormSelectPartTest, TheDriveDialogOffersTheDriveThatIsShown) {
    for (const auto& [current, drive] :
         {std::pair("D:\\Parts", "D:"), std::pair("", "C:"), std::pair("Q:\\", "C:")}) {
        WhenShown<FormSelectDrive>("FormSelectDrive", [expected = drive](FormSelectDrive& form) {
            EXPECT_TRUE(form.optDrive[0]->GetValue());
            EXPECT_EQ(TextOf(form.drvSelect), expected);
            Click(form.cmdCancel);
        });
        FormSelectDrive(nullptr).SelectDrive(current);
    }
    // The part tree passes the current drive to the dialog.
    WhenScanned([](FormSelectPart& form) {
        Click(form.cmdSelectDrive);
        Click(form.cmdCancel);
    });
    WhenShown<FormSelectDrive>("FormSelectDrive", [](FormSelectDrive& form) {
        EXPECT_EQ(FromWx(form.drvSelect->GetStringSelection()), "D:") << "the repository is there";
        Click(form.cmdCancel);
    });
    FormSelectPart(nullptr).SelectPart();
}

} // namespace
} // namespace nesk::testing
