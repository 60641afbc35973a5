#pragma once

#include "platform/TreeNode.h"
#include "platform/TypeAhead.h"
#include "platform/UiFileTarget.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <wx/bmpbndl.h>
#include <wx/gdicmn.h>
#include <wx/timer.h>

class wxKeyEvent;
class wxWindow;

namespace nesk::platform {

/// The drop position of a drag: before or after a row, or inside the entry that the row shows (On).
struct TreeDrop {
    enum class Where { Before, On, After };

    TreeNode* node = nullptr;
    Where where = Where::On;
    bool copies = false; ///< Ctrl is held: copies are made and the dragged nodes stay

    bool operator==(const TreeDrop&) const = default;
};

/// The events of a tree view. A function may be left empty when the owner does not need it.
struct TreeEvents {
    /// The children of a node are needed: call Append for each now.
    std::function<void(TreeNode&)> fill;

    /// The selection has changed.
    std::function<void()> selectionChanged;

    /// A row was clicked, even if it was selected already.
    std::function<void(TreeNode&)> clicked;

    /// A row was double-clicked, or Enter was pressed on it. If this returns false, the view expands or
    /// collapses the row.
    std::function<bool(TreeNode&)> activated;

    /// The user has requested the context menu.
    /// @param node  row to which the menu applies; null for none
    /// @param at    where it should open, in client coordinates of the window
    std::function<void(TreeNode* node, wxPoint at)> contextMenu;

    /// Editing of a row's label is about to begin.
    std::function<void(TreeNode&)> renameBegins;

    /// Corrects the text while it is typed into a label.
    std::function<std::string(const std::string&)> correctLabel;

    /// Editing of a label has ended. Called once per edit, before the view leaves it.
    /// @param text  the typed text; null when the edit was cancelled
    std::function<void(TreeNode&, const std::string* text)> renameEnds;

    /// Returns whether a row is highlighted. Asked whenever a row is drawn, so it must be quick.
    std::function<bool(TreeNode&)> isMarked;

    /// Returns whether rows may be dropped at a position; none are given when they come from another window.
    /// The root cannot be dragged, and nothing can be dropped into itself, but the function is called for
    /// that too, so that it can say why.
    std::function<bool(const std::vector<TreeNode*>&, const TreeDrop&)> mayDrop;

    /// Rows were dropped at an allowed position.
    std::function<void(const std::vector<TreeNode*>&, const TreeDrop&)> dropped;

    /// A drag has left the view or has ended.
    std::function<void()> dragLeft;

    // Files that are dragged from the system's file manager. Their paths are Windows paths.

    /// Returns whether files may be dropped on a row; null for the free area below the rows. Called for each
    /// move.
    std::function<bool(const std::vector<std::string>& paths, TreeNode* node)> mayDropFiles;

    /// Files were dropped where they may be. The drag has ended.
    std::function<void(const std::vector<std::string>& paths, TreeNode* node)> droppedFiles;

    // Drags between windows of this program. Without dragText, rows are dragged within the view only.

    /// The rows as text for another window.
    std::function<std::string(const std::vector<TreeNode*>&)> dragText;

    /// The text of another window was dropped at an allowed position. Returns false when it was refused; the
    /// rows then stay in the other window.
    std::function<bool(const std::string& text, const TreeDrop&)> droppedText;

    /// Another window has taken the rows over: they have to be removed here.
    std::function<void(const std::vector<TreeNode*>&)> dragTaken;
};

/// Options of a tree view.
struct TreeStyle {
    bool multiple = false; ///< several rows can be selected
    bool drag = false;     ///< rows can be dragged
    bool details = false;  ///< rows may have details
    wxSize size = wxDefaultSize;
};

/// A tree control: the native control on Windows, GTK's own tree view on GTK. It shows nodes and reports user
/// actions; it makes no decisions. The control belongs to its parent window.
class TreeView {
public:
    /// Creates the control.
    /// @param name  control name, for example "tvMain"
    static TreeView* Create(wxWindow* parent, const char* name, const TreeStyle& style);

    virtual ~TreeView();
    TreeView(const TreeView&) = delete;
    TreeView& operator=(const TreeView&) = delete;

    /// The control's window.
    virtual wxWindow& Window() = 0;

    /// The owner's event handlers. Set them before nodes are added.
    TreeEvents on;

    /// Size of pictures that suits the control's font, in device-independent pixels.
    wxSize ImageSize();

    /// Sets the pictures of the rows. Their size must be ImageSize().
    virtual void SetImages(const std::vector<wxBitmapBundle>& images) = 0;

    /// Sets the control's name for assistive technology.
    virtual void SetAccessibleName(const std::string& name) = 0;

    // --- nodes ---

    /// The topmost node; null when the tree is empty.
    TreeNode* Root() const { return m_root.get(); }

    /// Removes all nodes.
    void Clear();

    /// Replaces the tree with a new one that consists of one node.
    TreeNode& SetRoot(std::unique_ptr<TreeNode> root);

    /// Adds a node below another.
    TreeNode& Insert(TreeNode& parent, std::size_t index, std::unique_ptr<TreeNode> node);
    TreeNode& Append(TreeNode& parent, std::unique_ptr<TreeNode> node);

    /// Removes a node and all nodes below it. If the selection was there, it moves to the next sibling, else
    /// to the previous one, else to the parent.
    void Remove(TreeNode& node);

    /// Moves a node (not the root) with all nodes below it. Selection and expansion are kept.
    /// @param parent  not within the node
    /// @param index   0-based position among the children, not counting the moved node
    void Move(TreeNode& node, TreeNode& parent, std::size_t index);

    /// Requests the children of a node unless it is filled. Returns false when it has no children.
    bool Fill(TreeNode& node);

    /// Marks a node as not filled, so that its children are requested again. It must not have children.
    void Unfill(TreeNode& node);

    /// Whether a search for a node requests the children that are not there yet.
    enum class Missing { Stay, Create };

    /// Finds a node by the keys of all nodes from the root down to it. Returns null when there is no such
    /// node. Siblings must have different keys.
    TreeNode* NodeAt(const std::vector<std::string_view>& keys, Missing missing);

    void SetText(TreeNode& node, const std::string& text);

    /// Changes the picture of a row.
    /// @param image  0-based index into the pictures of the view
    void SetImage(TreeNode& node, int image);

    /// Draws the rows again, because other rows may be highlighted now.
    virtual void RefreshMarks() = 0;

    // --- state ---

    /// Selects only this row and makes it the current one; null clears the selection.
    void Select(TreeNode* node);

    /// Selects rows; `current` becomes the row with the keyboard focus. A view without multiple selection
    /// selects only `current`.
    void SelectAll(const std::vector<TreeNode*>& nodes, TreeNode* current);

    /// The selected rows, from top to bottom.
    virtual std::vector<TreeNode*> Selection() const = 0;

    /// The selected row with the keyboard focus; null when no row is selected.
    virtual TreeNode* Selected() const = 0;

    void Expand(TreeNode& node);
    void Collapse(TreeNode& node);

    /// Expands a node and the levels below it, up to a fixed number of levels.
    void ExpandBelow(TreeNode& node);

    /// Scrolls to a row and expands all its ancestors.
    void EnsureVisible(TreeNode& node);

    /// The row at the upper edge, and how many of its pixels are above the edge.
    struct Scroll {
        TreeNode* top = nullptr;
        int offset = 0;
    };
    virtual Scroll ScrollPosition() const = 0;
    virtual void SetScrollPosition(const Scroll& scroll) = 0;

    /// The rectangle of a row in client coordinates of the window; empty when the row is not visible.
    virtual wxRect RowRect(const TreeNode& node) const = 0;

    /// The row at a point in client coordinates; null when there is no row.
    virtual TreeNode* RowAt(wxPoint point) const = 0;

    // --- renaming in place ---

    /// Begins editing the label of a row.
    virtual void EditLabel(TreeNode& node) = 0;

    /// Ends the edit.
    /// @param keep  false discards the typed text
    virtual void EndLabelEdit(bool keep) = 0;

    /// The node whose label is being edited; null when no edit is in progress.
    TreeNode* Edited() const { return m_edited; }

    /// The text typed so far.
    virtual std::string EditText() const = 0;
    virtual void SetEditText(const std::string& text) = 0;

    // --- dragging ---

    /// The nodes of this view that are being dragged.
    const std::vector<TreeNode*>& Dragged() const { return m_dragged; }

    /// The drop position at a point in client coordinates; its node is null where a drop is not allowed.
    TreeDrop DropAt(wxPoint point, bool copies) const;

    /// The position marked as the drop target.
    const TreeDrop& Marked() const { return m_marked; }

    /// Suppresses selection events while it exists.
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

    /// Handles the keys that all views have in common. Call it after the window was created.
    void BindKeys();

    // Updates of the native control. Inserted nodes are already in the tree, and nodes to be removed are
    // still in it.
    virtual void DoReset() = 0;
    virtual void DoInserted(TreeNode& node) = 0;
    virtual void DoRemove(TreeNode& node) = 0;                       ///< called before the node is removed
    virtual void DoRemoved(TreeNode& parent, std::size_t index) = 0; ///< called after the node was removed
    virtual void DoChanged(TreeNode& node) = 0;
    virtual void DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) = 0;
    virtual void DoExpand(TreeNode& node) = 0;
    virtual void DoCollapse(TreeNode& node) = 0;
    virtual void DoShow(TreeNode& node) = 0;
    virtual void DoMark(const TreeDrop& drop) = 0;
    virtual void DoScrollRows(int rows) = 0;

    // Reports of the native control.
    void ReportSelection();
    void ReportClick(TreeNode& node);
    void ReportActivated(TreeNode& node);
    void ReportContextMenu(wxPoint screen);
    void BeginRename(TreeNode& node);
    void EndRename(const std::string* text);
    std::string Corrected(const std::string& text) const;

    /// Continues the type-ahead search, or runs the command of a character.
    void TypeText(const std::string& characters);

    // Drag events of the native control.
    bool BeginDrag(const std::vector<TreeNode*>& nodes);
    bool DragTo(wxPoint point, bool copies);
    bool Drop(wxPoint point, bool copies);
    bool DropText(wxPoint point, bool copies, const std::string& text);
    void LeaveDrag();
    void EndDrag();
    FileDragEvents FileEvents();
    std::string DragText() const { return on.dragText ? on.dragText(m_dragged) : ""; }
    void ReportTaken();

    /// Restores the expansion below a node whose rows were created again.
    void RestoreExpansion(TreeNode& node);

    bool IsQuiet() const { return m_quiet > 0; }
    bool IsMarked(TreeNode& node) const { return on.isMarked && on.isMarked(node); }

private:
    void OnKeyDown(wxKeyEvent& event);
    void OnChar(wxKeyEvent& event);
    bool OnCommandKey(int key);
    void GoTo(TreeNode* node);
    void ExpandAbove(const TreeNode& node);
    void SelectForMenu(TreeNode* node);
    void OpenMenuAtSelected();
    void OnDragTimer();
    TreeDrop FileDropAt(wxPoint point) const;
    bool DragFilesTo(wxPoint point, const std::vector<std::string>& paths);
    void DropFiles(wxPoint point, const std::vector<std::string>& paths);
    void Mark(const TreeDrop& drop);

    std::unique_ptr<TreeNode> m_root;
    TreeNode* m_edited = nullptr;
    TypeAhead m_typeAhead;
    int m_quiet = 0;
    std::vector<TreeNode*> m_dragged;
    std::optional<std::vector<std::string>> m_draggedFiles;
    TreeDrop m_marked;
    wxPoint m_dragPoint;
    bool m_dragCopies = false;
    int m_hoverTicks = 0;
    wxTimer m_dragTimer;
    wxTimer m_menuTimer;
    int m_menuWaits = 0;
};

} // namespace nesk::platform
