#pragma once

#include "gui/GuiFixture.h"
#include "platform/UiTreeView.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/frame.h>
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
        ShowActive(*frame);
        Focus(&view->Window());
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
    bool IsAtTop() const { return view->ScrollPosition().top == root && view->ScrollPosition().offset == 0; }
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

    void ClickAt(const platform::TreeNode& node, int key = 0, int button = wxMOUSE_BTN_LEFT) {
        ClickPoint(OnScreen(PointIn(node)), button, key);
    }

    // Drags a row to a point. `held` runs before the button is released.
    void Drag(const platform::TreeNode& from, wxPoint to, const std::function<void()>& held = nullptr,
              int key = 0) {
        DragMouse(OnScreen(PointIn(from)), OnScreen(to), key, held,
                  [this] { return view->Dragged().empty(); });
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
