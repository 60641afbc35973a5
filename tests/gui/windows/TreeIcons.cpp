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
    // Of a window that was just shown, the first copy under Wine is black.
    for (int i = 0; i < 2; ++i) {
        wxClientDC shown(&window);
        wxMemoryDC copy(bitmap);
        copy.Blit(wxPoint(), size, &shown, wxPoint());
    }
    return bitmap.ConvertToImage();
}

} // namespace nesk::testing
