#include "platform/portable/UiGtkFiles.h"

#include "platform/common/NativePath.h"

#include <string_view>
#include <utility>

#include <wx/window.h>

namespace nesk::platform::portable {

namespace {

// True when a modal dialog is shown that the window of a widget has not been opened by. GTK sends drags to
// blocked windows too.
bool IsBlocked(GtkWidget* widget) {
    const auto isOpenedBy = [widget](gpointer dialog) {
        GtkWidget* const window = gtk_widget_get_toplevel(widget);
        for (gpointer at = window; at != nullptr; at = gtk_window_get_transient_for(GTK_WINDOW(at)))
            if (at == dialog) return true;
        return false;
    };
    GList* const windows = gtk_window_list_toplevels();
    bool isBlocked = false;
    for (const GList* at = windows; at != nullptr; at = at->next) {
        const bool isModal = gtk_window_get_modal(GTK_WINDOW(at->data)) != FALSE &&
                             gtk_widget_get_visible(GTK_WIDGET(at->data)) != FALSE;
        if (isModal && !isOpenedBy(at->data)) isBlocked = true;
    }
    g_list_free(windows);
    return isBlocked;
}

// The path of a file on this computer. Other addresses stay as they are: nothing is found there.
std::string PathOf(const char* uri) {
    char* host = nullptr;
    char* const name = g_filename_from_uri(uri, &host, nullptr);
    const std::string_view on = host != nullptr ? host : "";
    const bool isHere = on.empty() || on == "localhost" || on == g_get_host_name();
    std::string path = name != nullptr && isHere ? common::FromNativePath(name) : uri;
    g_free(host);
    g_free(name);
    return path;
}

std::vector<std::string> PathsIn(GtkSelectionData& data) {
    std::vector<std::string> paths;
    char** const uris = gtk_selection_data_get_uris(&data);
    if (uris == nullptr) return paths;
    for (char** uri = uris; *uri != nullptr; ++uri)
        paths.push_back(PathOf(*uri));
    g_strfreev(uris);
    return paths;
}

GdkAtom UriList() {
    return gdk_atom_intern_static_string("text/uri-list");
}

// Copying leaves the files where they are. The answer must be one that the other program offers.
GdkDragAction ActionOf(GdkDragContext* context) {
    const GdkDragAction offered = gdk_drag_context_get_actions(context);
    if ((offered & GDK_ACTION_COPY) != 0) return GDK_ACTION_COPY;
    return (offered & GDK_ACTION_LINK) != 0 ? GDK_ACTION_LINK : GDK_ACTION_MOVE;
}

} // namespace

GtkFiles::GtkFiles(wxWindow& window, GtkWidget* target, FileDragEvents events)
    : m_window(window), m_target(target), m_events(std::move(events)) {
    gtk_drag_dest_add_uri_targets(m_target);
}

GtkFiles::~GtkFiles() {
    *m_isAlive = false;
}

bool GtkFiles::Brings(GdkDragContext* context) const {
    return gtk_drag_dest_find_target(m_target, context, nullptr) == UriList();
}

gboolean GtkFiles::OnMotion(GdkDragContext* context, wxPoint point, guint time) {
    m_point = point;
    if (IsBlocked(m_target)) {
        OnLeave();
        gdk_drag_status(context, GdkDragAction(0), time);
    } else if (m_state == State::Known) {
        Answer(context, time);
    } else if (m_state == State::Away) {
        m_state = State::Asked;
        gtk_drag_get_data(m_target, context, UriList(), time);
    }
    return TRUE;
}

void GtkFiles::Answer(GdkDragContext* context, guint time) {
    const bool allowed = m_events.over(m_paths, m_point);
    gdk_drag_status(context, allowed ? ActionOf(context) : GdkDragAction(0), time);
}

gboolean GtkFiles::OnDrop(GdkDragContext* context, wxPoint point, guint time) {
    m_point = point;
    if (IsBlocked(m_target)) return FALSE;
    m_state = State::Dropping;
    gtk_drag_get_data(m_target, context, UriList(), time);
    return TRUE;
}

void GtkFiles::OnReceived(GdkDragContext* context, GtkSelectionData& data, guint time) {
    if (m_state == State::Asked) {
        m_state = State::Known;
        m_paths = PathsIn(data);
        return Answer(context, time);
    }
    if (m_state != State::Dropping) return;
    const std::vector<std::string> paths = PathsIn(data);
    // The answer to the last move allowed the drop. If it is refused now, the owner says why. The other
    // program never removes its files.
    gtk_drag_finish(context, TRUE, FALSE, time);
    m_state = State::Known;
    OnLeave();
    // The other program waits until the drag has ended.
    m_window.CallAfter([this, paths, point = m_point, isAlive = m_isAlive] {
        if (*isAlive) m_events.dropped(paths, point);
    });
}

void GtkFiles::OnLeave() {
    const State before = std::exchange(m_state, State::Away);
    m_paths.clear();
    if (before == State::Known) m_events.left();
}

} // namespace nesk::platform::portable
