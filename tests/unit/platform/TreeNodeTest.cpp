#include "platform/TreeNode.h"

#include <gtest/gtest.h>

namespace nesk::platform {
namespace {

// A root with A (A1, A2) and B. The test decides which nodes are expanded.
class TreeNodeTest : public ::testing::Test {
protected:
    static TreeNode& Add(TreeNode& parent, const char* text) {
        return parent.Insert(parent.ChildCount(), std::make_unique<TreeNode>(text, 0, text));
    }

    // Texts of the rows from top to bottom.
    std::string Rows() const {
        std::string text;
        for (const TreeNode* row = &root; row != nullptr; row = row->NextRow())
            text += row->Text() + " ";
        return text;
    }

    // Texts of the rows from bottom to top.
    std::string RowsUpwards(const TreeNode& last) const {
        std::string text;
        for (const TreeNode* row = &last; row != nullptr; row = row->PreviousRow())
            text += row->Text() + " ";
        return text;
    }

    TreeNode root{"Root", 0, "R"};
    TreeNode& a = Add(root, "A");
    TreeNode& a1 = Add(a, "A1");
    TreeNode& a2 = Add(a, "A2");
    TreeNode& b = Add(root, "B");
};

TEST_F(TreeNodeTest, RowsAreTheExpandedOnes) {
    EXPECT_EQ(Rows(), "Root ");
    a.SetExpanded(true);
    EXPECT_EQ(Rows(), "Root ") << "A is expanded, but has no row";
    root.SetExpanded(true);
    EXPECT_EQ(Rows(), "Root A A1 A2 B ");
    EXPECT_EQ(RowsUpwards(b), "B A2 A1 A Root ");
    a.SetExpanded(false);
    EXPECT_EQ(Rows(), "Root A B ");
    EXPECT_EQ(RowsUpwards(b), "B A Root ");
    EXPECT_TRUE(a.HasRow());
    EXPECT_FALSE(a1.HasRow());
    root.SetExpanded(false);
    EXPECT_FALSE(a.HasRow());
}

TEST_F(TreeNodeTest, IndexesFollowInsertsAndRemovals) {
    TreeNode& first = a.Insert(0, std::make_unique<TreeNode>("A0", 0, ""));
    EXPECT_EQ(first.Parent(), &a);
    EXPECT_EQ(first.Index(), 0u);
    EXPECT_EQ(a1.Index(), 1u);
    EXPECT_EQ(a2.Index(), 2u);
    const std::unique_ptr<TreeNode> taken = a.Take(1);
    EXPECT_EQ(taken.get(), &a1);
    EXPECT_EQ(a1.Parent(), nullptr);
    EXPECT_EQ(a2.Index(), 1u);
    EXPECT_EQ(a.ChildCount(), 2u);
}

TEST_F(TreeNodeTest, WithinIsTheNodeAndWhatIsBelow) {
    EXPECT_TRUE(a1.IsWithin(root));
    EXPECT_TRUE(a1.IsWithin(a));
    EXPECT_TRUE(a.IsWithin(a));
    EXPECT_FALSE(a.IsWithin(a1));
    EXPECT_FALSE(a1.IsWithin(b));
}

TEST_F(TreeNodeTest, ANodeThatIsFilledLaterMayHaveChildren) {
    TreeNode later("later", 0, "", true);
    EXPECT_TRUE(later.MayHaveChildren());
    EXPECT_FALSE(later.IsFilled());
    later.SetFilled(true);
    EXPECT_FALSE(later.MayHaveChildren());
}

TEST_F(TreeNodeTest, AMillionLevelsAreReleased) {
    auto deep = std::make_unique<TreeNode>("deep", 0, "");
    TreeNode* at = deep.get();
    for (int i = 0; i < 1'000'000; ++i)
        at = &at->Insert(0, std::make_unique<TreeNode>("deeper", 0, ""));
    EXPECT_TRUE(at->IsWithin(*deep));
    deep.reset();
}

} // namespace
} // namespace nesk::platform
