#include "platform/UiEntryDrag.h"

#include "platform/portable/UiGtkEntries.h"
#include "platform/portable/UiGtkFiles.h"

#include <utility>

#include <wx/window.h>

namespace nesk::platform {

namespace {

using portable::DragCopies;
using portable::EntryTarget;

// wx tells the other window nothing about who removes entries that were moved, so GTK's signals are used.
class GtkEntryDrag final : public EntryDrag {
public:
    GtkEntryDrag(wxWindow& window, EntryDragEvents events)
        : m_events(std::move(events)), m_source(window.GetConnectWidget()), m_target(window.GetHandle()) {
        const GtkTargetEntry target = EntryTarget();
        // The outer widget receives drops, because scroll bars may lie over the edges of the inner one.
        gtk_drag_dest_set(m_target, GtkDestDefaults(0), &target, 1,
                          GdkDragAction(GDK_ACTION_MOVE | GDK_ACTION_COPY));
        if (m_events.files.over)
            m_files = std::make_unique<portable::GtkFiles>(window, m_target, m_events.files);
        ConnectTarget();
        ConnectSource();
    }

    ~GtkEntryDrag() override {
        g_signal_handlers_disconnect_matched(m_source, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
        g_signal_handlers_disconnect_matched(m_target, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
        gtk_drag_dest_unset(m_target);
    }

    void Begin() override {
        GdkEvent* const event = gtk_get_current_event();
        if (event == nullptr) return m_events.ended();
        const GtkTargetEntry target = EntryTarget();
        GtkTargetList* const targets = gtk_target_list_new(&target, 1);
        const GdkDragContext* const context = gtk_drag_begin_with_coordinates(
            m_source, targets, GdkDragAction(GDK_ACTION_MOVE | GDK_ACTION_COPY), GDK_BUTTON_PRIMARY, event,
            -1, -1);
        gtk_target_list_unref(targets);
        gdk_event_free(event);
        if (context == nullptr) m_events.ended();
    }

private:
    static GtkEntryDrag& Of(gpointer self) { return *static_cast<GtkEntryDrag*>(self); }

    void ConnectTarget() {
        const auto connect = [this](const char* signal, GCallback handler) {
            g_signal_connect(m_target, signal, handler, this);
        };
        connect("drag-motion",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self) {
                    return Of(self).OnMotion(context, wxPoint(x, y), time);
                }));
        connect("drag-drop",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, guint time, gpointer self) {
                    return Of(self).OnDrop(context, wxPoint(x, y), time);
                }));
        connect("drag-leave",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext*, guint, gpointer self) { Of(self).OnLeave(); }));
        connect("drag-data-received",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext* context, int x, int y, GtkSelectionData* data,
                               guint, guint time,
                               gpointer self) { Of(self).OnReceived(context, wxPoint(x, y), *data, time); }));
    }

    void ConnectSource() {
        const auto connect = [this](const char* signal, GCallback handler) {
            g_signal_connect(m_source, signal, handler, this);
        };
        connect("drag-data-get",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext*, GtkSelectionData* data, guint, guint,
                               gpointer self) { portable::SetDragText(*data, Of(self).m_events.text()); }));
        connect("drag-data-delete",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext*, gpointer self) { Of(self).m_events.taken(); }));
        connect("drag-end",
                G_CALLBACK(+[](GtkWidget*, GdkDragContext*, gpointer self) { Of(self).m_events.ended(); }));
    }

    bool BringsFiles(GdkDragContext* context) const { return m_files && m_files->Brings(context); }

    void OnLeave() {
        if (m_files) m_files->OnLeave();
        m_events.left();
    }

    gboolean OnMotion(GdkDragContext* context, wxPoint point, guint time) {
        if (BringsFiles(context)) return m_files->OnMotion(context, point, time);
        const bool copies = DragCopies(context);
        const bool allowed =
            gtk_drag_dest_find_target(m_target, context, nullptr) != GDK_NONE && m_events.over(point, copies);
        gdk_drag_status(context,
                        !allowed ? GdkDragAction(0)
                        : copies ? GDK_ACTION_COPY
                                 : GDK_ACTION_MOVE,
                        time);
        return TRUE;
    }

    gboolean OnDrop(GdkDragContext* context, wxPoint point, guint time) {
        if (BringsFiles(context)) return m_files->OnDrop(context, point, time);
        GdkAtom target = gtk_drag_dest_find_target(m_target, context, nullptr);
        if (target == GDK_NONE) return FALSE;
        if (!m_events.isKnown()) {
            // The other window has to send the entries first.
            gtk_drag_get_data(m_target, context, target, time);
            return TRUE;
        }
        m_events.dropped(point, DragCopies(context));
        gtk_drag_finish(context, TRUE, FALSE, time);
        return TRUE;
    }

    void OnReceived(GdkDragContext* context, wxPoint point, GtkSelectionData& data, guint time) {
        if (BringsFiles(context)) return m_files->OnReceived(context, data, time);
        const bool copies = gdk_drag_context_get_selected_action(context) == GDK_ACTION_COPY;
        const std::string text = portable::DragText(data);
        const bool dropped = !text.empty() && m_events.droppedText(point, copies, text);
        // What was moved is removed from the other window.
        gtk_drag_finish(context, gboolean{dropped}, gboolean{dropped && !copies}, time);
    }

    EntryDragEvents m_events;
    GtkWidget* m_source;
    GtkWidget* m_target;
    std::unique_ptr<portable::GtkFiles> m_files; // null when the window takes no files
};

} // namespace

std::unique_ptr<EntryDrag> EntryDrag::Create(wxWindow& window, EntryDragEvents events) {
    return std::make_unique<GtkEntryDrag>(window, std::move(events));
}

} // namespace nesk::platform
