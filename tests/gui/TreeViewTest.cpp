// The tree view that all trees of the program share, used with mouse and keyboard.

#include "gui/TreeViewFixture.h"

namespace nesk::testing {
namespace {

using platform::TreeNode;
using platform::TreeView;

TEST_F(TreeViewTest, IsFoundByItsName) {
    Show();
    EXPECT_EQ(Find(*frame, "tree"), &view->Window());
}

TEST_F(TreeViewTest, ArrowsGoThroughRowsAndLevels) {
    Show();
    Press(WXK_DOWN);
    EXPECT_EQ(Selected(), "Games ");
    EXPECT_EQ(selections, 1);
    Press(WXK_DOWN);
    EXPECT_EQ(Selected(), "Long menu ");
    Press(WXK_UP);
    Press(WXK_RIGHT);
    EXPECT_TRUE(games->IsExpanded());
    EXPECT_EQ(Selected(), "Games ");
    Press(WXK_RIGHT);
    EXPECT_EQ(Selected(), "Chess ");
    Press(WXK_LEFT);
    EXPECT_EQ(Selected(), "Games ");
    Press(WXK_LEFT);
    EXPECT_FALSE(games->IsExpanded());
    Press(WXK_LEFT);
    EXPECT_EQ(Selected(), "Root ");
}

TEST_F(TreeViewTest, ChildrenAreAskedForWhenTheyAreNeeded) {
    Show();
    EXPECT_EQ(fills, 0);
    view->Select(tools);
    Press(WXK_RIGHT);
    EXPECT_EQ(fills, 1);
    EXPECT_EQ(tools->ChildCount(), 4u);
    EXPECT_TRUE(tools->IsExpanded());
    view->Collapse(*tools);
    view->Expand(*tools);
    EXPECT_EQ(fills, 1) << "once";
}

TEST_F(TreeViewTest, ANodeWithNothingInItDoesNotExpand) {
    Show();
    view->on.fill = [this](TreeNode&) { ++fills; };
    view->Expand(*tools);
    EXPECT_EQ(fills, 1);
    EXPECT_FALSE(tools->IsExpanded());
    EXPECT_FALSE(tools->MayHaveChildren());
}

TEST_F(TreeViewTest, PagingAndEndsMoveTheSelection) {
    Show();
    view->Expand(*many);
    Settle();
    for (const int key : {WXK_PAGEDOWN, WXK_END, WXK_PAGEUP, WXK_HOME}) {
        const TreeNode* before = view->Selected();
        Press(key);
        ASSERT_NE(view->Selected(), nullptr);
        EXPECT_NE(view->Selected(), before) << key;
        EXPECT_TRUE(WaitUntil([&] { return IsSeen(*view->Selected()); })) << key;
    }
    EXPECT_EQ(Selected(), "Root ");
    Press(WXK_END);
    EXPECT_EQ(Selected(), "Tools ");
}

TEST_F(TreeViewTest, TypingSearchesAndOpensNothing) {
    Show();
    int activated = 0;
    view->on.activated = [&](TreeNode&) { return ++activated > 0; };
    view->Expand(*games);
    Type("open fo");
    EXPECT_EQ(Selected(), "Open folder ");
    EXPECT_EQ(activated, 0);
    // What is typed later begins another search.
    wxMilliSleep(static_cast<unsigned long>(platform::TypeAhead::Pause.count()) + 100);
    Press(WXK_SPACE);
    EXPECT_EQ(Selected(), "Open folder ");
    EXPECT_EQ(activated, 0);
    Press(WXK_RETURN);
    EXPECT_EQ(activated, 1);
}

TEST_F(TreeViewTest, EnterAfterASearchThatFoundNothingOpensNothing) {
    Show();
    int activated = 0;
    view->on.activated = [&](TreeNode&) { return ++activated > 0; };
    Type("Beta");
    EXPECT_EQ(Selected(), "Root ");
    Press(WXK_RETURN);
    EXPECT_EQ(activated, 0) << "what was typed was meant for something else";
    Press(WXK_RETURN);
    EXPECT_EQ(activated, 1);
    Type("Beta");
    Press(WXK_DOWN);
    Press(WXK_RETURN);
    EXPECT_EQ(activated, 2) << "another row was chosen";
}

TEST_F(TreeViewTest, SignsBelongToASearchThatIsBeingTyped) {
    Show();
    TreeNode& parts = view->Append(*root, Leaf("Part 13"));
    view->Append(parts, Leaf("Part 13-001"));
    view->Append(parts, Leaf("Part 13-150"));
    view->Append(parts, Leaf("Part 13+2*3"));
    view->Expand(parts);
    Settle();
    Type("part 13-150");
    EXPECT_EQ(Selected(), "Part 13-150 ");
    Press(WXK_HOME);
    Type("part 13+2*");
    EXPECT_EQ(Selected(), "Part 13+2*3 ");
    EXPECT_TRUE(parts.IsExpanded());
}

TEST_F(TreeViewTest, SignsExpandAndCollapse) {
    Show();
    view->Select(games);
    Type("+");
    EXPECT_TRUE(games->IsExpanded());
    Type("-");
    EXPECT_FALSE(games->IsExpanded());
    Press(WXK_NUMPAD_ADD);
    EXPECT_TRUE(games->IsExpanded());
    Press(WXK_NUMPAD_SUBTRACT);
    EXPECT_FALSE(games->IsExpanded());
}

TEST_F(TreeViewTest, TheSearchScrollsToWhatItFinds) {
    Show();
    view->Expand(*many);
    Settle();
    EXPECT_FALSE(IsSeen(many->Child(55)));
    Type("entry 55");
    EXPECT_EQ(Selected(), "Entry 55 ");
    EXPECT_TRUE(WaitUntil([&] { return IsSeen(many->Child(55)); }));
}

TEST_F(TreeViewTest, StarExpandsAllBelow) {
    Show();
    Press(WXK_NUMPAD_MULTIPLY);
    EXPECT_TRUE(games->IsExpanded());
    EXPECT_TRUE(many->IsExpanded());
    EXPECT_TRUE(tools->IsExpanded());
}

TEST_F(TreeViewTest, ADoubleClickActivatesOrExpands) {
    Show();
    const auto doubleClick = [&](const TreeNode& node) { DoubleClickPoint(OnScreen(PointIn(node))); };
    doubleClick(*games);
    EXPECT_TRUE(games->IsExpanded());
    view->on.activated = [](TreeNode&) { return true; };
    doubleClick(*many);
    EXPECT_FALSE(many->IsExpanded());
}

TEST_F(TreeViewTest, ClicksAreReportedOnASelectedRowToo) {
    Show();
    std::string clicked;
    view->on.clicked = [&](TreeNode& node) { clicked += node.Text() + " "; };
    ClickAt(*games);
    ClickAt(*games);
    EXPECT_EQ(clicked, "Games Games ");
    EXPECT_EQ(Selected(), "Games ");
}

TEST_F(TreeViewTest, TheContextMenuIsAboutTheRowAtThePointer) {
    Show();
    TreeNode* about = nullptr;
    wxPoint where;
    view->on.contextMenu = [&](TreeNode* node, wxPoint at) {
        about = node;
        where = at;
    };
    const wxPoint middle = PointIn(*many);
    ClickAt(*many, 0, wxMOUSE_BTN_RIGHT);
    EXPECT_EQ(about, many);
    EXPECT_LE(std::abs(where.x - middle.x) + std::abs(where.y - middle.y), 4);
}

TEST_F(TreeViewTest, TheContextMenuByKeyIsAtTheSelectedRow) {
    Show();
    TreeNode* about = nullptr;
    wxPoint where;
    view->on.contextMenu = [&](TreeNode* node, wxPoint at) {
        about = node;
        where = at;
    };
    MoveMouse(OnScreen(PointIn(*root)));
    view->Expand(*many);
    view->Select(&many->Child(50));
    Settle();
    Press(WXK_F10, wxMOD_SHIFT);
    ASSERT_TRUE(WaitUntil([&] { return about != nullptr; }));
    EXPECT_EQ(about, &many->Child(50));
    const wxRect row = view->RowRect(*about);
    EXPECT_GE(where.y, row.y);
    EXPECT_LE(where.y, row.y + row.height);
}

TEST_F(TreeViewTest, RemovingSelectsTheNextThenTheOneBeforeThenTheParent) {
    Show();
    view->Expand(*games);
    view->Select(&games->Child(2));
    view->Remove(games->Child(2));
    EXPECT_EQ(Selected(), "Open folder ");
    view->Remove(games->Child(2));
    EXPECT_EQ(Selected(), "Go ");
    view->Remove(games->Child(0));
    EXPECT_EQ(Selected(), "Go ") << "what is selected stays";
    view->Remove(games->Child(0));
    EXPECT_EQ(Selected(), "Games ");
    EXPECT_FALSE(games->MayHaveChildren());
    EXPECT_FALSE(games->IsExpanded());
    view->Append(*games, Leaf("New"));
    view->Expand(*games);
    Settle();
    EXPECT_TRUE(IsSeen(games->Child(0)));
}

TEST_F(TreeViewTest, MovingKeepsSelectionExpansionAndSubtree) {
    Show();
    view->Expand(*games);
    view->Select(&games->Child(1));
    selections = 0;
    view->Move(*games, *many, 3);
    Settle();
    EXPECT_EQ(games->Parent(), many);
    EXPECT_EQ(games->Index(), 3u);
    EXPECT_EQ(games->ChildCount(), 4u);
    EXPECT_TRUE(games->IsExpanded());
    EXPECT_EQ(Selected(), "Go ");
    EXPECT_EQ(selections, 0) << "nothing else was selected";
    view->EnsureVisible(games->Child(3));
    EXPECT_TRUE(WaitUntil([&] { return IsSeen(games->Child(3)); })) << "its children have rows";
}

TEST_F(TreeViewTest, WhatWasExpandedBelowComesBack) {
    Show();
    view->Expand(*games);
    view->Collapse(*root);
    EXPECT_EQ(view->RowAt(PointIn(*root)), root);
    view->Expand(*root);
    Settle();
    EXPECT_TRUE(games->IsExpanded());
    EXPECT_TRUE(IsSeen(games->Child(0)));
    EXPECT_EQ(view->RowAt(PointIn(games->Child(0))), &games->Child(0));
}

TEST_F(TreeViewTest, TheScrollPositionComesBack) {
    Show();
    view->Expand(*many);
    view->EnsureVisible(many->Child(59));
    ASSERT_TRUE(WaitUntil([&] { return IsSeen(many->Child(59)); }));
    const TreeView::Scroll position = view->ScrollPosition();
    ASSERT_NE(position.top, nullptr);
    EXPECT_NE(position.top, root);
    view->EnsureVisible(*root);
    EXPECT_TRUE(WaitUntil([&] { return view->ScrollPosition().top == root; }));
    view->SetScrollPosition(position);
    EXPECT_TRUE(WaitUntil([&] { return view->ScrollPosition().top == position.top; }));
    EXPECT_EQ(view->ScrollPosition().offset, position.offset);
}

TEST_F(TreeViewTest, ALabelIsEditedInPlace) {
    Show();
    std::optional<std::string> text;
    int ends = 0;
    view->on.renameEnds = [&](TreeNode& node, const std::string* typed) {
        ++ends;
        text.reset();
        if (typed != nullptr) view->SetText(node, *(text = *typed));
    };
    view->EditLabel(*games);
    Settle();
    EXPECT_EQ(view->Edited(), games);
    EXPECT_EQ(view->EditText(), "Games");
    Type("Board games");
    Press(WXK_RETURN);
    EXPECT_EQ(text, "Board games");
    EXPECT_EQ(games->Text(), "Board games");
    view->EditLabel(*games);
    Settle();
    Type("Gone");
    Press(WXK_ESCAPE);
    EXPECT_EQ(text, std::nullopt);
    EXPECT_EQ(games->Text(), "Board games");
    EXPECT_EQ(ends, 2);
    EXPECT_EQ(view->Edited(), nullptr);
}

TEST_F(TreeViewTest, AClickElsewhereKeepsWhatWasTyped) {
    Show();
    std::string text;
    view->on.renameEnds = [&](TreeNode&, const std::string* typed) {
        text = typed != nullptr ? *typed : "called off";
    };
    view->EditLabel(*games);
    Settle();
    Type("Typed");
    ClickAt(*tools);
    EXPECT_EQ(text, "Typed");
#ifdef NESK_PORTABLE_STATION
    // Wine's control uses the click only to end the edit.
    EXPECT_EQ(Selected(), "Tools ");
#endif
}

TEST_F(TreeViewTest, AnEditIsEndedByTheProgramInBothWays) {
    Show();
    std::string text;
    view->on.renameEnds = [&](TreeNode&, const std::string* typed) {
        text += typed != nullptr ? *typed + " " : "called off ";
    };
    for (const bool keep : {true, false}) {
        view->EditLabel(*games);
        Settle();
        view->SetEditText("Other");
        view->EndLabelEdit(keep);
        EXPECT_EQ(view->Edited(), nullptr);
        Settle();
    }
    EXPECT_EQ(text, "Other called off ");
}

TEST_F(TreeViewTest, ASlowSecondClickEditsNothing) {
    Show();
    ClickAt(*games);
    constexpr int longerThanADoubleClick = 600;
    wxMilliSleep(longerThanADoubleClick);
    ClickAt(*games);
    EXPECT_FALSE(WaitUntil([&] { return view->Edited() != nullptr; }, std::chrono::milliseconds(700)));
}

TEST_F(TreeViewTest, SeveralRowsAreSelectedByMouse) {
    Show(true);
    view->Expand(*games);
    Settle();
    ClickAt(games->Child(0));
    ClickAt(games->Child(2), WXK_SHIFT);
    EXPECT_EQ(Selected(), "Chess Go Open file ");
    ClickAt(games->Child(1), WXK_CONTROL);
    EXPECT_EQ(Selected(), "Chess Open file ");
    ClickAt(games->Child(2));
    EXPECT_EQ(Selected(), "Open file ") << "a click on one of several";
    ClickAt(*games);
    EXPECT_EQ(Selected(), "Games ");
}

#ifdef NESK_PORTABLE_STATION
// GTK leaves clicks on one of several rows to the view, because the rows may be dragged.
TEST_F(TreeViewTest, TheExpanderOfOneOfSeveralRowsExpandsIt) {
    Show(true);
    view->SelectAll({games, many}, games);
    Settle();
    const wxRect row = view->RowRect(*games);
    ClickPoint(OnScreen(wxPoint(row.x - 8, row.y + row.height / 2)));
    EXPECT_TRUE(WaitUntil([&] { return games->IsExpanded(); }));
    EXPECT_EQ(dropped, "");
}
#endif

TEST_F(TreeViewTest, SeveralRowsAreSelectedByKeys) {
    Show(true);
    view->Expand(*games);
    view->Select(&games->Child(0));
    Settle();
    Press(WXK_DOWN, wxMOD_SHIFT);
    Press(WXK_DOWN, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), "Chess Go Open file ");
    Press(WXK_UP, wxMOD_SHIFT);
    EXPECT_EQ(Selected(), "Chess Go ");
    EXPECT_EQ(Current(), "Go");
}

TEST_F(TreeViewTest, SeveralRowsAreSelectedByTheProgram) {
    Show(true);
    view->Expand(*games);
    view->SelectAll({&games->Child(0), &games->Child(3)}, &games->Child(3));
    EXPECT_EQ(Selected(), "Chess Open folder ");
    EXPECT_EQ(Current(), "Open folder");
    view->Remove(games->Child(3));
    EXPECT_EQ(Selected(), "Chess ") << "the rest stays";
}

TEST_F(TreeViewTest, WithoutSeveralThereIsOneSelectedRow) {
    Show();
    view->Expand(*games);
    view->SelectAll({&games->Child(0), &games->Child(3)}, &games->Child(3));
    EXPECT_EQ(Selected(), "Open folder ");
}

TEST_F(TreeViewTest, AQuietChangeIsNotReported) {
    Show();
    {
        const TreeView::Quiet quiet(*view);
        view->Select(many);
    }
    EXPECT_EQ(Selected(), "Long menu ");
    EXPECT_EQ(selections, 0);
    view->Select(games);
    EXPECT_EQ(selections, 1);
}

} // namespace
} // namespace nesk::testing
