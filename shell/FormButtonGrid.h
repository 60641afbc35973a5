#pragma once

#include "checking/ButtonGrid.h"
#include "editing/MenuEditor.h"
#include "platform/UiEntryDrag.h"
#include "shell/EntryDrop.h"
#include "shell/UiButtonPainter.h"
#include "widgets/UiThumbnails.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include <wx/scrolwin.h>
#include <wx/timer.h>

namespace nesk {

class MenuItem;

/// What the user does with the buttons. All functions must be set, but isMarked.
struct ButtonGridEvents {
    /// The user has selected entries; the keys apply to the first of them.
    std::function<void(const EntryIds&)> select;

    /// A button was double-clicked, or Enter was pressed on it.
    std::function<void(const std::string& id)> open;

    /// The user wants the submenu above.
    std::function<void()> up;

    /// The context menu is wanted, at a point in client coordinates.
    std::function<void(wxPoint)> contextMenu;

    /// Returns whether the entries that are dragged may be dropped at a place.
    std::function<bool(const EntryDrop&)> mayDrop;

    /// Returns whether the entries that are dragged are those of this menu.
    std::function<bool()> isDragKnown;

    /// The entries of this menu that are dragged were dropped at an allowed place.
    std::function<void(const EntryDrop&)> dropped;

    /// Entries of another window were dropped at an allowed place. Returns false when they are refused.
    std::function<bool(const EntryDrop&, const std::string& text)> droppedText;

    /// Returns whether files may be dropped on a button, or between the buttons on the submenu that is shown.
    std::function<bool(const std::vector<std::string>& paths, const std::string& id)> mayDropFiles;

    /// Files were dropped where they may be. The drag has ended.
    std::function<void(const std::vector<std::string>& paths, const std::string& id)> droppedFiles;

    /// The file of a picture that was shown before has changed.
    std::function<void()> fileChanged;

    /// A drag has left the buttons or has ended.
    std::function<void()> dragLeft;

    /// Entries as text for another window.
    std::function<std::string(const EntryIds&)> dragText;

    /// Another window has taken entries over: they have to be removed here.
    std::function<void(const EntryIds&)> dragTaken;

    /// Returns whether a button has a mark that something is wrong with its entry. Asked whenever a button is
    /// drawn, so it must be quick.
    std::function<bool(const std::string& id)> isMarked;
};

/// The buttons of a submenu as on an operator's screen, page under page. It shows what is in the menu and
/// reports what the user does; it changes nothing.
class FormButtonGrid : public wxScrolledCanvas {
public:
    /// @param name   control name
    /// @param files  where the pictures are
    FormButtonGrid(wxWindow* parent, const char* name, const MenuEditor& editor,
                   std::shared_ptr<PictureFiles> files);
    ~FormButtonGrid() override;

    ButtonGridEvents on;

    /// Shows the children of an entry from the beginning; "" shows nothing.
    void ShowEntry(const std::string& id);

    /// Shows for which screen the buttons are.
    void SetScreen(ScreenSize screen);
    ScreenSize Screen() const { return m_screen; }

    /// Shows the same entry again after its children have changed. Its id may be another one now.
    void UpdateButtons(const std::string& id);

    /// Shows which entries are selected, and scrolls to the current one when that is a button here.
    void ShowSelection(const EntryIds& selected, const std::string& current);

    /// Looks whether the files of the visible pictures have changed.
    void CheckFiles();

    /// The entries that are dragged from here; none while nothing is dragged.
    const EntryIds& Dragged() const { return m_dragged; }

    /// Ends a drag from here whose entries were moved already.
    void ForgetDragged() { m_dragged.clear(); }

    /// The place where dragged entries would be dropped; its id is "" for none.
    const EntryDrop& Marked() const { return m_marked; }

    /// The rectangle of a button in client coordinates.
    /// @param button  0-based
    wxRect ButtonRect(int button) const;

    /// Number of buttons.
    int Count() const;

    /// The buttons and pages of the present size.
    const ButtonGrid& Grid() const { return m_grid; }

    /// Whether the picture of a button is shown.
    UiThumbnails::State PictureState(int button) const;

    /// The current button; -1 for none.
    int Current() const;

private:
    const MenuEntry* Entry() const { return m_id.empty() ? nullptr : m_editor.Find(m_id); }
    const MenuItem& Item(int button) const;
    int IndexOf(const std::string& id) const;
    void LayOut();
    void EnsureVisible(int button);
    void UpdateName();
    wxPoint Origin() const;
    GridPoint InColumn(wxPoint point) const;
    std::optional<int> ButtonAt(wxPoint point) const;
    std::pair<int, int> VisibleButtons() const;

    // Pictures.
    void WantPictures();
    void OnIdle(wxIdleEvent& event);
    void OnPaint(wxPaintEvent& event);
    void DrawButtons(wxGraphicsContext& gc, const wxRect& area);

    // Mouse and keys.
    void BindInput();
    void OnLeftDown(wxMouseEvent& event);
    void OnLeftUp(wxMouseEvent& event);
    void OnMotion(wxMouseEvent& event);
    void OnDoubleClick(wxMouseEvent& event);
    void OnContextMenu(wxContextMenuEvent& event);
    void OnKeyDown(wxKeyEvent& event);
    bool MoveCurrent(int key, bool extends);
    void SelectButton(int button, bool toggles, bool extends);
    void UpdateToolTip(std::optional<int> button);

    // Dragging.
    static constexpr int DragTickMilliseconds = 60;
    platform::EntryDragEvents DragEvents();
    void BeginDrag();
    EntryDrop DropAt(wxPoint point, bool copies, GridDrop& place) const;
    bool DragTo(wxPoint point, bool copies);
    void LeaveDrag();
    void OnDragTimer();
    platform::FileDragEvents FileEvents();
    std::string FilePlaceAt(wxPoint point) const;
    bool DragFilesTo(wxPoint point, const std::vector<std::string>& paths);
    void MarkDrop(const EntryDrop& drop, const GridDrop& place);
    GridRect MarkRect() const;

    const MenuEditor& m_editor;
    std::string m_id;
    ScreenSize m_screen{1024, 768};
    ButtonGrid m_grid{m_screen};
    std::unique_ptr<UiButtonPainter> m_painter;
    UiThumbnails m_thumbnails;
    bool m_wantsPictures = true;        // other pictures may be needed than were asked for
    std::pair<int, int> m_wanted{0, 0}; // for these buttons
    wxTimer m_pictureTimer;

    std::unordered_set<std::string> m_selected;
    std::string m_current;
    std::string m_anchor; // from which Shift selects
    std::optional<int> m_pressed;
    bool m_selectsOnRelease = false;
    wxPoint m_pressedAt;
    std::optional<int> m_hovered;

    std::unique_ptr<platform::EntryDrag> m_drag;
    EntryIds m_dragged;
    EntryDrop m_marked;
    GridDrop m_mark;
    wxPoint m_dragPoint;
    bool m_dragCopies = false;
    std::vector<std::string> m_draggedFiles; // while files are dragged here
    wxTimer m_dragTimer;
};

} // namespace nesk
