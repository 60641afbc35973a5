#pragma once

#include "platform/TreeNode.h"
#include "platform/TypeAhead.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/gdicmn.h>
#include <wx/timer.h>

class wxKeyEvent;
class wxWindow;

namespace nesk::platform {

/// Where something that is dragged would be dropped: beside a row, or into what it stands for.
struct TreeDrop {
    enum class Where { Before, On, After };

    TreeNode* node = nullptr;
    Where where = Where::On;
    bool copies = false; ///< Ctrl is held: the nodes stay, and copies are made

    bool operator==(const TreeDrop&) const = default;
};

/// What a tree view asks and reports. A function that is not set is not needed.
struct TreeEvents {
    /// The children of a node are needed: Append them now.
    std::function<void(TreeNode&)> fill;

    /// Other rows are selected.
    std::function<void()> selectionChanged;

    /// A row was clicked, also one that is selected already.
    std::function<void(TreeNode&)> clicked;

    /// A double click or Enter on a row. False leaves it to the view, which expands or collapses the row.
    std::function<bool(TreeNode&)> activated;

    /// The context menu is asked for.
    /// @param node  row that it is about; null when there is none
    /// @param at    where it should open, in client coordinates of the window
    std::function<void(TreeNode* node, wxPoint at)> contextMenu;

    /// The label of a row is about to be edited.
    std::function<void(TreeNode&)> renameBegins;

    /// What becomes of a text that is being typed into a label.
    std::function<std::string(const std::string&)> correctLabel;

    /// The edit of a label has ended. Called once an edit, before the view leaves it.
    /// @param text  what was typed; null when the edit was called off
    std::function<void(TreeNode&, const std::string* text)> renameEnds;

    /// Whether rows may be dropped at a place. The root cannot be dragged.
    std::function<bool(const std::vector<TreeNode*>&, const TreeDrop&)> mayDrop;

    /// Rows were dropped where they may be.
    std::function<void(const std::vector<TreeNode*>&, const TreeDrop&)> dropped;
};

/// What a tree view can do besides showing a tree.
struct TreeStyle {
    bool multiple = false; ///< several rows can be selected
    bool drag = false;     ///< rows can be dragged within the view
    bool details = false;  ///< rows may have details
    wxSize size = wxDefaultSize;
};

/// A tree control of the system: the native control on Windows, the toolkit's own on GTK. It shows nodes and
/// reports what the user does with them; it decides nothing. The control belongs to its parent window.
class TreeView {
public:
    /// Makes the control.
    /// @param name  control name, as "tvMain"
    static TreeView* Create(wxWindow* parent, const char* name, const TreeStyle& style);

    virtual ~TreeView();
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    /// The control as a window.
    virtual wxWindow& Window() = 0;

    /// What the owner wants to know. Set it before nodes are added.
    TreeEvents on;

    /// Height and width of pictures that go with the font of the control, in device-independent pixels.
    wxSize ImageSize();

    /// Pictures of the rows, of ImageSize().
    virtual void SetImages(const std::vector<wxBitmapBundle>& images) = 0;

    /// What assistive technology calls the control.
    virtual void SetAccessibleName(const std::string& name) = 0;

    // --- nodes ---

    /// The topmost node; null while the tree is empty.
    TreeNode* Root() const { return m_root.get(); }

    /// Removes all nodes.
    void Clear();

    /// Puts another tree in place, of one node.
    TreeNode& SetRoot(std::unique_ptr<TreeNode> root);

    /// Adds a node below another.
    TreeNode& Insert(TreeNode& parent, std::size_t index, std::unique_ptr<TreeNode> node);
    TreeNode& Append(TreeNode& parent, std::unique_ptr<TreeNode> node);

    /// Removes a node with all below it. A selection that lay in it falls on the next sibling, else on the
    /// one before, else on the parent.
    void Remove(TreeNode& node);

    /// Moves a node, not the root, with all below it to another place. What is selected and expanded stays
    /// so.
    /// @param parent  not within the node
    /// @param index   0-based, among the children without the node
    void Move(TreeNode& node, TreeNode& parent, std::size_t index);

    /// Asks for the children of a node, unless they are there. False when there are none.
    bool Fill(TreeNode& node);

    /// Forgets that a node was filled: its children are asked for again. It must have none.
    void Unfill(TreeNode& node);

    void SetText(TreeNode& node, const std::string& text);

    // --- state ---

    /// Selects one row alone and makes it the current one; null for none.
    void Select(TreeNode* node);

    /// Selects rows; `current` is the one at which keys go on. Only the current one in a view without
    /// several.
    void SelectAll(const std::vector<TreeNode*>& nodes, TreeNode* current);

    /// The selected rows, from top to bottom.
    virtual std::vector<TreeNode*> Selection() const = 0;

    /// The selected row at which keys go on; null when none is selected.
    virtual TreeNode* Selected() const = 0;

    void Expand(TreeNode& node);
    void Collapse(TreeNode& node);

    /// Expands a node and what is below it, as deep as anybody could look at.
    void ExpandBelow(TreeNode& node);

    /// Scrolls to a row, and expands what is above it.
    void EnsureVisible(TreeNode& node);

    /// The row at the upper edge, and how many pixels of it are above that.
    struct Scroll {
        TreeNode* top = nullptr;
        int offset = 0;
    };
    virtual Scroll ScrollPosition() const = 0;
    virtual void SetScrollPosition(const Scroll& scroll) = 0;

    /// Where a row is, in client coordinates of the window; empty when it cannot be seen.
    virtual wxRect RowRect(const TreeNode& node) const = 0;

    /// The row at a point, in client coordinates; null when there is none.
    virtual TreeNode* RowAt(wxPoint point) const = 0;

    // --- renaming in place ---

    /// Begins to edit the label of a row.
    virtual void EditLabel(TreeNode& node) = 0;

    /// Ends the edit and takes what was typed, or calls it off.
    virtual void EndLabelEdit(bool keep) = 0;

    /// The node whose label is being edited; null when none is.
    TreeNode* Edited() const { return m_edited; }

    /// What is typed so far.
    virtual std::string EditText() const = 0;
    virtual void SetEditText(const std::string& text) = 0;

    // --- dragging ---

    /// What is being dragged in this view.
    const std::vector<TreeNode*>& Dragged() const { return m_dragged; }

    /// Where rows would be dropped at a point, in client coordinates; no node where they may not be.
    TreeDrop DropAt(wxPoint point, bool copies) const;

    /// The place that is marked as the target of a drag.
    const TreeDrop& Marked() const { return m_marked; }

    /// While one lives, changes of the selection are not reported.
    class Quiet {
    public:
        explicit Quiet(TreeView& view) : m_view(view) { ++m_view.m_quiet; }
        ~Quiet() { --m_view.m_quiet; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        TreeView& m_view;
    };

protected:
    TreeView();

    /// Handles the keys that all views have in common. To be called when the window is there.
    void BindKeys();

    // What a view does with its control. Nodes are in the tree already, or still.
    virtual void DoReset() = 0;
    virtual void DoInserted(TreeNode& node) = 0;
    virtual void DoRemove(TreeNode& node) = 0;                       ///< before it is taken out
    virtual void DoRemoved(TreeNode& parent, std::size_t index) = 0; ///< after it was taken out
    virtual void DoChanged(TreeNode& node) = 0;
    virtual void DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) = 0;
    virtual void DoExpand(TreeNode& node) = 0;
    virtual void DoCollapse(TreeNode& node) = 0;
    virtual void DoShow(TreeNode& node) = 0;
    virtual void DoMark(const TreeDrop& drop) = 0;
    virtual void DoScrollRows(int rows) = 0;

    // What a view reports.
    void ReportSelection();
    void ReportClick(TreeNode& node);
    void ReportActivated(TreeNode& node);
    void ReportContextMenu(wxPoint screen);
    void BeginRename(TreeNode& node);
    void EndRename(const std::string* text);
    std::string Corrected(const std::string& text) const;

    /// Goes on with the search by typing, or carries out the command of a character.
    void TypeText(const std::string& characters);

    // Dragging, as the view's control sees it.
    bool BeginDrag(const std::vector<TreeNode*>& nodes);
    bool DragTo(wxPoint point, bool copies);
    bool Drop(wxPoint point, bool copies);
    void LeaveDrag();
    void EndDrag();

    /// Expands again what was expanded below a node whose rows were made anew.
    void RestoreExpansion(TreeNode& node);

    bool IsQuiet() const { return m_quiet > 0; }

private:
    void OnKeyDown(wxKeyEvent& event);
    void OnChar(wxKeyEvent& event);
    bool OnCommandKey(int key);
    void GoTo(TreeNode* node);
    void ExpandAbove(const TreeNode& node);
    void OpenMenuAtSelected();
    void OnDragTimer();
    void Mark(const TreeDrop& drop);

    std::unique_ptr<TreeNode> m_root;
    TreeNode* m_edited = nullptr;
    TypeAhead m_typeAhead;
    int m_quiet = 0;
    std::vector<TreeNode*> m_dragged;
    TreeDrop m_marked;
    wxPoint m_dragPoint;
    bool m_dragCopies = false;
    int m_hoverTicks = 0;
    wxTimer m_dragTimer;
    wxTimer m_menuTimer;
};

} // namespace nesk::platform
