#include "platform/DefaultFont.h"

#include <pango/pangocairo.h>
#include <wx/font.h>
#include <wx/settings.h>

namespace nesk::platform {

std::string DefaultGuiFontFace() {
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName().utf8_string();
}

// Making the font map makes it read the configuration of fonts in a thread of its own. By itself it would do
// so when the first text is measured, with the window waiting.
void PrepareFonts() {
    pango_cairo_font_map_get_default();
}

} // namespace nesk::platform
