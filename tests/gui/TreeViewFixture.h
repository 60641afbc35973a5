#pragma once

#include "gui/GuiFixture.h"
#include "platform/UiTreeView.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/frame.h>
#include <wx/timer.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace nesk::testing {

/// A tree view in a window of its own, with the rows
///   Games (Chess, Go, Open file, Open folder), Long menu (Entry 00 to Entry 59), Tools (filled later)
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
        view = platform::TreeView::Create(frame, "tree", {multiple, true, false, wxDefaultSize});
        view->on.selectionChanged = [this] { ++selections; };
        view->on.fill = [this](platform::TreeNode& node) {
            ++fills;
            for (const char* text : {"Hammer", "Saw", "Deep", "Last"})
                view->Append(node, Leaf(text));
        };
        view->on.mayDrop = [](const std::vector<platform::TreeNode*>&, const platform::TreeDrop& drop) {
            return drop.where != platform::TreeDrop::Where::On || drop.node->MayHaveChildren();
        };
        view->on.dropped = [this](const std::vector<platform::TreeNode*>& nodes,
                                  const platform::TreeDrop& drop) {
            dropped = Names(nodes) + (drop.copies ? "copied " : "moved ") +
                      (drop.where == platform::TreeDrop::Where::Before  ? "before "
                       : drop.where == platform::TreeDrop::Where::After ? "after "
                                                                        : "into ") +
                      drop.node->Text();
        };
        root = &view->SetRoot(std::make_unique<platform::TreeNode>("Root", 0, "R"));
        games = &view->Append(*root, Leaf("Games"));
        for (const char* text : {"Chess", "Go", "Open file", "Open folder"})
            view->Append(*games, Leaf(text));
        many = &view->Append(*root, Leaf("Long menu"));
        for (int i = 0; i < 60; ++i)
            view->Append(*many, Leaf((i < 10 ? "Entry 0" : "Entry ") + std::to_string(i)));
        tools = &view->Append(*root, std::make_unique<platform::TreeNode>("Tools", 0, "", true));
        view->Expand(*root);
        view->Select(root);
        frame->Show();
        frame->Raise();
        ASSERT_TRUE(WaitUntil([&] { return frame->IsActive(); }));
        view->Window().SetFocus();
        Settle();
        selections = 0;
    }

    static std::unique_ptr<platform::TreeNode> Leaf(const std::string& text) {
        return std::make_unique<platform::TreeNode>(text, 0, "");
    }

    static std::string Names(const std::vector<platform::TreeNode*>& nodes) {
        std::string names;
        for (const platform::TreeNode* node : nodes)
            names += node->Text() + " ";
        return names;
    }

    std::string Selected() const { return Names(view->Selection()); }
    std::string Current() const { return view->Selected() != nullptr ? view->Selected()->Text() : ""; }
    bool IsSeen(const platform::TreeNode& node) const { return !view->RowRect(node).IsEmpty(); }

    // A point in a row, in client coordinates. `part` is 0 at the upper edge of the row and 1 at the lower
    // edge.
    wxPoint PointIn(const platform::TreeNode& node, double part = 0.5) const {
        const wxRect row = view->RowRect(node);
        EXPECT_FALSE(row.IsEmpty()) << node.Text();
        // The rectangle of a short text may be no wider than this.
        return {row.x + 8, row.y + static_cast<int>(part * row.height)};
    }
    wxPoint OnScreen(wxPoint point) const { return view->Window().ClientToScreen(point); }

    void ClickAt(const platform::TreeNode& node, int modifier = 0, int button = wxMOUSE_BTN_LEFT) {
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
    void Drag(const platform::TreeNode& from, wxPoint to, const std::function<void()>& held = nullptr,
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
    platform::TreeView* view = nullptr;
    platform::TreeNode* root = nullptr;
    platform::TreeNode* games = nullptr;
    platform::TreeNode* many = nullptr;
    platform::TreeNode* tools = nullptr;
    int selections = 0;
    int fills = 0;
    std::string dropped;
};

} // namespace nesk::testing
