// Files that are dragged over the buttons in the preview.

#include "shell/FormButtonGrid.h"

#include "menu/MenuItem.h"

#include <utility>

namespace nesk {

namespace {

// The mark of a drop that is not on a button.
constexpr GridDrop AroundAll{-1, true};

} // namespace

platform::FileDragEvents FormButtonGrid::FileEvents() {
    platform::FileDragEvents events;
    events.over = [this](const std::vector<std::string>& paths, wxPoint point) {
        return DragFilesTo(point, paths);
    };
    events.left = [this] { LeaveDrag(); };
    events.dropped = [this](const std::vector<std::string>& paths, wxPoint point) {
        if (Entry() != nullptr) on.droppedFiles(paths, FilePlaceAt(point));
    };
    return events;
}

// The entry for which a drop counts.
std::string FormButtonGrid::FilePlaceAt(wxPoint point) const {
    const std::optional<int> button = ButtonAt(point);
    return button ? Item(*button).ID() : m_id;
}

bool FormButtonGrid::DragFilesTo(wxPoint point, const std::vector<std::string>& paths) {
    if (Entry() == nullptr) return false;
    m_dragPoint = point;
    if (m_draggedFiles != paths) m_draggedFiles = paths;
    const std::string id = FilePlaceAt(point);
    const std::optional<int> button = ButtonAt(point);
    const bool allowed = on.mayDropFiles(paths, id);
    MarkDrop(allowed ? EntryDrop{id, EntryDrop::Where::On, true} : EntryDrop{},
             button ? GridDrop{*button, true} : AroundAll);
    if (!m_dragTimer.IsRunning()) m_dragTimer.Start(DragTickMilliseconds);
    return allowed;
}

void FormButtonGrid::MarkDrop(const EntryDrop& drop, const GridDrop& place) {
    if (drop == m_marked && place == m_mark) return;
    m_marked = drop;
    m_mark = place;
    Refresh();
}

// The rectangle in which the mark of a drop is drawn.
GridRect FormButtonGrid::MarkRect() const {
    if (m_mark == AroundAll) return {0, 0, m_grid.Page(0).width, m_grid.Height(Count())};
    return m_mark.into ? m_grid.Button(m_mark.position) : m_grid.Mark(m_mark.position, Count());
}

} // namespace nesk
