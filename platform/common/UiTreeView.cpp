// The common part of the tree views: nodes, keys, type-ahead search, and the drop rules of a drag.

#include "platform/UiTreeView.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include <wx/event.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace nesk::platform {

namespace {

// Nobody views more levels at once, and the controls recurse over expanded levels on the stack.
constexpr std::size_t MostLevelsExpanded = 200;

constexpr int ScrollMilliseconds = 50;
// On a busy machine the next paint may take longer.
constexpr int MostWaits = 20;
constexpr int DragTickMilliseconds = 60;
constexpr int TicksBeforeOpening = 12; // held over a collapsed entry before it opens

// True for keys that move to another row.
bool IsNavigation(int key) {
    switch (key) {
    case WXK_UP:
    case WXK_DOWN:
    case WXK_LEFT:
    case WXK_RIGHT:
    case WXK_HOME:
    case WXK_END:
    case WXK_PAGEUP:
    case WXK_PAGEDOWN:
    case WXK_BACK: return true;
    default: return false;
    }
}

bool IsAnyWithin(const std::vector<TreeNode*>& nodes, const TreeNode& node) {
    return std::any_of(nodes.begin(), nodes.end(),
                       [&](const TreeNode* inner) { return inner->IsWithin(node); });
}

} // namespace

TreeView::TreeView() {
    m_dragTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnDragTimer(); });
    m_menuTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OpenMenuAtSelected(); });
}

TreeView::~TreeView() = default;

wxSize TreeView::ImageSize() {
    // Slightly higher than a line of text, and even, so that edges stay sharp at half the size.
    const int side = std::max(20, (Window().ToDIP(Window().GetCharHeight()) * 5 / 4 + 1) / 2 * 2);
    return {side, side};
}

// --- nodes ---

void TreeView::Clear() {
    if (m_edited != nullptr) EndLabelEdit(false);
    EndDrag();
    m_typeAhead.Reset();
    const Quiet quiet(*this);
    const std::unique_ptr<TreeNode> old = std::move(m_root);
    DoReset();
}

TreeNode& TreeView::SetRoot(std::unique_ptr<TreeNode> root) {
    Clear();
    const Quiet quiet(*this);
    m_root = std::move(root);
    DoReset();
    return *m_root;
}

TreeNode& TreeView::Insert(TreeNode& parent, std::size_t index, std::unique_ptr<TreeNode> node) {
    const Quiet quiet(*this);
    parent.SetFilled(true);
    TreeNode& inserted = parent.Insert(index, std::move(node));
    DoInserted(inserted);
    return inserted;
}

TreeNode& TreeView::Append(TreeNode& parent, std::unique_ptr<TreeNode> node) {
    return Insert(parent, parent.ChildCount(), std::move(node));
}

void TreeView::Remove(TreeNode& node) {
    TreeNode* const parent = node.Parent();
    if (parent == nullptr) return Clear();
    const std::size_t index = node.Index();
    if (m_edited != nullptr && m_edited->IsWithin(node)) EndLabelEdit(false);
    if (IsAnyWithin(m_dragged, node)) EndDrag();
    const std::vector<TreeNode*> selection = Selection();
    std::vector<TreeNode*> rest;
    std::copy_if(selection.begin(), selection.end(), std::back_inserter(rest),
                 [&](const TreeNode* selected) { return !selected->IsWithin(node); });
    {
        const Quiet quiet(*this);
        DoRemove(node);
        const std::unique_ptr<TreeNode> taken = parent->Take(index);
        if (parent->ChildCount() == 0) parent->SetExpanded(false);
        DoRemoved(*parent, index);
    }
    if (rest.size() == selection.size()) return;
    const std::size_t left = parent->ChildCount();
    if (rest.empty())
        Select(left == 0 ? parent : &parent->Child(std::min(index, left - 1)));
    else
        SelectAll(rest, rest.front());
}

void TreeView::Move(TreeNode& node, TreeNode& parent, std::size_t index) {
    const Quiet quiet(*this);
    const std::vector<TreeNode*> selection = Selection();
    TreeNode* const current = Selected();
    TreeNode& before = *node.Parent();
    const std::size_t indexBefore = node.Index();
    DoRemove(node);
    std::unique_ptr<TreeNode> taken = before.Take(indexBefore);
    if (before.ChildCount() == 0) before.SetExpanded(false);
    DoRemoved(before, indexBefore);
    parent.SetFilled(true);
    parent.Insert(index, std::move(taken));
    DoInserted(node);
    RestoreExpansion(node);
    for (const TreeNode* selected : selection)
        ExpandAbove(*selected);
    DoSelect(selection, current);
}

bool TreeView::Fill(TreeNode& node) {
    if (!node.IsFilled()) {
        node.SetFilled(true);
        if (on.fill) on.fill(node);
        if (!node.MayHaveChildren()) DoChanged(node);
    }
    return node.ChildCount() > 0;
}

void TreeView::Unfill(TreeNode& node) {
    node.SetFilled(false);
    node.SetExpanded(false);
    DoChanged(node);
}

TreeNode* TreeView::NodeAt(const std::vector<std::string_view>& keys, Missing missing) {
    TreeNode* node = m_root.get();
    if (node == nullptr || keys.empty() || node->Key() != keys.front()) return nullptr;
    for (std::size_t level = 1; level < keys.size() && node != nullptr; ++level) {
        if (missing == Missing::Create) Fill(*node);
        TreeNode* found = nullptr;
        for (std::size_t i = 0; i < node->ChildCount() && found == nullptr; ++i)
            if (node->Child(i).Key() == keys[level]) found = &node->Child(i);
        node = found;
    }
    return node;
}

void TreeView::SetText(TreeNode& node, const std::string& text) {
    node.SetText(text);
    DoChanged(node);
}

void TreeView::SetImage(TreeNode& node, int image) {
    if (node.Image() == image) return;
    node.SetImage(image);
    DoChanged(node);
}

// --- state ---

void TreeView::Select(TreeNode* node) {
    SelectAll(node != nullptr ? std::vector<TreeNode*>{node} : std::vector<TreeNode*>{}, node);
}

void TreeView::SelectAll(const std::vector<TreeNode*>& nodes, TreeNode* current) {
    {
        const Quiet quiet(*this);
        for (const TreeNode* node : nodes)
            ExpandAbove(*node);
        DoSelect(nodes, current);
    }
    ReportSelection();
}

void TreeView::Expand(TreeNode& node) {
    if (!Fill(node)) return;
    node.SetExpanded(true);
    if (!node.HasRow()) return;
    DoExpand(node);
    RestoreExpansion(node);
}

void TreeView::Collapse(TreeNode& node) {
    if (node.HasRow()) DoCollapse(node);
    node.SetExpanded(false);
}

void TreeView::ExpandBelow(TreeNode& node) {
    std::vector<std::pair<TreeNode*, std::size_t>> found{{&node, 1}};
    while (!found.empty()) {
        const auto [at, level] = found.back();
        found.pop_back();
        if (!Fill(*at)) continue;
        at->SetExpanded(true);
        if (level == MostLevelsExpanded) continue;
        for (std::size_t i = 0; i < at->ChildCount(); ++i)
            found.emplace_back(&at->Child(i), level + 1);
    }
    RestoreExpansion(node);
}

void TreeView::RestoreExpansion(TreeNode& node) {
    if (!node.HasRow()) return;
    std::vector<TreeNode*> found{&node};
    while (!found.empty()) {
        TreeNode* const at = found.back();
        found.pop_back();
        if (!at->IsExpanded() || !at->MayHaveChildren()) continue;
        DoExpand(*at);
        for (std::size_t i = at->ChildCount(); i > 0; --i)
            found.push_back(&at->Child(i - 1));
    }
}

void TreeView::ExpandAbove(const TreeNode& node) {
    std::vector<TreeNode*> above;
    for (TreeNode* at = node.Parent(); at != nullptr; at = at->Parent())
        if (!at->IsExpanded()) above.push_back(at);
    for (auto at = above.rbegin(); at != above.rend(); ++at)
        Expand(**at);
}

void TreeView::EnsureVisible(TreeNode& node) {
    ExpandAbove(node);
    DoShow(node);
}

// --- keys ---

void TreeView::BindKeys() {
    Window().Bind(wxEVT_KEY_DOWN, &TreeView::OnKeyDown, this);
    Window().Bind(wxEVT_CHAR, &TreeView::OnChar, this);
}

void TreeView::OnKeyDown(wxKeyEvent& event) {
    const bool plain = (event.GetModifiers() & ~wxMOD_SHIFT) == 0;
    if (m_edited != nullptr || !plain || m_root == nullptr) return event.Skip();
    const int key = event.GetKeyCode();
    if (key == WXK_F10 && event.ShiftDown()) return ReportContextMenu(wxDefaultPosition);
    const bool isEnter = key == WXK_RETURN || key == WXK_NUMPAD_ENTER;
    // After a search without a match, Enter would open the selected entry, which the user did not search for.
    if (isEnter && m_typeAhead.HasMissed()) {
        m_typeAhead.Reset();
        return wxBell();
    }
    // GTK would select the row with the focus alone.
    if (isEnter && Selection().size() > 1) return ReportActivated(*Selected());
    // The controls would handle these keys as their own commands before they become characters.
    switch (key) {
    case WXK_SPACE: return TypeText(" ");
    case WXK_NUMPAD_ADD: return TypeText("+");
    case WXK_NUMPAD_SUBTRACT: return TypeText("-");
    case WXK_NUMPAD_MULTIPLY: return TypeText("*");
    default: break;
    }
    if (IsNavigation(key)) m_typeAhead.Reset();
    const bool isArrow = key == WXK_LEFT || key == WXK_RIGHT;
    if (event.GetModifiers() != 0 || !isArrow || !OnCommandKey(key)) event.Skip();
}

// Handles the keys that expand, collapse and change the level. Returns false for any other key.
bool TreeView::OnCommandKey(int key) {
    TreeNode* const node = Selected();
    if (node == nullptr) return false;
    switch (key) {
    case WXK_LEFT:
        if (node->IsExpanded() && node->MayHaveChildren())
            Collapse(*node);
        else
            GoTo(node->Parent());
        return true;
    case WXK_RIGHT:
        if (!node->IsExpanded())
            Expand(*node);
        else if (node->ChildCount() > 0)
            GoTo(&node->Child(0));
        return true;
    case '+': Expand(*node); return true;
    case '-': Collapse(*node); return true;
    case '*':
        Window().Freeze();
        ExpandBelow(*node);
        Window().Thaw();
        return true;
    default: return false;
    }
}

void TreeView::OnChar(wxKeyEvent& event) {
    const auto key = static_cast<char32_t>(event.GetUnicodeKey());
    const int modifiers = event.GetModifiers() & ~wxMOD_SHIFT;
    // AltGr types characters and reports both Ctrl and Alt.
    const bool types = modifiers == 0 || modifiers == (wxMOD_CONTROL | wxMOD_ALT);
    constexpr char32_t FirstPrintable = 0x20, Delete = 0x7F;
    if (m_edited != nullptr || !types || m_root == nullptr || key < FirstPrintable || key == Delete)
        return event.Skip();
    TypeText(wxString(event.GetUnicodeKey(), 1).utf8_string());
}

void TreeView::TypeText(const std::string& characters) {
    if (m_root == nullptr || characters.empty()) return;
    const TypeAhead::Clock::time_point now = TypeAhead::Clock::now();
    const bool isCommand = characters == "+" || characters == "-" || characters == "*";
    if (isCommand && !m_typeAhead.IsTyping(now) && OnCommandKey(characters.front())) return;
    GoTo(m_typeAhead.Type(characters, *m_root, Selected(), now));
    if (m_typeAhead.HasMissed()) wxBell();
}

void TreeView::GoTo(TreeNode* node) {
    if (node == nullptr) return;
    if (node != Selected() || Selection().size() != 1) Select(node);
    EnsureVisible(*node);
}

// --- reports of the native control ---

void TreeView::ReportSelection() {
    if (!IsQuiet() && on.selectionChanged) on.selectionChanged();
}

void TreeView::ReportClick(TreeNode& node) {
    m_typeAhead.Reset();
    if (on.clicked) on.clicked(node);
}

void TreeView::ReportActivated(TreeNode& node) {
    if (on.activated && on.activated(node)) return;
    if (node.IsExpanded())
        Collapse(node);
    else
        Expand(node);
}

void TreeView::ReportContextMenu(wxPoint screen) {
    if (!on.contextMenu) return;
    if (screen != wxDefaultPosition) {
        const wxPoint at = Window().ScreenToClient(screen);
        TreeNode* const node = RowAt(at);
        SelectForMenu(node);
        return on.contextMenu(node, at);
    }
    // Opened by keyboard: show the menu at the selected row. A control may scroll only at its next paint.
    TreeNode* const node = Selected();
    if (node != nullptr) EnsureVisible(*node);
    m_menuWaits = 0;
    OpenMenuAtSelected();
}

// The menu applies to the selection if the clicked row is part of it, otherwise to the clicked row.
void TreeView::SelectForMenu(TreeNode* node) {
    if (m_edited != nullptr) EndLabelEdit(true);
    if (node == nullptr) return;
    Window().SetFocus();
    const std::vector<TreeNode*> selection = Selection();
    if (std::find(selection.begin(), selection.end(), node) == selection.end()) Select(node);
}

// Waits until the row is visible.
void TreeView::OpenMenuAtSelected() {
    TreeNode* const node = Selected();
    const wxRect row = node != nullptr ? RowRect(*node) : wxRect();
    if (node != nullptr && row.IsEmpty() && m_menuWaits++ < MostWaits) {
        m_menuTimer.StartOnce(ScrollMilliseconds);
        return;
    }
    if (on.contextMenu) on.contextMenu(node, wxPoint(row.x, row.y + row.height));
}

void TreeView::BeginRename(TreeNode& node) {
    m_edited = &node;
    if (on.renameBegins) on.renameBegins(node);
}

void TreeView::EndRename(const std::string* text) {
    if (TreeNode* const node = std::exchange(m_edited, nullptr); node != nullptr && on.renameEnds)
        on.renameEnds(*node, text);
}

std::string TreeView::Corrected(const std::string& text) const {
    return on.correctLabel ? on.correctLabel(text) : text;
}

// --- dragging ---

TreeDrop TreeView::DropAt(wxPoint point, bool copies) const {
    if (m_draggedFiles) return FileDropAt(point);
    TreeDrop drop{RowAt(point), TreeDrop::Where::On, copies};
    // The free area below the rows stands for the end of the tree.
    if (drop.node == nullptr) drop.node = Root();
    if (drop.node == nullptr || !on.mayDrop) return {};
    const auto isWithin = [&](const TreeNode* dragged) { return drop.node->IsWithin(*dragged); };
    const bool into = on.mayDrop(m_dragged, drop);
    if (std::any_of(m_dragged.begin(), m_dragged.end(), isWithin)) return {};
    const wxRect row = RowRect(*drop.node);
    const int y = point.y - row.y;
    // In a row that accepts the nodes, the middle half means On; any other row has only Before and After.
    const int edge = into ? row.height / 4 : row.height / 2;
    if (y < edge || drop.node->Parent() == nullptr)
        drop.where = drop.node->Parent() == nullptr ? TreeDrop::Where::On : TreeDrop::Where::Before;
    else if (y >= row.height - edge)
        drop.where = TreeDrop::Where::After;
    if (drop.where == TreeDrop::Where::On) return into ? drop : TreeDrop{};
    // The row below an expanded entry is its first child.
    if (drop.where == TreeDrop::Where::After && drop.node->IsExpanded() && drop.node->ChildCount() > 0)
        drop = {&drop.node->Child(0), TreeDrop::Where::Before, copies};
    if (std::any_of(m_dragged.begin(), m_dragged.end(), isWithin)) return {};
    return on.mayDrop(m_dragged, drop) ? drop : TreeDrop{};
}

bool TreeView::BeginDrag(const std::vector<TreeNode*>& nodes) {
    if (!on.mayDrop || nodes.empty() || m_edited != nullptr) return false;
    if (std::any_of(nodes.begin(), nodes.end(), [](const TreeNode* n) { return n->Parent() == nullptr; }))
        return false;
    m_dragged = nodes;
    m_hoverTicks = 0;
    return true;
}

bool TreeView::DragTo(wxPoint point, bool copies) {
    if (m_dragged.empty() && !on.droppedText) return false;
    m_dragPoint = point;
    m_dragCopies = copies;
    Mark(DropAt(point, copies));
    if (!m_dragTimer.IsRunning()) m_dragTimer.Start(DragTickMilliseconds);
    return m_marked.node != nullptr;
}

bool TreeView::Drop(wxPoint point, bool copies) {
    if (m_dragged.empty()) return false;
    const TreeDrop drop = DropAt(point, copies);
    const std::vector<TreeNode*> nodes = m_dragged;
    EndDrag();
    if (drop.node == nullptr || !on.dropped) return false;
    // The control is still busy ending the drag.
    Window().CallAfter([this, nodes, drop] { on.dropped(nodes, drop); });
    return true;
}

bool TreeView::DropText(wxPoint point, bool copies, const std::string& text) {
    const TreeDrop drop = DropAt(point, copies);
    LeaveDrag();
    return drop.node != nullptr && on.droppedText && on.droppedText(text, drop);
}

// The free area below the rows stands for the root.
TreeDrop TreeView::FileDropAt(wxPoint point) const {
    TreeNode* const node = RowAt(point);
    TreeNode* const marked = node != nullptr ? node : Root();
    const bool allowed = marked != nullptr && on.mayDropFiles && on.mayDropFiles(*m_draggedFiles, node);
    return allowed ? TreeDrop{marked, TreeDrop::Where::On, true} : TreeDrop{};
}

FileDragEvents TreeView::FileEvents() {
    return {
        [this](const std::vector<std::string>& paths, wxPoint point) { return DragFilesTo(point, paths); },
        [this] { LeaveDrag(); },
        [this](const std::vector<std::string>& paths, wxPoint point) { DropFiles(point, paths); }};
}

bool TreeView::DragFilesTo(wxPoint point, const std::vector<std::string>& paths) {
    if (m_draggedFiles != paths) m_draggedFiles = paths;
    m_dragPoint = point;
    Mark(DropAt(point, true));
    if (!m_dragTimer.IsRunning()) m_dragTimer.Start(DragTickMilliseconds);
    return m_marked.node != nullptr;
}

void TreeView::DropFiles(wxPoint point, const std::vector<std::string>& paths) {
    if (Root() != nullptr && on.droppedFiles) on.droppedFiles(paths, RowAt(point));
}

void TreeView::ReportTaken() {
    if (m_dragged.empty() || !on.dragTaken) return;
    // The control is still busy ending the drag.
    Window().CallAfter([this, nodes = m_dragged] { on.dragTaken(nodes); });
}

void TreeView::LeaveDrag() {
    m_dragTimer.Stop();
    m_draggedFiles.reset();
    Mark({});
    if (on.dragLeft) on.dragLeft();
}

void TreeView::EndDrag() {
    if (m_dragged.empty()) return;
    LeaveDrag();
    m_dragged.clear();
}

// Scrolls while the pointer is near an edge, and expands the entry under the pointer after a delay.
void TreeView::OnDragTimer() {
    const int height = Window().GetClientSize().y;
    const int edge = Window().GetCharHeight();
    if (m_dragPoint.y < edge)
        DoScrollRows(-1);
    else if (m_dragPoint.y > height - edge)
        DoScrollRows(1);
    TreeNode* const node = m_marked.node;
    if (node != nullptr && m_marked.where == TreeDrop::Where::On && !node->IsExpanded() &&
        node->MayHaveChildren() && ++m_hoverTicks >= TicksBeforeOpening) {
        m_hoverTicks = 0;
        Expand(*node);
    }
    Mark(DropAt(m_dragPoint, m_dragCopies));
}

void TreeView::Mark(const TreeDrop& drop) {
    if (drop == m_marked) return;
    if (drop.node != m_marked.node) m_hoverTicks = 0;
    m_marked = drop;
    DoMark(drop);
}

} // namespace nesk::platform
