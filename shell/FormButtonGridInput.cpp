// Mouse, keys and dragging of the buttons in the preview.

#include "shell/FormButtonGrid.h"

#include "base/PreviewMessages.h"
#include "menu/MenuItem.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <cstdlib>

#include <wx/settings.h>

namespace nesk {

using Step = ButtonGrid::Step;

namespace {

constexpr int UsualDragDistance = 4;

// The direction of a key; nothing for other keys.
std::optional<Step> StepOf(int key) {
    switch (key) {
    case WXK_LEFT:
    case WXK_NUMPAD_LEFT: return Step::Left;
    case WXK_RIGHT:
    case WXK_NUMPAD_RIGHT: return Step::Right;
    case WXK_UP:
    case WXK_NUMPAD_UP: return Step::Up;
    case WXK_DOWN:
    case WXK_NUMPAD_DOWN: return Step::Down;
    case WXK_PAGEUP:
    case WXK_NUMPAD_PAGEUP: return Step::PageUp;
    case WXK_PAGEDOWN:
    case WXK_NUMPAD_PAGEDOWN: return Step::PageDown;
    case WXK_HOME:
    case WXK_NUMPAD_HOME: return Step::First;
    case WXK_END:
    case WXK_NUMPAD_END: return Step::Last;
    default: return std::nullopt;
    }
}

int DragDistance(wxSystemMetric metric) {
    const int distance = wxSystemSettings::GetMetric(metric);
    return distance > 0 ? distance : UsualDragDistance;
}

} // namespace

void FormButtonGrid::BindInput() {
    Bind(wxEVT_LEFT_DOWN, &FormButtonGrid::OnLeftDown, this);
    Bind(wxEVT_LEFT_UP, &FormButtonGrid::OnLeftUp, this);
    Bind(wxEVT_LEFT_DCLICK, &FormButtonGrid::OnDoubleClick, this);
    Bind(wxEVT_MOTION, &FormButtonGrid::OnMotion, this);
    Bind(wxEVT_LEAVE_WINDOW, [this](wxMouseEvent&) { m_pressed.reset(); });
    Bind(wxEVT_CONTEXT_MENU, &FormButtonGrid::OnContextMenu, this);
    Bind(wxEVT_KEY_DOWN, &FormButtonGrid::OnKeyDown, this);
    const auto focused = [this](wxFocusEvent& event) {
        Refresh();
        event.Skip();
    };
    Bind(wxEVT_SET_FOCUS, focused);
    Bind(wxEVT_KILL_FOCUS, focused);
    m_dragTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnDragTimer(); });
}

// --- selecting ---

void FormButtonGrid::SelectButton(int button, bool toggles, bool extends) {
    const std::string id = Item(button).ID();
    EntryIds ids{id};
    if (extends) {
        const int anchor = IndexOf(m_anchor);
        const auto [first, last] = std::minmax(anchor < 0 ? button : anchor, button);
        for (int i = first; i <= last; ++i)
            if (i != button) ids.push_back(Item(i).ID());
    } else if (toggles) {
        const bool isSelected = m_selected.contains(id);
        if (isSelected && m_selected.size() > 1) ids.clear();
        for (const std::string& other : m_selected)
            if (other != id) ids.push_back(other);
    }
    if (!extends) m_anchor = id;
    m_current = id;
    m_selected = {ids.begin(), ids.end()};
    EnsureVisible(button);
    UpdateName();
    Refresh();
    on.select(ids);
}

// --- mouse ---

void FormButtonGrid::OnLeftDown(wxMouseEvent& event) {
    SetFocus();
    m_pressed = ButtonAt(event.GetPosition());
    m_pressedAt = event.GetPosition();
    m_selectsOnRelease = false;
    if (!m_pressed) return;
    const bool isSelected = m_selected.contains(Item(*m_pressed).ID());
    // One of several selected buttons can be dragged with the others, so it is selected alone only when the
    // mouse button comes up.
    if (isSelected && !event.ShiftDown())
        m_selectsOnRelease = true;
    else
        SelectButton(*m_pressed, event.ControlDown(), event.ShiftDown());
}

void FormButtonGrid::OnLeftUp(wxMouseEvent& event) {
    const std::optional<int> pressed = std::exchange(m_pressed, std::nullopt);
    if (pressed && m_selectsOnRelease && *pressed < Count())
        SelectButton(*pressed, event.ControlDown(), false);
}

void FormButtonGrid::OnDoubleClick(wxMouseEvent& event) {
    m_pressed.reset();
    const std::optional<int> button = ButtonAt(event.GetPosition());
    if (button && !event.HasAnyModifiers()) on.open(Item(*button).ID());
}

void FormButtonGrid::OnMotion(wxMouseEvent& event) {
    const wxPoint way = event.GetPosition() - m_pressedAt;
    if (m_pressed && event.LeftIsDown() &&
        (std::abs(way.x) > DragDistance(wxSYS_DRAG_X) || std::abs(way.y) > DragDistance(wxSYS_DRAG_Y)))
        BeginDrag();
    else
        UpdateToolTip(ButtonAt(event.GetPosition()));
}

// Shows what the button does not show.
void FormButtonGrid::UpdateToolTip(std::optional<int> button) {
    if (button == m_hovered) return;
    m_hovered = button;
    std::string text;
    if (button && m_painter) {
        const MenuItem& item = Item(*button);
        if (m_painter->Fit(item.Caption()).isCut || m_grid.Scale() < 1) text = item.Caption();
        const std::string path(item.Graphic());
        if (!path.empty() && m_thumbnails.StateOf(path) == UiThumbnails::State::Missing)
            text.append(text.empty() ? "" : "\n")
                .append(modStringRes::FormatResString(Message::PreviewNoPicture, path));
    }
    SetToolTip(modUtilities::ToWx(text));
}

// The menu applies to the selection if the button is part of it, otherwise to the button.
void FormButtonGrid::OnContextMenu(wxContextMenuEvent& event) {
    SetFocus();
    if (event.GetPosition() != wxDefaultPosition) {
        const wxPoint at = ScreenToClient(event.GetPosition());
        const std::optional<int> button = ButtonAt(at);
        if (button && !m_selected.contains(Item(*button).ID())) SelectButton(*button, false, false);
        return on.contextMenu(at);
    }
    const int current = Current();
    EnsureVisible(current);
    on.contextMenu(current >= 0 ? ButtonRect(current).GetBottomLeft() : wxPoint(0, 0));
}

// --- keys ---

void FormButtonGrid::OnKeyDown(wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    if (key == WXK_TAB && !event.ControlDown()) {
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward : wxNavigationKeyEvent::IsForward);
        return;
    }
    const bool isPlain = !event.HasAnyModifiers();
    if (isPlain && key == WXK_BACK) return on.up();
    if (isPlain && (key == WXK_RETURN || key == WXK_NUMPAD_ENTER)) {
        if (const int current = Current(); current >= 0) on.open(Item(current).ID());
        return;
    }
    if ((isPlain || event.GetModifiers() == wxMOD_SHIFT) && MoveCurrent(key, event.ShiftDown())) return;
    event.Skip();
}

bool FormButtonGrid::MoveCurrent(int key, bool extends) {
    const std::optional<Step> step = StepOf(key);
    if (!step) return false;
    const int button = m_grid.Neighbour(Current(), *step, Count());
    if (button >= 0) SelectButton(button, false, extends);
    return true;
}

// --- dragging ---

platform::EntryDragEvents FormButtonGrid::DragEvents() {
    platform::EntryDragEvents events;
    events.over = [this](wxPoint point, bool copies) { return DragTo(point, copies); };
    events.left = [this] { LeaveDrag(); };
    events.files = FileEvents();
    events.isKnown = [this] { return on.isDragKnown(); };
    events.dropped = [this](wxPoint point, bool copies) {
        GridDrop place;
        const EntryDrop drop = DropAt(point, copies, place);
        LeaveDrag();
        if (!drop.id.empty()) on.dropped(drop);
    };
    events.droppedText = [this](wxPoint point, bool copies, const std::string& text) {
        GridDrop place;
        const EntryDrop drop = DropAt(point, copies, place);
        LeaveDrag();
        return !drop.id.empty() && on.droppedText(drop, text);
    };
    events.text = [this] { return on.dragText(m_dragged); };
    events.taken = [this] {
        // The system is still busy ending the drag.
        if (!m_dragged.empty()) CallAfter([this, ids = m_dragged] { on.dragTaken(ids); });
    };
    events.ended = [this] {
        LeaveDrag();
        m_dragged.clear();
    };
    return events;
}

void FormButtonGrid::BeginDrag() {
    const std::string id = Item(*m_pressed).ID();
    m_pressed.reset();
    m_dragged = m_selected.contains(id) ? EntryIds{m_selected.begin(), m_selected.end()} : EntryIds{id};
    m_drag->Begin();
}

// @param place  receives the place in the grid
EntryDrop FormButtonGrid::DropAt(wxPoint point, bool copies, GridDrop& place) const {
    if (Entry() == nullptr) return {};
    const int count = Count();
    place = m_grid.DropAt(InColumn(point), count, [this](int button) { return !Item(button).IsPart(); });
    EntryDrop drop{m_id, EntryDrop::Where::On, copies};
    if (place.into)
        drop.id = Item(place.position).ID();
    else if (place.position < count)
        drop = {Item(place.position).ID(), EntryDrop::Where::Before, copies};
    else if (count > 0)
        drop = {Item(count - 1).ID(), EntryDrop::Where::After, copies};
    return on.mayDrop(drop) ? drop : EntryDrop{};
}

bool FormButtonGrid::DragTo(wxPoint point, bool copies) {
    m_dragPoint = point;
    m_dragCopies = copies;
    GridDrop place;
    const EntryDrop drop = DropAt(point, copies, place);
    MarkDrop(drop, place);
    if (!m_dragTimer.IsRunning()) m_dragTimer.Start(DragTickMilliseconds);
    return !m_marked.id.empty();
}

void FormButtonGrid::LeaveDrag() {
    m_dragTimer.Stop();
    if (!m_marked.id.empty()) Refresh();
    m_marked = {};
    m_draggedFiles.clear();
    on.dragLeft();
}

// Scrolls while the pointer is near an edge.
void FormButtonGrid::OnDragTimer() {
    constexpr int lines = 4;
    const int edge = 2 * GetCharHeight();
    const int from = GetViewStart().y;
    if (m_dragPoint.y < edge)
        Scroll(0, std::max(0, from - lines));
    else if (m_dragPoint.y > GetClientSize().y - edge)
        Scroll(0, from + lines);
    if (GetViewStart().y == from) return;
    if (m_draggedFiles.empty())
        DragTo(m_dragPoint, m_dragCopies);
    else
        DragFilesTo(m_dragPoint, m_draggedFiles);
}

} // namespace nesk
