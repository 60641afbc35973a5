#include "gui/TreeIcons.h"

#include <gtk/gtk.h>
#include <wx/evtloop.h>
#include <wx/image.h>
#include <wx/utils.h>
#include <wx/window.h>

namespace nesk::testing {

wxImage Drawn(wxWindow& window) {
    // A window gets its layout at the next tick of its clock, 60 a second.
    for (int i = 0; i < 10; ++i) {
        wxMilliSleep(10);
        wxEventLoopBase::GetActive()->YieldFor(wxEVT_CATEGORY_ALL);
    }
    const wxSize size = window.GetSize();
    cairo_surface_t* const surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.x, size.y);
    cairo_t* const context = cairo_create(surface);
    gtk_widget_draw(window.GetHandle(), context);
    cairo_destroy(context);
    GdkPixbuf* const pixels = gdk_pixbuf_get_from_surface(surface, 0, 0, size.x, size.y);
    cairo_surface_destroy(surface);
    const wxBitmap bitmap(pixels); // which takes it over
    return bitmap.ConvertToImage();
}

} // namespace nesk::testing
