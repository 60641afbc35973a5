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
        for (const char* folder : {"Data/beta/Deep", "Data/Alpha", "data2"})
            fs::create_directories(Drive() / folder);
    }
    ~FormFolderTreeTest() override {
        frame->Destroy();
        Settle();
    }

    static fs::path Drive() { return TempStation::Host("C:\\"); }

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
    EXPECT_EQ(tree->Drive(), '\0');
}

TEST_F(FormFolderTreeTest, GoesToAFolderAndOpensIt) {
    tree->SetPath("c:\\");
    EXPECT_EQ(tree->Path(), "C:\\");
    EXPECT_EQ(Children(), "Data data2");
    tree->SetPath("C:\\DATA\\");
    EXPECT_EQ(tree->Path(), "C:\\Data");
    EXPECT_EQ(Children(), "Alpha beta");
    EXPECT_TRUE(tree->IsExpanded(tree->GetSelection()));
    tree->SetPath("C:\\Data\\beta\\Deep");
    EXPECT_EQ(tree->Path(), "C:\\Data\\beta\\Deep");
    EXPECT_EQ(Children(), "");
    EXPECT_FALSE(tree->ItemHasChildren(tree->GetSelection()));
}

TEST_F(FormFolderTreeTest, GoesAsFarAsThePathExists) {
    tree->SetPath("C:\\Data\\None\\Deep");
    EXPECT_EQ(tree->Path(), "C:\\Data");
}

TEST_F(FormFolderTreeTest, ChangesTheDrive) {
    fs::create_directories(station.Folder() / "drives" / "d" / "Other");
    tree->SetPath("C:\\Data");
    tree->SetPath("d:");
    EXPECT_EQ(tree->Path(), "D:\\");
    EXPECT_EQ(tree->Drive(), 'D');
    EXPECT_EQ(Children(), "Other");
}

TEST_F(FormFolderTreeTest, AFolderIsReadWhenItIsOpened) {
    tree->SetPath("C:\\");
    wxTreeItemIdValue cookie = nullptr;
    const wxTreeItemId data = tree->GetFirstChild(tree->GetRootItem(), cookie);
    EXPECT_EQ(tree->GetChildrenCount(data), 0u);
    EXPECT_TRUE(tree->ItemHasChildren(data));
    tree->Expand(data);
    EXPECT_EQ(tree->GetChildrenCount(data, false), 2u);
}

TEST_F(FormFolderTreeTest, AFolderMadeInTheMeantimeIsFoundInItsPlace) {
    tree->SetPath("C:\\Data");
    fs::create_directories(Drive() / "Data" / "Aztec" / "Sun");
    tree->SetPath("C:\\Data\\Aztec\\Sun\\");
    EXPECT_EQ(tree->Path(), "C:\\Data\\Aztec\\Sun");
    tree->SetPath("C:\\Data");
    EXPECT_EQ(Children(), "Alpha Aztec beta");
}

TEST_F(FormFolderTreeTest, LinksThatLeadBackAreOpenedOneByOne) {
    fs::create_directory_symlink(Drive() / "Data", Drive() / "Data" / "loop");
    tree->SetPath("C:\\Data\\loop\\loop\\loop");
    EXPECT_EQ(tree->Path(), "C:\\Data\\loop\\loop\\loop");
    EXPECT_EQ(Children(), "Alpha beta loop");
}

TEST_F(FormFolderTreeTest, NamesAreShownAsTheyAre) {
    fs::create_directories(Drive() / "R&D" /
                           "Pr\xC3\xBC"
                           "f");
    fs::create_directories(Drive() / "R&D" / "\xFF");
    tree->SetPath("C:\\R&D");
    EXPECT_EQ(FromWx(tree->GetItemText(tree->GetSelection())), "R&D");
    // A byte that is no text keeps its place in the path.
    EXPECT_EQ(Children(), "Pr\xC3\xBC"
                          "f \xF4\x8F\xBB\xBF");
    tree->SetPath("C:\\R&D\\\xF4\x8F\xBB\xBF");
    EXPECT_EQ(tree->Path(), "C:\\R&D\\\xF4\x8F\xBB\xBF");
}

TEST_F(FormFolderTreeTest, AFolderThatCannotBeReadIsReported) {
    tree->SetPath("C:\\");
    fs::remove_all(Drive() / "Data");
    Expect();
    wxTreeItemIdValue cookie = nullptr;
    tree->Expand(tree->GetFirstChild(tree->GetRootItem(), cookie));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("C:\\Data"), std::string::npos);
}

} // namespace
} // namespace nesk::testing
