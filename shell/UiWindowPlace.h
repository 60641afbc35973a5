#pragma once

#include "shell/WindowPlace.h"

#include <optional>

#include <wx/gdicmn.h>
#include <wx/timer.h>

class wxMoveEvent;
class wxSizeEvent;
class wxTopLevelWindow;

namespace nesk {

/// Puts a window where it was in the last run, and remembers where the user has put it.
class UiWindowPlace {
public:
    /// @param memory  must outlive the object
    UiWindowPlace(wxTopLevelWindow& window, WindowMemory& memory);
    ~UiWindowPlace();
    UiWindowPlace(const UiWindowPlace&) = delete;
    UiWindowPlace& operator=(const UiWindowPlace&) = delete;

    /// Gives the window its remembered size and place on the screens that there are now. Returns false when
    /// there is no remembered place.
    bool Restore();

    /// True when the window was maximized.
    bool WasMaximized() const;

    /// Puts the present size, place and state into the memory. A place that the user did not change is not
    /// remembered: on a screen that is back the window is where it was before.
    void Remember();

private:
    bool IsNormal() const;
    void OnSize(wxSizeEvent& event);
    void OnMove(wxMoveEvent& event);
    void OnSettled();

    wxTopLevelWindow& m_window;
    WindowMemory& m_memory;
    // The window system reports a new size before the state that caused it. So the size of a window that is
    // not maximized is known only a little later.
    wxTimer m_settling;
    std::optional<wxRect> m_placed; // where the program has put the window
    std::optional<wxRect> m_normal; // the last place while it was not maximized
};

} // namespace nesk
