#include "platform/AccessibleName.h"

#include <wx/access.h>
#include <wx/window.h>

namespace nesk::platform {

namespace {

// Provides only the name; the system provides everything else about its own controls.
class NamedControl final : public wxAccessible {
public:
    NamedControl(wxWindow* control, const std::string& name)
        : wxAccessible(control), m_name(wxString::FromUTF8(name.data(), name.size())) {}

    wxAccStatus GetName(int childId, wxString* name) override {
        if (childId != wxACC_SELF) return wxACC_NOT_IMPLEMENTED;
        *name = m_name;
        return wxACC_OK;
    }

private:
    wxString m_name;
};

} // namespace

void SetAccessibleName(wxWindow& control, const std::string& name) {
    control.SetAccessible(new NamedControl(&control, name));
}

} // namespace nesk::platform
