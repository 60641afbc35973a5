#pragma once

#include "platform/UiFileTarget.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <wx/bitmap.h>
#include <wx/image.h>
#include <wx/panel.h>

namespace nesk {

class FileDrop;

/// An area that shows a picture in a dialog, and lets the user choose another picture.
///
/// The picture is shown in its natural size in the middle. A side that is longer than the area is shrunk to
/// fit. When a picture is missing, damaged or too large, its file name is shown instead.
///
/// A picture file can be dropped on the area. While files are dragged over it, the area says what a drop
/// does.
class FormPicture : public wxPanel {
public:
    /// @param hostName     window name of the area, for example "picItemHost"
    /// @param pictureName  window name of the picture in it, for example "picItem"
    /// @param size         minimum size in device-independent pixels
    FormPicture(wxWindow* parent, const char* hostName, const char* pictureName,
                wxSize size = wxSize(180, 135));
    ~FormPicture() override;

    /// Windows path of the picture; "" for no picture. The file need not exist.
    const std::string& Path() const { return m_path; }
    void SetPath(const std::string& path);

    /// Lets the user choose a file. Nothing changes when the user cancels. A double click does the same.
    void Choose();

    /// What a drop of the files that are dragged over the area does, or why they are refused; "" while no
    /// files are there.
    const std::string& DropText() const { return m_dropText; }

    /// Called after each change of the path.
    std::function<void()> onChanged;

    /// Whether the picture is shown, and its rectangle in pixels of the area.
    bool ShowsPicture() const { return m_bitmap.IsOk(); }
    wxRect PictureRect() const;

    // The area takes no keyboard focus, because the buttons next to the picture do the same.
    bool AcceptsFocus() const override { return false; }
    bool AcceptsFocusFromKeyboard() const override { return false; }
    bool AcceptsFocusRecursively() const override { return false; }

private:
    void Place();
    void OnPaintHost(wxPaintEvent& event);
    void DrawText(wxDC& dc, const std::string& text);
    platform::FileDragEvents FileEvents();
    bool DragFiles(const std::vector<std::string>& paths);
    void DropFiles(const std::vector<std::string>& paths);
    void ShowDropText(const std::string& text);

    std::string m_path;
    wxImage m_image;
    wxBitmap m_bitmap; // the picture in its displayed size
    wxWindow* m_picture;
    std::unique_ptr<FileDrop> m_dragged; // the files over the area
    std::string m_dropText;
    std::unique_ptr<platform::FileTarget> m_target;
};

} // namespace nesk
