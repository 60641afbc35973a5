#include "platform/portable/UiGtkEntries.h"

namespace nesk::platform::portable {

GtkTargetEntry EntryTarget() {
    static char name[] = "application/x-neskmanager-entries";
    return {name, 0, 0};
}

bool DragCopies(GdkDragContext* context) {
    GdkModifierType modifiers{};
    GdkWindow* const window = gdk_drag_context_get_dest_window(context);
    gdk_window_get_device_position(window, gdk_drag_context_get_device(context), nullptr, nullptr,
                                   &modifiers);
    return (modifiers & GDK_CONTROL_MASK) != 0;
}

void SetDragText(GtkSelectionData& data, const std::string& text) {
    gtk_selection_data_set(&data, gtk_selection_data_get_target(&data), 8,
                           reinterpret_cast<const guchar*>(text.data()), static_cast<int>(text.size()));
}

std::string DragText(const GtkSelectionData& data) {
    const int length = gtk_selection_data_get_length(&data);
    if (length <= 0) return "";
    const auto* const bytes = reinterpret_cast<const char*>(gtk_selection_data_get_data(&data));
    return {bytes, static_cast<std::size_t>(length)};
}

} // namespace nesk::platform::portable
