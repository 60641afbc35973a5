#include "gui/TreeIcons.h"

#include <wx/dcclient.h>
#include <wx/dcmemory.h>
#include <wx/image.h>
#include <wx/window.h>

namespace nesk::testing {

wxImage Drawn(wxWindow& window) {
    window.Refresh();
    window.Update();
    const wxSize size = window.GetClientSize();
    wxBitmap bitmap(size);
    {
        wxClientDC shown(&window);
        wxMemoryDC copy(bitmap);
        copy.Blit(wxPoint(), size, &shown, wxPoint());
    }
    return bitmap.ConvertToImage();
}

} // namespace nesk::testing
