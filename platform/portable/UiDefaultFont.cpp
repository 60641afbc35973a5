#include "platform/DefaultFont.h"

#include <wx/font.h>
#include <wx/settings.h>

namespace nesk::platform {

std::string DefaultGuiFontFace() {
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName().utf8_string();
}

} // namespace nesk::platform
