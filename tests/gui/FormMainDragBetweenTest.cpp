// Entries dragged between the main window and another window of the program.

#include "gui/GuiFixture.h"

#include <wx/frame.h>
#include <wx/window.h>

namespace nesk::testing {
namespace {

using platform::TreeDrop;
using platform::TreeNode;
using platform::TreeView;

class FormMainDragBetweenTest : public MainWindowTest {
protected:
    // The other window is in the upper left corner, beside the main window.
    FormMainDragBetweenTest() {
        WriteMenu(SmallMenu);
        OpenWindow();
        Press('O', wxMOD_CONTROL);
        frame = new wxFrame(nullptr, wxID_ANY, "Other", wxPoint(0, 0), wxSize(240, 160));
        other = TreeView::Create(frame, "other", {true, true, false, wxDefaultSize});
        other->on.mayDrop = [](const std::vector<TreeNode*>&, const TreeDrop&) { return true; };
        other->on.dragText = [this](const std::vector<TreeNode*>&) { return sent; };
        other->on.droppedText = [this](const std::string& text, const TreeDrop&) {
            received = text;
            return accepts;
        };
        other->on.dragTaken = [this](const std::vector<TreeNode*>& nodes) { taken += nodes.size(); };
        auto& root = other->SetRoot(std::make_unique<TreeNode>("Other menu", 0, "R"));
        row = &other->Append(root, std::make_unique<TreeNode>("Other entry", 0, "R.1"));
        other->Expand(root);
        ShowActive(*frame);
        // What lies under the mouse has to be the main window everywhere else.
        ShowActive(*window);
    }

    ~FormMainDragBetweenTest() override {
        other->on = {};
        frame->Destroy();
        Settle();
    }

    wxPoint OtherRow() const {
        const wxRect place = other->RowRect(*row);
        return other->Window().ClientToScreen(wxPoint(place.x + 8, place.y + place.height / 2));
    }

    void DragToOther(const std::string& from, int key = 0) {
        DragMouse(MiddleOf(from), OtherRow(), key, nullptr, [this] { return Tree().Dragged().empty(); });
        Settle();
    }

    void DragFromOther(wxPoint to, int key = 0) {
        DragMouse(OtherRow(), to, key, nullptr, [this] { return other->Dragged().empty(); });
        Settle();
    }

    const std::string Before = "Main Menu\n First\n Brackets\n  Angle\n Last\n";
    wxFrame* frame = nullptr;
    TreeView* other = nullptr;
    TreeNode* row = nullptr;
    std::string sent = "BLOCK SUBMENU\nCAPTION=Guest\nEND\n";
    std::string received;
    bool accepts = true;
    std::size_t taken = 0;
};

TEST_F(FormMainDragBetweenTest, WhatTheOtherWindowTakesIsRemovedHere) {
    DragToOther("R.2");
    EXPECT_EQ(received.find("BLOCK SUBMENU"), 0u) << received;
    EXPECT_NE(received.find("CAPTION=Angle"), std::string::npos) << "with what is below it";
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Last\n");
    window->Editor().Undo();
    EXPECT_EQ(window->Editor().OpenMenu()->ChildCount(), 3);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainDragBetweenTest, WhatTheOtherWindowRefusesStays) {
    accepts = false;
    DragToOther("R.1");
    EXPECT_NE(received, "");
    EXPECT_EQ(TreeText(), Before);
    EXPECT_FALSE(window->Editor().IsDirty());
}

TEST_F(FormMainDragBetweenTest, TheRootIsNotDragged) {
    std::size_t dragged = 1;
    DragMouse(
        MiddleOf("R"), OtherRow(), 0, [&] { dragged = Tree().Dragged().size(); }, [] { return true; });
    EXPECT_EQ(dragged, 0u);
    EXPECT_EQ(received, "");
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainDragBetweenTest, EntriesFromTheOtherWindowAreInserted) {
    DragFromOther(PointIn("R.1", 0.9));
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Guest\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(SelectedText(), "Guest");
    EXPECT_EQ(taken, 1u);
    window->Editor().Undo();
    EXPECT_EQ(TreeText(), Before);
}

TEST_F(FormMainDragBetweenTest, RefusedEntriesStayInTheOtherWindow) {
    sent = "BLOCK SUBMENU\nCAPTION=Guest\n";
    dialogs.Answer(wxID_OK);
    DragFromOther(PointIn("R.1", 0.9));
    EXPECT_TRUE(WaitUntil([&] { return !dialogs.shown.empty(); })) << "the reason";
    EXPECT_EQ(TreeText(), Before);
    EXPECT_EQ(taken, 0u);
}

#ifdef NESK_PORTABLE_STATION
// During a drag Wine does not notice a simulated key.
TEST_F(FormMainDragBetweenTest, WithControlTheOtherWindowGetsACopy) {
    DragToOther("R.1", WXK_CONTROL);
    EXPECT_NE(received, "");
    EXPECT_EQ(TreeText(), Before);
    DragFromOther(PointIn("R.1", 0.9), WXK_CONTROL);
    EXPECT_EQ(TreeText(), "Main Menu\n First\n Guest\n Brackets\n  Angle\n Last\n");
    EXPECT_EQ(taken, 0u);
}
#endif

} // namespace
} // namespace nesk::testing
