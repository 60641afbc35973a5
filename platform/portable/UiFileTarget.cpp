#include "platform/UiFileTarget.h"

#include "platform/portable/UiGtkFiles.h"

#include <utility>

#include <wx/window.h>

namespace nesk::platform {

namespace {

// A drop target of wx does not tell the names of the files before they are dropped, so GTK's signals are
// used.
class GtkFileTarget final : public FileTarget {
public:
    GtkFileTarget(wxWindow& window, FileDragEvents events)
        : m_target(Prepared(window)), m_files(window, m_target, std::move(events)) {
        const auto connect = [this](const char* signal, GCallback handler) {
            g_signal_connect(m_target, signal, handler, this);
        };
        connect("drag-motion",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self) {
                    GtkFiles& files = Of(self).m_files;
                    return files.Brings(context) ? files.OnMotion(context, wxPoint(x, y), time) : FALSE;
                }));
        connect("drag-drop",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self) {
                    GtkFiles& files = Of(self).m_files;
                    return files.Brings(context) ? files.OnDrop(context, wxPoint(x, y), time) : FALSE;
                }));
        connect("drag-leave", G_CALLBACK(+[](GtkWidget*, GdkDragContext*, guint, gpointer self) {
                    Of(self).m_files.OnLeave();
                }));
        connect("drag-data-received",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int, int, GtkSelectionData* data, guint,
                               guint time,
                               gpointer self) { Of(self).m_files.OnReceived(context, *data, time); }));
    }

    ~GtkFileTarget() override {
        g_signal_handlers_disconnect_matched(m_target, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
        gtk_drag_dest_unset(m_target);
    }

private:
    using GtkFiles = portable::GtkFiles;

    static GtkFileTarget& Of(gpointer self) { return *static_cast<GtkFileTarget*>(self); }

    static GtkWidget* Prepared(wxWindow& window) {
        GtkWidget* const target = window.GetHandle();
        gtk_drag_dest_set(target, GtkDestDefaults(0), nullptr, 0,
                          GdkDragAction(GDK_ACTION_COPY | GDK_ACTION_LINK | GDK_ACTION_MOVE));
        return target;
    }

    GtkWidget* m_target;
    GtkFiles m_files;
};

} // namespace

std::unique_ptr<FileTarget> FileTarget::Create(wxWindow& window, FileDragEvents events) {
    return std::make_unique<GtkFileTarget>(window, std::move(events));
}

} // namespace nesk::platform
