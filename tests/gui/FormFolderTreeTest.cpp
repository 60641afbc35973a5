#include "partedit/FormFolderTree.h"

#include "gui/PartDialogFixture.h"
#include "shell/FormUtilities.h"

#include <wx/frame.h>

namespace nesk::testing {
namespace {

namespace fs = std::filesystem;
using modUtilities::FromWx;

class FormFolderTreeTest : public PartDialogTest {
protected:
    FormFolderTreeTest() {
        frame = new wxFrame(nullptr, wxID_ANY, "Tree");
        tree = new FormFolderTree(frame, "Dir1");
        frame->Show();
        // On Windows the system has folders on drive C:.
        station.AddDrive('D');
        for (const char* folder : {"Data/beta/Deep", "Data/Alpha", "data2"})
            fs::create_directories(Drive() / folder);
    }
    ~FormFolderTreeTest() override {
        frame->Destroy();
        Settle();
    }

    static fs::path Drive() { return TempStation::Host("D:\\"); }

    // What lies below the selected node, one blank between the names.
    std::string Children() const {
        std::string text;
        wxTreeItemIdValue cookie = nullptr;
        for (wxTreeItemId node = tree->GetFirstChild(tree->GetSelection(), cookie); node.IsOk();
             node = tree->GetNextSibling(node))
            text.append(text.empty() ? "" : " ").append(FromWx(tree->GetItemText(node)));
        return text;
    }

    wxFrame* frame;
    FormFolderTree* tree;
};

TEST_F(FormFolderTreeTest, StandsNowhereAtFirst) {
    EXPECT_EQ(tree->Path(), "");
    EXPECT_EQ(tree->Root(), "");
}

TEST_F(FormFolderTreeTest, GoesToAFolderAndOpensIt) {
    tree->SetPath("d:\\");
    EXPECT_EQ(tree->Path(), "D:\\");
    EXPECT_EQ(Children(), "Data data2");
    tree->SetPath("D:\\DATA\\");
    EXPECT_EQ(tree->Path(), "D:\\Data");
    EXPECT_EQ(Children(), "Alpha beta");
    EXPECT_TRUE(tree->IsExpanded(tree->GetSelection()));
    tree->SetPath("D:\\Data\\beta\\Deep");
    EXPECT_EQ(tree->Path(), "D:\\Data\\beta\\Deep");
    EXPECT_EQ(Children(), "");
    EXPECT_FALSE(tree->ItemHasChildren(tree->GetSelection()));
}

TEST_F(FormFolderTreeTest, GoesAsFarAsThePathExists) {
    tree->SetPath("D:\\Data\\None\\Deep");
    EXPECT_EQ(tree->Path(), "D:\\Data");
}

TEST_F(FormFolderTreeTest, ChangesTheDrive) {
    station.AddDrive('E');
    fs::create_directories(TempStation::Host("E:\\Other"));
    tree->SetPath("D:\\Data");
    tree->SetPath("e:");
    EXPECT_EQ(tree->Path(), "E:\\");
    EXPECT_EQ(tree->Root(), "E:\\");
    EXPECT_EQ(Children(), "Other");
}

TEST_F(FormFolderTreeTest, AFolderIsReadWhenItIsOpened) {
    tree->SetPath("D:\\");
    wxTreeItemIdValue cookie = nullptr;
    const wxTreeItemId data = tree->GetFirstChild(tree->GetRootItem(), cookie);
    EXPECT_EQ(tree->GetChildrenCount(data), 0u);
    EXPECT_TRUE(tree->ItemHasChildren(data));
    tree->Expand(data);
    EXPECT_EQ(tree->GetChildrenCount(data, false), 2u);
}

TEST_F(FormFolderTreeTest, AFolderMadeInTheMeantimeIsFoundInItsPlace) {
    tree->SetPath("D:\\Data");
    fs::create_directories(Drive() / "Data" / "Aztec" / "Sun");
    tree->SetPath("D:\\Data\\Aztec\\Sun\\");
    EXPECT_EQ(tree->Path(), "D:\\Data\\Aztec\\Sun");
    tree->SetPath("D:\\Data");
    EXPECT_EQ(Children(), "Alpha Aztec beta");
}

#ifdef NESK_PORTABLE_STATION
TEST_F(FormFolderTreeTest, LinksThatLeadBackAreOpenedOneByOne) {
    fs::create_directory_symlink(Drive() / "Data", Drive() / "Data" / "loop");
    tree->SetPath("D:\\Data\\loop\\loop\\loop");
    EXPECT_EQ(tree->Path(), "D:\\Data\\loop\\loop\\loop");
    EXPECT_EQ(Children(), "Alpha beta loop");
}

TEST_F(FormFolderTreeTest, AByteThatIsNoTextKeepsItsPlaceInThePath) {
    fs::create_directories(Drive() / "Data" / "beta" / "\xFF");
    tree->SetPath("D:\\Data\\beta");
    EXPECT_EQ(Children(), "Deep \xF4\x8F\xBB\xBF");
    tree->SetPath("D:\\Data\\beta\\\xF4\x8F\xBB\xBF");
    EXPECT_EQ(tree->Path(), "D:\\Data\\beta\\\xF4\x8F\xBB\xBF");
}
#endif

TEST_F(FormFolderTreeTest, NamesAreShownAsTheyAre) {
    for (const char* folder : {"Pr\xC3\xBC"
                               "f",
                               "A&B", "\xE6\xBC\xA2"})
        fs::create_directories(TempStation::Host(std::string("D:\\R&D\\") + folder));
    tree->SetPath("D:\\R&D");
    EXPECT_EQ(FromWx(tree->GetItemText(tree->GetSelection())), "R&D");
    EXPECT_EQ(Children(), "A&B Pr\xC3\xBC"
                          "f \xE6\xBC\xA2");
    tree->SetPath("D:\\R&D\\\xE6\xBC\xA2");
    EXPECT_EQ(tree->Path(), "D:\\R&D\\\xE6\xBC\xA2");
}

TEST_F(FormFolderTreeTest, AFolderThatCannotBeReadIsReported) {
    tree->SetPath("D:\\");
    fs::remove_all(Drive() / "Data");
    Expect();
    wxTreeItemIdValue cookie = nullptr;
    tree->Expand(tree->GetFirstChild(tree->GetRootItem(), cookie));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("D:\\Data"), std::string::npos);
}

} // namespace
} // namespace nesk::testing
