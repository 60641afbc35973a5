// The tree view that all trees of the program share, used with mouse and keyboard.

#include "platform/UiTreeView.h"

#include "gui/GuiFixture.h"

#include <algorithm>
#include <optional>

#include <wx/frame.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace nesk::testing {
namespace {

using platform::TreeDrop;
using platform::TreeNode;
using platform::TreeView;

// A view with the rows
//   Games (Chess, Go, Open file, Open folder), Long menu (Entry 00 to Entry 59), Tools (filled later)
class TreeViewTest : public MainWindowTest {
protected:
    ~TreeViewTest() override {
        if (frame == nullptr) return;
        view->on = {};
        frame->Destroy();
        Settle();
    }

    void Show(bool multiple = false) {
        frame = new wxFrame(nullptr, wxID_ANY, "Tree", wxPoint(100, 100), wxSize(400, 400));
        view = TreeView::Create(frame, "tree", {multiple, true, false, wxDefaultSize});
        view->on.selectionChanged = [this] { ++selections; };
        view->on.fill = [this](TreeNode& node) {
            ++fills;
            for (const char* text : {"Hammer", "Saw", "Deep", "Last"})
                view->Append(node, Leaf(text));
        };
        view->on.mayDrop = [](const std::vector<TreeNode*>&, const TreeDrop& drop) {
            return drop.where != TreeDrop::Where::On || drop.node->MayHaveChildren();
        };
        view->on.dropped = [this](const std::vector<TreeNode*>& nodes, const TreeDrop& drop) {
            dropped = Names(nodes) + (drop.copies ? "copied " : "moved ") +
                      (drop.where == TreeDrop::Where::Before  ? "before "
                       : drop.where == TreeDrop::Where::After ? "after "
                                                              : "into ") +
                      drop.node->Text();
        };
        root = &view->SetRoot(std::make_unique<TreeNode>("Root", 0, "R"));
        games = &view->Append(*root, Leaf("Games"));
        for (const char* text : {"Chess", "Go", "Open file", "Open folder"})
            view->Append(*games, Leaf(text));
        many = &view->Append(*root, Leaf("Long menu"));
        for (int i = 0; i < 60; ++i)
            view->Append(*many, Leaf((i < 10 ? "Entry 0" : "Entry ") + std::to_string(i)));
        tools = &view->Append(*root, std::make_unique<TreeNode>("Tools", 0, "", true));
        view->Expand(*root);
        view->Select(root);
        frame->Show();
        frame->Raise();
        ASSERT_TRUE(WaitUntil([&] { return frame->IsActive(); }));
        view->Window().SetFocus();
        Settle();
        selections = 0;
    }

    static std::unique_ptr<TreeNode> Leaf(const std::string& text) {
        return std::make_unique<TreeNode>(text, 0, "");
    }

    static std::string Names(const std::vector<TreeNode*>& nodes) {
        std::string names;
        for (const TreeNode* node : nodes)
            names += node->Text() + " ";
        return names;
    }

    std::string Selected() const { return Names(view->Selection()); }
    std::string Current() const { return view->Selected() != nullptr ? view->Selected()->Text() : ""; }
    bool IsSeen(const TreeNode& node) const { return !view->RowRect(node).IsEmpty(); }

    // A point in a row, in client coordinates. `part` is 0 at the upper edge of the row and 1 at the lower
    // edge.
    wxPoint PointIn(const TreeNode& node, double part = 0.5) const {
        const wxRect row = view->RowRect(node);
        EXPECT_FALSE(row.IsEmpty()) << node.Text();
        // The rectangle of a short text may be no wider than this.
        return {row.x + 8, row.y + static_cast<int>(part * row.height)};
    }
    wxPoint OnScreen(wxPoint point) const { return view->Window().ClientToScreen(point); }

    void ClickAt(const TreeNode& node, int modifier = 0, int button = wxMOUSE_BTN_LEFT) {
        wxUIActionSimulator simulator;
        simulator.MouseMove(OnScreen(PointIn(node)));
        Settle();
        if (modifier != 0) simulator.KeyDown(modifier);
        simulator.MouseClick(button);
        if (modifier != 0) simulator.KeyUp(modifier);
        wxMilliSleep(50);
        Settle();
    }

    // Drags a row to a point. `held` runs before the button is released.
    void Drag(const TreeNode& from, wxPoint to, const std::function<void()>& held = nullptr,
              int modifier = 0) {
        // On Windows the drag blocks until it ends, so a timer makes its steps.
        std::vector<std::function<void()>> steps;
        wxUIActionSimulator simulator;
        const wxPoint begin = OnScreen(PointIn(from)), end = OnScreen(to);
        for (int i = 1; i <= 10; ++i)
            steps.push_back([&simulator, begin, end, i] {
                simulator.MouseMove(
                    wxPoint(begin.x + (end.x - begin.x) * i / 10, begin.y + (end.y - begin.y) * i / 10));
            });
        if (modifier != 0) steps.push_back([&] { simulator.KeyDown(modifier); });
        for (int i = 0; i < 4; ++i)
            steps.push_back([&simulator, end, i] { simulator.MouseMove(wxPoint(end.x + i % 2, end.y)); });
        if (held) steps.push_back(held);
        steps.push_back([&] { simulator.MouseUp(); });
        if (modifier != 0) steps.push_back([&] { simulator.KeyUp(modifier); });
        simulator.MouseMove(begin);
        Settle();
        std::size_t next = 0;
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (next < steps.size()) steps[next++]();
        });
        timer.Start(40);
        simulator.MouseDown();
        EXPECT_TRUE(WaitUntil([&] { return next == steps.size() && view->Dragged().empty(); }));
        timer.Stop();
        Settle();
    }

    wxFrame* frame = nullptr;
    TreeView* view = nullptr;
    TreeNode* root = nullptr;
    TreeNode* games = nullptr;
    TreeNode* many = nullptr;
    TreeNode* tools = nullptr;
    int selections = 0;
    int fills = 0;
    std::string dropped;
};

TEST_F(TreeViewTest, IsFoundByItsName) {
    Show();
    EXPECT_EQ(wxWindow::FindWindowByName("tree", frame), &view->Window());
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
    const auto doubleClick = [&](const TreeNode& node) {
        wxUIActionSimulator simulator;
        simulator.MouseMove(OnScreen(PointIn(node)));
        Settle();
        simulator.MouseDblClick();
        wxMilliSleep(50);
        Settle();
    };
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
    wxUIActionSimulator().MouseMove(OnScreen(PointIn(*root)));
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
    wxMilliSleep(600);
    ClickAt(*games);
    wxMilliSleep(700);
    Settle();
    EXPECT_EQ(view->Edited(), nullptr);
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
    ClickAt(*games);
    EXPECT_EQ(Selected(), "Games ");
}

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
    Drag(games->Child(1), PointIn(*many), [] { wxUIActionSimulator().Char(WXK_ESCAPE); });
    EXPECT_EQ(dropped, "");
    EXPECT_EQ(view->Marked().node, nullptr);
}

TEST_F(TreeViewTest, BelowAnOpenNodeIsItsFirstChild) {
    Show();
    view->Expand(*games);
    Settle();
    Drag(*tools, PointIn(*games, 0.95));
    EXPECT_EQ(dropped, "Tools moved before Chess");
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
