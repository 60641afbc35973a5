#pragma once

#include "platform/UiFileTarget.h"

#include <memory>
#include <string>
#include <vector>

#include <gtk/gtk.h>
#include <wx/gdicmn.h>

namespace nesk::platform::portable {

/// Files that are dragged over a widget. The owner passes on the drag signals of the widget that are about
/// files. GTK tells the names of files only on request, so they come after the first signal of a drag.
class GtkFiles {
public:
    /// @param window  the widget's window
    /// @param target  the widget, which must accept drops already
    GtkFiles(wxWindow& window, GtkWidget* target, FileDragEvents events);
    ~GtkFiles();
    GtkFiles(const GtkFiles&) = delete;
    GtkFiles& operator=(const GtkFiles&) = delete;

    /// Returns whether a drag brings files.
    bool Brings(GdkDragContext* context) const;

    // Signals of the widget.
    gboolean OnMotion(GdkDragContext* context, wxPoint point, guint time);
    gboolean OnDrop(GdkDragContext* context, wxPoint point, guint time);
    void OnReceived(GdkDragContext* context, GtkSelectionData& data, guint time);
    void OnLeave();

private:
    enum class State {
        Away,
        Asked,    ///< the names were requested
        Known,    ///< the names are known
        Dropping, ///< the names were requested for a drop
    };

    void Answer(GdkDragContext* context, guint time);

    wxWindow& m_window;
    GtkWidget* m_target;
    FileDragEvents m_events;
    State m_state = State::Away;
    std::vector<std::string> m_paths;
    wxPoint m_point;
    std::shared_ptr<bool> m_isAlive = std::make_shared<bool>(true);
};

} // namespace nesk::platform::portable
