#include "widgets/FormPicture.h"

#include "base/FileDropMessages.h"
#include "base/Messages.h"
#include "checking/FileDrop.h"
#include "platform/OpenFileDialog.h"
#include "settings/NeskRegistry.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/PictureChoice.h"
#include "widgets/UiPictureFile.h"
#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/settings.h>
#include <wx/utils.h>

namespace nesk {

FormPicture::FormPicture(wxWindow* parent, const char* hostName, const char* pictureName, wxSize size)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(size),
              wxBORDER_THEME | wxFULL_REPAINT_ON_RESIZE, hostName) {
    SetMinSize(GetSize());
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_picture = new wxWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE, pictureName);
    m_picture->SetBackgroundStyle(wxBG_STYLE_PAINT);
    m_picture->Bind(wxEVT_PAINT, [this](wxPaintEvent&) {
        wxAutoBufferedPaintDC dc(m_picture);
        dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
        dc.Clear();
        if (m_bitmap.IsOk()) dc.DrawBitmap(m_bitmap, 0, 0, true);
    });
    Bind(wxEVT_PAINT, &FormPicture::OnPaintHost, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Place();
        event.Skip();
    });
    const auto choose = [this](wxMouseEvent&) { Choose(); };
    Bind(wxEVT_LEFT_DCLICK, choose);
    m_picture->Bind(wxEVT_LEFT_DCLICK, choose);
    m_target = platform::FileTarget::Create(*this, FileEvents());
}

FormPicture::~FormPicture() = default;

void FormPicture::SetPath(const std::string& path) {
    m_path = path;
    m_image = PictureChoice::IsPictureName(path) ? LoadPicture(path) : wxImage();
    SetToolTip(modUtilities::ToWx(path));
    m_picture->SetToolTip(modUtilities::ToWx(path));
    Place();
    Refresh();
    if (onChanged) onChanged();
}

void FormPicture::Place() {
    m_bitmap = wxBitmap();
    if (m_image.IsOk()) {
        const wxSize host = GetClientSize();
        const auto at = PictureChoice::Place(m_image.GetWidth(), m_image.GetHeight(), host.x, host.y);
        if (at.width > 0 && at.height > 0) {
            m_bitmap = wxBitmap(m_image.Scale(at.width, at.height, wxIMAGE_QUALITY_BILINEAR));
            m_picture->SetSize(at.left, at.top, at.width, at.height);
        }
    }
    m_picture->Show(m_bitmap.IsOk() && m_dropText.empty());
    m_picture->Refresh();
}

wxRect FormPicture::PictureRect() const {
    return m_picture->GetRect();
}

void FormPicture::OnPaintHost(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    dc.Clear();
    if (!m_dropText.empty())
        DrawText(dc, m_dropText);
    else if (!m_bitmap.IsOk() && !m_path.empty())
        DrawText(dc, m_path.substr(m_path.find_last_of('\\') + 1));
}

void FormPicture::DrawText(wxDC& dc, const std::string& text) {
    dc.SetFont(GetFont());
    const wxRect area = GetClientRect().Deflate(FromDIP(4));
    if (m_dropText.empty()) {
        dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
        const wxString name = modUtilities::ToWx(text);
        dc.DrawLabel(wxControl::Ellipsize(name, dc, wxELLIPSIZE_MIDDLE, area.width), area, wxALIGN_CENTRE);
        return;
    }
    const std::string lines = WrappedText(text, area.width, [&](std::string_view part) {
        return dc.GetTextExtent(modUtilities::ToWx(part)).x;
    });
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    // The pointer with what is dragged is often in the middle.
    dc.DrawLabel(modUtilities::ToWx(lines), area, wxALIGN_CENTRE_HORIZONTAL | wxALIGN_TOP);
}

void FormPicture::Choose() {
    const std::string folder =
        modUtilities::ExistingFolderOf(m_path, NeskRegistry::Instance().DefaultBitmapDirectory);
    // No file filter, because pictures are recognised by their content and not by their name.
    const std::string chosen = platform::ShowOpenFileDialog(
        wxGetTopLevelParent(this),
        {modStringRes::LoadResString(Message::PictureChoosePictureTitle), folder, m_path, ""});
    if (chosen.empty()) return;
    SetPath(chosen);
}

// --- dropped files ---

platform::FileDragEvents FormPicture::FileEvents() {
    platform::FileDragEvents events;
    events.over = [this](const std::vector<std::string>& paths, wxPoint) { return DragFiles(paths); };
    events.left = [this] {
        m_dragged.reset();
        ShowDropText("");
    };
    events.dropped = [this](const std::vector<std::string>& paths, wxPoint) { DropFiles(paths); };
    return events;
}

bool FormPicture::DragFiles(const std::vector<std::string>& paths) {
    if (!IsEnabled()) return false;
    if (!m_dragged || m_dragged->Paths() != paths) m_dragged = std::make_unique<FileDrop>(paths);
    const FileDrop::Effect effect = m_dragged->OnPictureBox();
    ShowDropText(effect.text);
    return effect.action != FileDrop::Action::Refuse;
}

void FormPicture::DropFiles(const std::vector<std::string>& paths) {
    FileDrop drop(paths);
    {
        const wxBusyCursor busy;
        drop.LookNow();
    }
    const FileDrop::Effect effect = drop.OnPictureBox();
    if (effect.action == FileDrop::Action::SetPicture)
        SetPath(paths.front());
    else
        modMessageBox::ShowMessage(modStringRes::FormatResString(Message::FileDropFailed, effect.text),
                                   modMessageBox::Option::Critical);
}

void FormPicture::ShowDropText(const std::string& text) {
    if (m_dropText == text) return;
    m_dropText = text;
    m_picture->Show(m_bitmap.IsOk() && text.empty());
    Refresh();
}

} // namespace nesk
