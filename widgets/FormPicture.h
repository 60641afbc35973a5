#pragma once

#include <functional>
#include <string>

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/panel.h>

namespace nesk {

/// The area in which a dialog shows a picture, and the choice of another one.
///
/// The picture is shown at its natural size in the middle, squeezed where a side is longer than the area. A
/// picture that is missing, damaged or too large is not shown; its file name stands in its place.
class FormPicture : public wxPanel {
public:
    /// @param hostName     window name of the area, as "picItemHost"
    /// @param pictureName  window name of the picture in it, as "picItem"
    /// @param size         smallest size in device-independent pixels
    FormPicture(wxWindow* parent, const char* hostName, const char* pictureName,
                wxSize size = wxSize(180, 135));

    /// Windows path of the picture; "" for none. It may name a file that does not exist.
    const std::string& Path() const { return m_path; }
    void SetPath(const std::string& path);

    /// Lets the user choose a file; nothing changes when that is called off. A double click does the same.
    void Choose();

    /// Called whenever the path has been set.
    std::function<void()> onChanged;

    /// True when the picture is shown, and where it is drawn, in pixels of the area.
    bool ShowsPicture() const { return m_bitmap.IsOk(); }
    wxRect PictureRect() const;

    // The buttons beside the picture do the same; the keyboard passes it by.
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }
    bool AcceptsFocusRecursively() const override { return false; }

private:
    void Place();
    void OnPaintHost(wxPaintEvent& event);

    std::string m_path;
    wxImage m_image;
    wxBitmap m_bitmap; // the picture in the size in which it is drawn
    wxWindow* m_picture;
};

} // namespace nesk
