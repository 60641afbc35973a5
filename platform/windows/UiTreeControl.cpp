#include "platform/windows/UiTreeControl.h"

#include "platform/windows/UiEntryData.h"
#include "platform/windows/UiFileDropTarget.h"

#include <cstdlib>
#include <utility>

#include <windowsx.h>
#include <wx/dnd.h>
#include <wx/msw/private.h>
#include <wx/msw/wrapcctl.h>
#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk::platform {

TreeView* TreeView::Create(wxWindow* parent, const char* name, const TreeStyle& style) {
    return &(new windows::NativeTreeControl(parent, name, style))->View();
}

namespace windows {

namespace {

wxString ToWx(const std::string& text) {
    return wxString::FromUTF8(text.data(), text.size());
}

class ItemData final : public wxTreeItemData {
public:
    explicit ItemData(TreeNode& itemNode) : node(itemNode) {}
    TreeNode& node;
};

class RowTarget final : public FileDropTarget {
public:
    explicit RowTarget(NativeTreeView& view) : RowTarget(view, new wxCustomDataObject(EntryFormat())) {}

private:
    RowTarget(NativeTreeView& view, wxCustomDataObject* data)
        : FileDropTarget(view.Window(), view.FileEvents(), data), m_view(view), m_data(*data) {}

    // The system's result is "copy" when Ctrl is held.
    wxDragResult OnOtherOver(wxPoint point, wxDragResult result) override {
        return m_view.OnDragOver(point, result == wxDragCopy) ? result : wxDragNone;
    }
    void OnOtherLeave() override { m_view.OnDragLeave(); }
    wxDragResult OnOtherData(wxPoint point, wxDragResult result) override {
        const bool copies = result == wxDragCopy;
        if (!m_view.Dragged().empty()) return m_view.OnDropped(point, copies) ? result : wxDragNone;
        if (!GetData()) return wxDragNone;
        const std::string text(static_cast<const char*>(m_data.GetData()), m_data.GetSize());
        return m_view.OnDroppedText(point, copies, text) ? result : wxDragNone;
    }

    NativeTreeView& m_view;
    const wxCustomDataObject& m_data;
};

long StyleOf(const TreeStyle& style) {
    return wxTR_EDIT_LABELS | wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT |
           (style.multiple ? wxTR_MULTIPLE : wxTR_SINGLE);
}

} // namespace

NativeTreeControl::NativeTreeControl(wxWindow* parent, const char* name, const TreeStyle& style)
    : wxTreeCtrl(parent, wxID_ANY, wxDefaultPosition, style.size, StyleOf(style), wxDefaultValidator, name)
    , m_view(std::make_unique<NativeTreeView>(*this, style)) {}

// The control still sends events during its destruction, when its handlers are already destroyed.
NativeTreeControl::~NativeTreeControl() {
    SetEvtHandlerEnabled(false);
    SetDropTarget(nullptr);
}

WXLRESULT NativeTreeControl::MSWWindowProc(WXUINT message, WXWPARAM wParam, WXLPARAM lParam) {
    constexpr WXLPARAM ByKeyboard = -1;
    if (message == WM_CONTEXTMENU && lParam == ByKeyboard) {
        m_view->OnContextKey();
        return 0;
    }
    // With several rows to be selected, wx would toggle one by the space bar before any handler sees the key.
    if (message == WM_KEYDOWN && wParam == VK_SPACE && m_view->OnSpaceKey()) {
        m_swallowsSpace = true;
        return 0;
    }
    if (message == WM_CHAR && wParam == VK_SPACE && std::exchange(m_swallowsSpace, false)) return 0;
    const wxPoint point(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    if (message == WM_LBUTTONDOWN && (wParam & MK_SHIFT) == 0 &&
        m_view->OnPress(point, (wParam & MK_CONTROL) != 0))
        return 0;
    if (message == WM_MOUSEMOVE && (wParam & MK_LBUTTON) != 0 && m_view->OnMove(point)) return 0;
    if (message == WM_LBUTTONUP && m_view->OnRelease()) return 0;
    return wxTreeCtrl::MSWWindowProc(message, wParam, lParam);
}

namespace {

bool IsHighContrast() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != 0 &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

} // namespace

// Colours the highlighted rows.
bool NativeTreeControl::MSWOnNotify(int control, WXLPARAM parameter, WXLPARAM* result) {
    auto* const draw = reinterpret_cast<NMTVCUSTOMDRAW*>(parameter);
    if (draw->nmcd.hdr.code != NM_CUSTOMDRAW) return wxTreeCtrl::MSWOnNotify(control, parameter, result);
    *result = CDRF_DODEFAULT;
    if (draw->nmcd.dwDrawStage == CDDS_PREPAINT) {
        *result = CDRF_NOTIFYITEMDRAW;
    } else if (draw->nmcd.dwDrawStage == CDDS_ITEMPREPAINT && (draw->nmcd.uItemState & CDIS_SELECTED) == 0 &&
               m_view->IsItemMarked(wxTreeItemId(reinterpret_cast<void*>(draw->nmcd.dwItemSpec)))) {
        // Where the user has chosen the colours, only pairs of these are legible.
        const bool system = IsHighContrast();
        draw->clrText = system ? ::GetSysColor(COLOR_INFOTEXT) : RGB(0, 0, 0);
        draw->clrTextBk = system ? ::GetSysColor(COLOR_INFOBK) : RGB(255, 232, 140);
        *result = CDRF_NEWFONT;
    }
    return true;
}

NativeTreeView::NativeTreeView(NativeTreeControl& control, const TreeStyle& style)
    : m_control(control), m_style(style) {
    BindEvents();
    BindKeys();
    if (style.drag) m_control.SetDropTarget(new RowTarget(*this));
}

void NativeTreeView::BindEvents() {
    m_control.Bind(wxEVT_TREE_ITEM_EXPANDING, &NativeTreeView::OnExpanding, this);
    m_control.Bind(wxEVT_TREE_ITEM_EXPANDED, &NativeTreeView::OnExpanded, this);
    m_control.Bind(wxEVT_TREE_ITEM_COLLAPSED, [this](wxTreeEvent& event) {
        if (TreeNode* node = NodeOf(event.GetItem())) node->SetExpanded(false);
    });
    m_control.Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent&) { ReportSelection(); });
    m_control.Bind(wxEVT_TREE_ITEM_ACTIVATED, [this](wxTreeEvent& event) {
        if (TreeNode* node = NodeOf(event.GetItem())) ReportActivated(*node);
    });
    m_control.Bind(wxEVT_LEFT_DOWN, &NativeTreeView::OnLeftDown, this);
    // The second click of a double click.
    m_control.Bind(wxEVT_LEFT_DCLICK, &NativeTreeView::OnLeftDown, this);
    m_control.Bind(wxEVT_TREE_ITEM_MENU, [this](wxTreeEvent& event) {
        TreeNode* const node = NodeOf(event.GetItem());
        if (Edited() != nullptr) EndLabelEdit(true);
        if (node != nullptr && !m_control.IsSelected(event.GetItem())) Select(node);
        if (on.contextMenu) on.contextMenu(node, event.GetPoint());
    });
    m_control.Bind(wxEVT_TREE_BEGIN_LABEL_EDIT, &NativeTreeView::OnBeginLabelEdit, this);
    m_control.Bind(wxEVT_TREE_END_LABEL_EDIT, &NativeTreeView::OnEndLabelEdit, this);
    if (m_style.drag) m_control.Bind(wxEVT_TREE_BEGIN_DRAG, &NativeTreeView::OnBeginDrag, this);
}

bool NativeTreeView::OnSpaceKey() {
    if (!m_style.multiple || Edited() != nullptr || wxGetKeyState(WXK_CONTROL) || wxGetKeyState(WXK_ALT))
        return false;
    TypeText(" ");
    return true;
}

void NativeTreeView::OnLeftDown(wxMouseEvent& event) {
    event.Skip();
    int place = 0;
    const wxTreeItemId item = m_control.HitTest(event.GetPosition(), place);
    TreeNode* const node = (place & wxTREE_HITTEST_ONITEM) != 0 ? NodeOf(item) : nullptr;
    if (node != nullptr) ReportClick(*node);
}

void NativeTreeView::SetImages(const std::vector<wxBitmapBundle>& images) {
    wxVector<wxBitmapBundle> bundles;
    for (const wxBitmapBundle& image : images)
        bundles.push_back(image);
    m_control.SetImages(bundles);
}

void NativeTreeView::SetAccessibleName(const std::string& name) {
    m_control.SetLabel(ToWx(name));
}

// --- nodes ---

TreeNode* NativeTreeView::NodeOf(const wxTreeItemId& item) const {
    if (!item.IsOk()) return nullptr;
    const auto* data = static_cast<ItemData*>(m_control.GetItemData(item));
    return data != nullptr ? &data->node : nullptr;
}

bool NativeTreeView::IsItemMarked(const wxTreeItemId& item) const {
    TreeNode* const node = NodeOf(item);
    return node != nullptr && IsMarked(*node);
}

void NativeTreeView::Describe(TreeNode& node, const wxTreeItemId& item) {
    node.native = item.GetID();
    if (node.MayHaveChildren()) m_control.SetItemHasChildren(item);
}

namespace {

wxString LabelOf(const TreeNode& node) {
    return ToWx(node.Detail().empty() ? node.Text() : node.Text() + "   (" + node.Detail() + ")");
}

} // namespace

void NativeTreeView::DoReset() {
    m_pressed = nullptr;
    m_control.DeleteAllItems();
    TreeNode* const root = Root();
    if (root == nullptr) return;
    Describe(*root, m_control.AddRoot(LabelOf(*root), root->Image(), root->Image(), new ItemData(*root)));
}

void NativeTreeView::DoInserted(TreeNode& inserted) {
    std::vector<TreeNode*> nodes{&inserted};
    while (!nodes.empty()) {
        TreeNode& node = *nodes.back();
        nodes.pop_back();
        const TreeNode& parent = *node.Parent();
        const std::size_t index = node.Index();
        auto* const data = new ItemData(node);
        // The descendants of `inserted` are added in order, so each is appended as the last sibling.
        const bool append = &node != &inserted || index + 1 == parent.ChildCount();
        const wxTreeItemId above = ItemOf(parent);
        const wxTreeItemId item =
            append       ? m_control.AppendItem(above, LabelOf(node), node.Image(), node.Image(), data)
            : index == 0 ? m_control.PrependItem(above, LabelOf(node), node.Image(), node.Image(), data)
                         : m_control.InsertItem(above, ItemOf(parent.Child(index - 1)), LabelOf(node),
                                                node.Image(), node.Image(), data);
        Describe(node, item);
        for (std::size_t i = node.ChildCount(); i > 0; --i)
            nodes.push_back(&node.Child(i - 1));
    }
    m_control.SetItemHasChildren(ItemOf(*inserted.Parent()));
}

void NativeTreeView::DoRemove(TreeNode& node) {
    m_pressed = nullptr;
    m_control.Delete(ItemOf(node));
    node.native = nullptr;
}

void NativeTreeView::DoRemoved(TreeNode& parent, std::size_t) {
    if (!parent.MayHaveChildren()) m_control.SetItemHasChildren(ItemOf(parent), false);
}

void NativeTreeView::DoChanged(TreeNode& node) {
    const wxTreeItemId item = ItemOf(node);
    // Only what is different: each message lays the row out again.
    if (const wxString label = LabelOf(node); m_control.GetItemText(item) != label)
        m_control.SetItemText(item, label);
    for (const wxTreeItemIcon state : {wxTreeItemIcon_Normal, wxTreeItemIcon_Selected})
        if (m_control.GetItemImage(item, state) != node.Image())
            m_control.SetItemImage(item, node.Image(), state);
    if (m_control.ItemHasChildren(item) != node.MayHaveChildren())
        m_control.SetItemHasChildren(item, node.MayHaveChildren());
}

void NativeTreeView::OnExpanding(wxTreeEvent& event) {
    TreeNode* const node = NodeOf(event.GetItem());
    if (node == nullptr || !Fill(*node)) event.Veto();
}

void NativeTreeView::OnExpanded(wxTreeEvent& event) {
    TreeNode* const node = NodeOf(event.GetItem());
    if (node == nullptr) return;
    node->SetExpanded(true);
    if (m_restoring) return;
    m_restoring = true;
    RestoreExpansion(*node);
    m_restoring = false;
}

void NativeTreeView::DoExpand(TreeNode& node) {
    const bool outermost = !std::exchange(m_restoring, true);
    m_control.Expand(ItemOf(node));
    if (outermost) m_restoring = false;
}

void NativeTreeView::DoCollapse(TreeNode& node) {
    m_control.Collapse(ItemOf(node));
}

// --- selection and scrolling ---

std::vector<TreeNode*> NativeTreeView::Selection() const {
    if (!m_style.multiple) {
        TreeNode* const node = NodeOf(m_control.GetSelection());
        return node != nullptr ? std::vector<TreeNode*>{node} : std::vector<TreeNode*>{};
    }
    // The control's own list has the entries below another one before it.
    std::vector<TreeNode*> selection, nodes;
    if (Root() != nullptr) nodes.push_back(Root());
    while (!nodes.empty()) {
        TreeNode* const node = nodes.back();
        nodes.pop_back();
        if (m_control.IsSelected(ItemOf(*node))) selection.push_back(node);
        for (std::size_t i = node->ChildCount(); i > 0; --i)
            nodes.push_back(&node->Child(i - 1));
    }
    return selection;
}

TreeNode* NativeTreeView::Selected() const {
    if (!m_style.multiple) return NodeOf(m_control.GetSelection());
    const wxTreeItemId focused = m_control.GetFocusedItem();
    if (focused.IsOk() && m_control.IsSelected(focused)) return NodeOf(focused);
    const std::vector<TreeNode*> nodes = Selection();
    return nodes.empty() ? nullptr : nodes.front();
}

void NativeTreeView::DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) {
    if (!m_style.multiple) {
        if (current != nullptr)
            m_control.SelectItem(ItemOf(*current));
        else
            m_control.Unselect();
        return;
    }
    m_control.UnselectAll();
    if (current != nullptr) m_control.SetFocusedItem(ItemOf(*current));
    for (const TreeNode* node : nodes)
        m_control.SelectItem(ItemOf(*node));
}

void NativeTreeView::DoShow(TreeNode& node) {
    m_control.EnsureVisible(ItemOf(node));
}

TreeView::Scroll NativeTreeView::ScrollPosition() const {
    return {NodeOf(m_control.GetFirstVisibleItem()), 0};
}

void NativeTreeView::SetScrollPosition(const Scroll& scroll) {
    if (scroll.top == nullptr) return;
    ::SendMessageW(static_cast<HWND>(m_control.GetHandle()), TVM_SELECTITEM, TVGN_FIRSTVISIBLE,
                   reinterpret_cast<LPARAM>(scroll.top->native));
}

wxRect NativeTreeView::RowRect(const TreeNode& node) const {
    wxRect row;
    if (!m_control.GetBoundingRect(ItemOf(node), row, true)) return {};
    return row.y < m_control.GetClientSize().y && row.GetBottom() >= 0 ? row : wxRect();
}

TreeNode* NativeTreeView::RowAt(wxPoint point) const {
    int place = 0;
    return NodeOf(m_control.HitTest(point, place));
}

// --- labels ---

void NativeTreeView::EditLabel(TreeNode& node) {
    if (Edited() == &node) return;
    if (Edited() != nullptr) EndLabelEdit(true);
    EnsureVisible(node);
    m_mayEdit = true;
    m_control.EditLabel(ItemOf(node));
    m_mayEdit = false;
}

void NativeTreeView::OnBeginLabelEdit(wxTreeEvent& event) {
    TreeNode* const node = NodeOf(event.GetItem());
    if (!m_mayEdit || node == nullptr) return event.Veto();
    BeginRename(*node);
    // The text box is created after this event.
    m_control.CallAfter([this] {
        if (wxTextCtrl* box = m_control.GetEditControl())
            box->Bind(wxEVT_TEXT, [this](wxCommandEvent& change) {
                change.Skip();
                CorrectEdit();
            });
    });
}

void NativeTreeView::CorrectEdit() {
    const std::string typed = EditText();
    if (const std::string corrected = Corrected(typed); corrected != typed) SetEditText(corrected);
}

// Vetoed: the row shows the text of the node, not the typed text. Wine's control reports the end of an edit a
// second time when the text box is destroyed and loses the focus, with the typed text even after a cancelled
// edit.
void NativeTreeView::OnEndLabelEdit(wxTreeEvent& event) {
    event.Veto();
    if (Edited() == nullptr) return;
    const std::string typed = event.GetLabel().utf8_string();
    EndRename(event.IsEditCancelled() ? nullptr : &typed);
}

void NativeTreeView::EndLabelEdit(bool keep) {
    if (const TreeNode* node = Edited()) m_control.EndEditLabel(ItemOf(*node), !keep);
}

std::string NativeTreeView::EditText() const {
    const wxTextCtrl* box = m_control.GetEditControl();
    return box != nullptr ? box->GetValue().utf8_string() : "";
}

void NativeTreeView::SetEditText(const std::string& text) {
    wxTextCtrl* const box = m_control.GetEditControl();
    if (box == nullptr) return;
    // Until the first event of the box has been handled, CorrectEdit does not run, so correct the text here.
    box->ChangeValue(ToWx(Corrected(text)));
    box->SetInsertionPointEnd();
}

// --- dragging ---

void NativeTreeView::OnBeginDrag(wxTreeEvent& event) {
    if (TreeNode* const node = NodeOf(event.GetItem())) StartDrag(*node);
}

// wx does not let the only selected row be dragged right after the control got the focus, and deselects a row
// at once when it is pressed with Ctrl. Such a press is decided here, when the mouse moves or is released.
bool NativeTreeView::OnPress(wxPoint point, bool control) {
    m_pressed = nullptr;
    if (!m_style.multiple || !m_style.drag) return false;
    int place = 0;
    const wxTreeItemId item = m_control.HitTest(point, place);
    TreeNode* const node = (place & wxTREE_HITTEST_ONITEM) != 0 ? NodeOf(item) : nullptr;
    if (node == nullptr) return false;
    const std::vector<TreeNode*> selection = Selection();
    const bool isOnlyOne = selection.size() == 1 && selection.front() == node;
    if (!control && !isOnlyOne) return false;
    if (Edited() != nullptr) EndLabelEdit(true);
    m_control.SetFocus();
    ReportClick(*node);
    m_pressed = node;
    m_pressedAt = point;
    m_pressedControl = control;
    return true;
}

bool NativeTreeView::OnMove(wxPoint point) {
    if (m_pressed == nullptr) return false;
    const bool isDrag = std::abs(point.x - m_pressedAt.x) > ::GetSystemMetrics(SM_CXDRAG) ||
                        std::abs(point.y - m_pressedAt.y) > ::GetSystemMetrics(SM_CYDRAG);
    if (isDrag) StartDrag(*std::exchange(m_pressed, nullptr));
    return true;
}

bool NativeTreeView::OnRelease() {
    TreeNode* const node = std::exchange(m_pressed, nullptr);
    if (node == nullptr) return false;
    if (!m_pressedControl) return true;
    std::vector<TreeNode*> selection = Selection();
    TreeNode* current = node;
    if (std::erase(selection, node) == 0)
        selection.push_back(node);
    else
        current = selection.empty() ? nullptr : selection.front();
    SelectAll(selection, current);
    return true;
}

// Drags the selected rows if the pressed one is among them, otherwise that one alone.
void NativeTreeView::StartDrag(TreeNode& node) {
    const bool several = m_style.multiple && m_control.IsSelected(ItemOf(node));
    if (!BeginDrag(several ? Selection() : std::vector<TreeNode*>{&node})) return;
    m_droppedHere = false;
    EntryData rows([this] { return DragText(); });
    wxDropSource source(rows, &m_control);
    const wxDragResult result = source.DoDragDrop(wxDrag_AllowMove);
    // What was moved into another window is removed here.
    if (result == wxDragMove && !m_droppedHere) ReportTaken();
    EndDrag();
}

bool NativeTreeView::OnDropped(wxPoint point, bool copies) {
    m_droppedHere = true;
    return Drop(point, copies);
}

void NativeTreeView::DoMark(const TreeDrop& drop) {
    const auto control = static_cast<HWND>(m_control.GetHandle());
    const bool into = drop.node != nullptr && drop.where == TreeDrop::Where::On;
    const bool beside = drop.node != nullptr && drop.where != TreeDrop::Where::On;
    const auto item = reinterpret_cast<LPARAM>(drop.node != nullptr ? drop.node->native : nullptr);
    ::SendMessageW(control, TVM_SELECTITEM, TVGN_DROPHILITE, into ? item : 0);
    ::SendMessageW(control, TVM_SETINSERTMARK, WPARAM{drop.where == TreeDrop::Where::After},
                   beside ? item : 0);
}

} // namespace windows
} // namespace nesk::platform
