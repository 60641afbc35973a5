#pragma once

#include <functional>
#include <vector>

#include <wx/gdicmn.h>

namespace nesk::testing {

/// A drag with the real mouse: the button goes down at one point, and up again where the way ends. The steps
/// are made in the order in which they were added.
class MouseDrag {
public:
    /// @param from  a point of the screen
    explicit MouseDrag(wxPoint from);

    /// Moves to a point of the screen.
    /// @param point  called when the way to it begins
    MouseDrag& To(std::function<wxPoint()> point);
    MouseDrag& To(wxPoint point);

    /// Keeps the mouse still until a condition holds. If it does not hold in time, the test fails and the
    /// drag goes on.
    MouseDrag& RestUntil(std::function<bool()> condition);

    /// Holds a key down until the drag has ended.
    MouseDrag& Hold(int key);

    /// Runs an action.
    MouseDrag& Do(std::function<void()> act);

    /// Makes the drag. The test fails if it does not end.
    /// @param isOver  whether the program has finished the drag
    void Make(const std::function<bool()>& isOver);

private:
    wxPoint m_at;
    int m_key = 0;
    std::vector<std::function<bool()>> m_steps; // each is repeated until it returns true
};

} // namespace nesk::testing
