// Rows of a tree view, dragged with the mouse.

#include "gui/MouseDrag.h"
#include "gui/TreeViewFixture.h"

namespace nesk::testing {
namespace {

using platform::TreeDrop;
using platform::TreeNode;

TEST_F(TreeViewTest, ARowIsDraggedBetweenOthers) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(games->Child(0), PointIn(games->Child(2), 0.9));
    EXPECT_EQ(dropped, "Chess moved after Open file");
    Drag(games->Child(3), PointIn(games->Child(0), 0.1));
    EXPECT_EQ(dropped, "Open folder moved before Chess");
}

TEST_F(TreeViewTest, ARowIsDraggedIntoAnother) {
    Show();
    view->Expand(*games);
    Settle();
    TreeDrop marked;
    Drag(games->Child(1), PointIn(*many), [&] { marked = view->Marked(); });
    EXPECT_EQ(dropped, "Go moved into Long menu");
    EXPECT_EQ(marked.node, many);
    EXPECT_EQ(marked.where, TreeDrop::Where::On);
    EXPECT_EQ(view->Marked().node, nullptr) << "the mark goes with the drag";
    EXPECT_FALSE(many->IsExpanded()) << "the mouse did not rest there";
}

#ifdef NESK_PORTABLE_STATION
// During a drag Wine does not notice a simulated key.
TEST_F(TreeViewTest, ControlCopies) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(games->Child(1), PointIn(*many), nullptr, WXK_CONTROL);
    EXPECT_EQ(dropped, "Go copied into Long menu");
}
#endif

TEST_F(TreeViewTest, SeveralRowsAreDraggedTogether) {
    Show(true);
    view->Expand(*games);
    view->SelectAll({&games->Child(0), &games->Child(1)}, &games->Child(1));
    Settle();
    Drag(games->Child(0), PointIn(*many));
    EXPECT_EQ(dropped, "Chess Go moved into Long menu");
}

TEST_F(TreeViewTest, WhatMayNotBeIsNotDropped) {
    Show();
    view->Expand(*games);
    view->Append(games->Child(1), Leaf("Inner"));
    Settle();
    Drag(games->Child(0), PointIn(games->Child(1)));
    EXPECT_EQ(dropped, "Chess moved into Go") << "which can hold others";
    dropped.clear();
    Drag(*games, PointIn(games->Child(1)));
    EXPECT_EQ(dropped, "") << "into its own subtree";
    view->on.mayDrop = [](const std::vector<TreeNode*>&, const TreeDrop&) { return false; };
    Drag(games->Child(0), PointIn(*many));
    EXPECT_EQ(dropped, "");
}

TEST_F(TreeViewTest, ADragCanBeCalledOff) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(games->Child(1), PointIn(*many), [] { SendKey(WXK_ESCAPE); });
    EXPECT_EQ(dropped, "");
    EXPECT_EQ(view->Marked().node, nullptr);
}

TEST_F(TreeViewTest, ARowThatIsRemovedDuringItsDragIsNotDropped) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(games->Child(1), PointIn(*many), [&] { view->Remove(games->Child(1)); });
    EXPECT_EQ(dropped, "");
    EXPECT_EQ(games->ChildCount(), 3u);
}

TEST_F(TreeViewTest, BelowAnOpenNodeIsItsFirstChild) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(*tools, PointIn(*games, 0.95));
    EXPECT_EQ(dropped, "Tools moved before Chess");
}

TEST_F(TreeViewTest, ADragThatRestsOnACollapsedRowOpensIt) {
    Show();
    MouseDrag drag(OnScreen(PointIn(*tools)));
    drag.To(OnScreen(PointIn(*games)));
    drag.RestUntil([&] { return games->IsExpanded(); });
    drag.To([&] { return OnScreen(PointIn(games->Child(1), 0.9)); });
    drag.Make([&] { return view->Dragged().empty(); });
    EXPECT_EQ(dropped, "Tools moved after Go");
    EXPECT_FALSE(many->IsExpanded());
}

TEST_F(TreeViewTest, ADragThatRestsBetweenRowsOpensNothing) {
    Show();
    view->on.mayDrop = [](const std::vector<TreeNode*>&, const TreeDrop&) { return true; };
    bool isOpen = false;
    MouseDrag drag(OnScreen(PointIn(*tools)));
    drag.To(OnScreen(PointIn(*many, 0.1)));
    // Twice as long as it takes to open a row.
    int rests = 0;
    drag.RestUntil([&] { return ++rests == 40; });
    drag.Do([&] { isOpen = many->IsExpanded(); });
    drag.Make([&] { return view->Dragged().empty(); });
    EXPECT_FALSE(isOpen);
    EXPECT_EQ(dropped, "Tools moved before Long menu");
}

TEST_F(TreeViewTest, NearAnEdgeADragScrolls) {
    Show();
    view->Expand(*many);
    view->EnsureVisible(*root); // Windows scrolls to what is expanded
    Settle();
    ASSERT_FALSE(IsSeen(many->Child(30)));
    // At the very edge, where a scroll bar may be.
    const wxSize size = view->Window().GetClientSize();
    MouseDrag drag(OnScreen(PointIn(*games)));
    drag.To(OnScreen(wxPoint(60, size.y - 2)));
    drag.RestUntil([&] { return IsSeen(many->Child(30)); });
    bool isAway = false;
    drag.Do([&] { isAway = !IsSeen(*root); });
    drag.To(OnScreen(wxPoint(60, 2)));
    drag.RestUntil([&] { return IsAtTop(); });
    drag.To([&] { return OnScreen(PointIn(many->Child(1), 0.9)); });
    drag.Make([&] { return view->Dragged().empty(); });
    EXPECT_TRUE(isAway);
    EXPECT_EQ(dropped, "Games moved after Entry 01");
}

TEST_F(TreeViewTest, AwayFromTheEdgesADragDoesNotScroll) {
    Show();
    view->Expand(*many);
    view->EnsureVisible(*root); // Windows scrolls to what is expanded
    Settle();
    int rests = 0;
    bool isAtTop = false;
    MouseDrag drag(OnScreen(PointIn(*games)));
    drag.To(OnScreen(PointIn(many->Child(5), 0.9)));
    drag.RestUntil([&] { return ++rests == 20; });
    drag.Do([&] { isAtTop = IsAtTop(); });
    drag.Make([&] { return view->Dragged().empty(); });
    EXPECT_TRUE(isAtTop);
    EXPECT_EQ(dropped, "Games moved after Entry 05");
}

} // namespace
} // namespace nesk::testing
