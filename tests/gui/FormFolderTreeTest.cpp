#include "partedit/FormFolderTree.h"

#include "gui/PartDialogFixture.h"

#include <memory>

#include <wx/frame.h>

namespace nesk::testing {
namespace {

namespace fs = std::filesystem;

class FormFolderTreeTest : public PartDialogTest {
protected:
    FormFolderTreeTest() {
        frame = new wxFrame(nullptr, wxID_ANY, "Tree");
        tree = std::make_unique<FormFolderTree>(frame, "Dir1");
        frame->Show();
        // A separate drive, because on Windows the system has folders on drive C:.
        station.AddDrive('D');
        for (const char* folder : {"Data/beta/Deep", "Data/Alpha", "data2"})
            fs::create_directories(Drive() / folder);
    }
    ~FormFolderTreeTest() override {
        tree.reset();
        frame->Destroy();
        Settle();
    }

    static fs::path Drive() { return TempStation::Host("D:\\"); }

    // The children of the selected node, separated by spaces.
    std::string Children() const {
        std::string text;
        const platform::TreeNode& node = *tree->View().Selected();
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            text.append(text.empty() ? "" : " ").append(node.Child(i).Text());
        return text;
    }

    wxFrame* frame;
    std::unique_ptr<FormFolderTree> tree;
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
    EXPECT_TRUE(tree->View().Selected()->IsExpanded());
    tree->SetPath("D:\\Data\\beta\\Deep");
    EXPECT_EQ(tree->Path(), "D:\\Data\\beta\\Deep");
    EXPECT_EQ(Children(), "");
    EXPECT_FALSE(tree->View().Selected()->MayHaveChildren());
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
    platform::TreeNode& data = tree->View().Root()->Child(0);
    EXPECT_EQ(data.ChildCount(), 0u);
    EXPECT_TRUE(data.MayHaveChildren());
    tree->View().Expand(data);
    EXPECT_EQ(data.ChildCount(), 2u);
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
    EXPECT_EQ(tree->View().Selected()->Text(), "R&D");
    EXPECT_EQ(Children(), "A&B Pr\xC3\xBC"
                          "f \xE6\xBC\xA2");
    tree->SetPath("D:\\R&D\\\xE6\xBC\xA2");
    EXPECT_EQ(tree->Path(), "D:\\R&D\\\xE6\xBC\xA2");
}

TEST_F(FormFolderTreeTest, AFolderThatCannotBeReadIsReported) {
    tree->SetPath("D:\\");
    fs::remove_all(Drive() / "Data");
    Expect();
    tree->View().Expand(tree->View().Root()->Child(0));
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_NE(messages[0].text.find("D:\\Data"), std::string::npos);
}

} // namespace
} // namespace nesk::testing
