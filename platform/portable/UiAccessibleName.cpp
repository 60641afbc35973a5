#include "platform/AccessibleName.h"

#include <gtk/gtk.h>
#include <wx/window.h>

namespace nesk::platform {

void SetAccessibleName(wxWindow& control, const std::string& name) {
    atk_object_set_name(gtk_widget_get_accessible(control.GetHandle()), name.c_str());
}

} // namespace nesk::platform
