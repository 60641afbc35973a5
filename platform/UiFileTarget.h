#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/gdicmn.h>

class wxWindow;

namespace nesk::platform {

/// The events of files that are dragged over a window from the system's file manager. Paths are Windows
/// paths; there are none when something else than files is dragged in their format. Points are in client
/// coordinates of the window. While a modal dialog blocks the window, there are no events.
struct FileDragEvents {
    /// Files are over a point. Returns whether they may be dropped there.
    std::function<bool(const std::vector<std::string>& paths, wxPoint point)> over;

    /// The files have left the window, or were dropped.
    std::function<void()> left;

    /// Files were dropped where they may be. The drag has ended, so dialogs may be shown.
    std::function<void(const std::vector<std::string>& paths, wxPoint point)> dropped;
};

/// Accepts files that are dragged to a window.
class FileTarget {
public:
    /// @param window  must live as long as the object
    static std::unique_ptr<FileTarget> Create(wxWindow& window, FileDragEvents events);

    virtual ~FileTarget() = default;
};

} // namespace nesk::platform
