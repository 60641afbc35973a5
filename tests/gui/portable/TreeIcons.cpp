#include "gui/TreeIcons.h"

#include <gtk/gtk.h>
#include <wx/image.h>
#include <wx/window.h>

namespace nesk::testing {

wxImage Drawn(wxWindow& window) {
    const wxSize size = window.GetSize();
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.x, size.y);
    cairo_t* const context = cairo_create(surface);
    // Nothing is drawn before the layout.
    gtk_container_check_resize(GTK_CONTAINER(gtk_widget_get_toplevel(window.GetHandle())));
    gtk_widget_draw(window.GetHandle(), context);
    cairo_destroy(context);
    GdkPixbuf* const pixels = gdk_pixbuf_get_from_surface(surface, 0, 0, size.x, size.y);
    cairo_surface_destroy(surface);
    const wxBitmap bitmap(pixels); // takes ownership of `pixels`
    return bitmap.ConvertToImage();
}

} // namespace nesk::testing
