#pragma once

#include "platform/UiFileTarget.h"

#include <functional>
#include <memory>
#include <string>

#include <wx/gdicmn.h>

class wxWindow;

namespace nesk::platform {

/// The events of an EntryDrag. Points are in client coordinates of the window.
struct EntryDragEvents {
    /// Entries are over a point. Returns whether they may be dropped there.
    /// @param copies  Ctrl is held: copies are made and the dragged entries stay
    std::function<bool(wxPoint point, bool copies)> over;

    /// A drag has left the window or has ended.
    std::function<void()> left;

    /// Files are dragged to the window. May be left empty.
    FileDragEvents files;

    /// Returns whether this program knows which entries are dragged, so that it needs no text of them.
    std::function<bool()> isKnown;

    /// Entries that this program knows were dropped where they may be. The drag has not ended yet.
    std::function<void(wxPoint point, bool copies)> dropped;

    /// The text of entries of another window was dropped where they may be. Returns false when it was
    /// refused; the entries then stay in the other window.
    std::function<bool(wxPoint point, bool copies, const std::string& text)> droppedText;

    /// The entries that are dragged from here, as text for another window.
    std::function<std::string()> text;

    /// Another window has taken the dragged entries over: they have to be removed here. The drag has not
    /// ended yet.
    std::function<void()> taken;

    /// A drag from here has ended.
    std::function<void()> ended;
};

/// Drags entries out of and into a window that paints itself. The text that travels is the same as that of
/// the trees (UiTreeView.h), so entries can be dragged between both.
class EntryDrag {
public:
    /// @param window  must live as long as the object
    static std::unique_ptr<EntryDrag> Create(wxWindow& window, EntryDragEvents events);

    virtual ~EntryDrag() = default;

    /// Begins a drag from the window. Call it while the window handles a move of the mouse with the left
    /// button down.
    virtual void Begin() = 0;
};

} // namespace nesk::platform
