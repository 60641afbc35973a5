#pragma once

#include <functional>
#include <string>
#include <vector>

#include <wx/dnd.h>
#include <wx/gdicmn.h>

class wxWindow;

namespace nesk::testing {

class MouseDrag;

/// A small window from which files are dragged with the real mouse, as from the system's file manager.
class FileSource {
public:
    /// @param in  the window that contains it, in its upper left corner. A modal dialog blocks all others
    explicit FileSource(wxWindow& in);
    ~FileSource();
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;

    /// Drags files to a point of the screen and drops them there.
    /// @param paths  Windows paths
    /// @param held   runs at the end of the way, before the button is released
    /// @return what the target answered
    wxDragResult Drag(const std::vector<std::string>& paths, wxPoint to,
                      const std::function<void()>& held = nullptr);

    /// The same with another way.
    /// @param way  adds the steps of a drag that has begun in this window
    wxDragResult DragAlong(const std::vector<std::string>& paths, const std::function<void(MouseDrag&)>& way);

private:
    void OnPressed();

    wxWindow* m_window;
    std::vector<std::string> m_paths;
    bool m_isBegun = false;
    bool m_isOver = false;
    wxDragResult m_result = wxDragNone;
};

/// Checks that the target has refused files. GTK does not tell the source: a test must also check that
/// nothing has changed.
void ExpectRefused(wxDragResult result);

} // namespace nesk::testing
