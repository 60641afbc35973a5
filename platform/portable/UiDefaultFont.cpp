#include "platform/DefaultFont.h"

#include <pango/pangocairo.h>
#include <wx/font.h>
#include <wx/settings.h>

namespace nesk::platform {

std::string DefaultGuiFontFace() {
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName().utf8_string();
}

// Creating the font map starts a thread that reads the font configuration. Otherwise this would happen when
// the first text is measured, while the window waits.
void PrepareFonts() {
    pango_cairo_font_map_get_default();
}

} // namespace nesk::platform
