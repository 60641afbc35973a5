#pragma once

#include "platform/UiTreeView.h"

#include <wx/treectrl.h>

namespace nesk::platform::windows {

class NativeTreeView;

/// The native control, which owns the view.
class NativeTreeControl final : public wxTreeCtrl {
public:
    NativeTreeControl(wxWindow* parent, const char* name, const TreeStyle& style);
    ~NativeTreeControl() override;

    NativeTreeView& View() { return *m_view; }

    WXLRESULT MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) override;
    bool MSWOnNotify(int control, WXLPARAM parameter, WXLPARAM* result) override;

private:
    std::unique_ptr<NativeTreeView> m_view;
    bool m_swallowsSpace = false; // its character follows the key
};

/// The tree view of Windows.
class NativeTreeView final : public TreeView {
public:
    NativeTreeView(NativeTreeControl& control, const TreeStyle& style);

    wxWindow& Window() override { return m_control; }
    void SetImages(const std::vector<wxBitmapBundle>& images) override;
    void SetAccessibleName(const std::string& name) override;
    void RefreshMarks() override { m_control.Refresh(); }

    std::vector<TreeNode*> Selection() const override;
    TreeNode* Selected() const override;
    Scroll ScrollPosition() const override;
    void SetScrollPosition(const Scroll& scroll) override;
    wxRect RowRect(const TreeNode& node) const override;
    TreeNode* RowAt(wxPoint point) const override;

    void EditLabel(TreeNode& node) override;
    void EndLabelEdit(bool keep) override;
    std::string EditText() const override;
    void SetEditText(const std::string& text) override;

    // Events of the control and its drop target.
    bool IsItemMarked(const wxTreeItemId& item) const;
    bool OnSpaceKey();
    bool OnPress(wxPoint point, bool control);
    bool OnMove(wxPoint point);
    bool OnRelease();
    void OnContextKey() { ReportContextMenu(wxDefaultPosition); }
    bool OnDragOver(wxPoint point, bool copies) { return DragTo(point, copies); }
    bool OnDropped(wxPoint point, bool copies);
    bool OnDroppedText(wxPoint point, bool copies, const std::string& text) {
        return DropText(point, copies, text);
    }
    void OnDragLeave() { LeaveDrag(); }
    using TreeView::FileEvents;

protected:
    void DoReset() override;
    void DoInserted(TreeNode& inserted) override;
    void DoRemove(TreeNode& node) override;
    void DoRemoved(TreeNode& parent, std::size_t index) override;
    void DoChanged(TreeNode& node) override;
    void DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) override;
    void DoExpand(TreeNode& node) override;
    void DoCollapse(TreeNode& node) override;
    void DoShow(TreeNode& node) override;
    void DoMark(const TreeDrop& drop) override;
    void DoScrollRows(int rows) override { m_control.ScrollLines(rows); }

private:
    void BindEvents();
    void OnLeftDown(wxMouseEvent& event);
    void OnExpanding(wxTreeEvent& event);
    void OnExpanded(wxTreeEvent& event);
    void OnBeginLabelEdit(wxTreeEvent& event);
    void OnEndLabelEdit(wxTreeEvent& event);
    void OnBeginDrag(wxTreeEvent& event);
    void StartDrag(TreeNode& node);
    void CorrectEdit();

    static wxTreeItemId ItemOf(const TreeNode& node) { return wxTreeItemId(node.native); }
    TreeNode* NodeOf(const wxTreeItemId& item) const;
    void Describe(TreeNode& node, const wxTreeItemId& item);

    NativeTreeControl& m_control;
    TreeStyle m_style;
    bool m_mayEdit = false; // only the program starts an edit; a slow second click does not
    bool m_restoring = false;
    // A press that either begins a drag or, with Ctrl, selects or deselects the row.
    TreeNode* m_pressed = nullptr;
    wxPoint m_pressedAt;
    bool m_pressedControl = false;
    bool m_droppedHere = false; // the rows of the last drag were dropped in this view
};

} // namespace nesk::platform::windows
