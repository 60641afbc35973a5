#include "menu/FormPicture.h"

#include "menu/PictureChoice.h"
#include "menu/PictureHeader.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/OpenFileDialog.h"
#include "settings/NeskRegistry.h"
#include "shell/FormUtilities.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <memory>

#include <wx/control.h>
#include <wx/dcbuffer.h>
#include <wx/imagbmp.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/settings.h>

namespace nesk {

namespace {

constexpr int ChoosePictureTitle = 32026;

// A button picture is a few hundred pixels wide. What is larger than this would cost memory for nothing.
constexpr std::size_t LargestFile = std::size_t{64} << 20;
constexpr std::int64_t MostPixels = 50'000'000;

// The bytes of a file; nothing when it cannot be read or is too large.
std::string ReadFile(const std::string& path) {
    std::unique_ptr<platform::FileReader> reader;
    if (platform::StationFiles().OpenForReading(path, reader) != platform::ErrorCode::Success) return "";
    std::string bytes;
    for (;;) {
        const std::size_t size = bytes.size();
        constexpr std::size_t step = std::size_t{1} << 16;
        bytes.resize(size + step);
        std::size_t count = 0;
        const int result = reader->Read(bytes.data() + size, step, count);
        bytes.resize(size + count);
        if (result != platform::ErrorCode::Success || bytes.size() > LargestFile) return "";
        if (count == 0) return bytes;
    }
}

wxImage LoadPicture(const std::string& path) {
    const std::string bytes = ReadFile(path);
    const std::optional<PictureSize> size = ReadPictureSize(bytes);
    if (!size || size->width <= 0 || size->height <= 0 || size->width > MostPixels / size->height) return {};
    // What is wrong with a picture shows itself by its absence; a message for each would be in the way.
    const wxLogNull silent;
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return wxImage(stream);
}

template <typename Handler>
void Register() {
    auto* handler = new Handler;
    if (wxImage::FindHandler(handler->GetName()) == nullptr)
        wxImage::AddHandler(handler);
    else
        delete handler;
}

// The formats of pictures. The toolkit knows BMP by itself.
void RegisterFormats() {
    Register<wxPNGHandler>();
    Register<wxJPEGHandler>();
    Register<wxGIFHandler>();
    Register<wxICOHandler>();
}

} // namespace

FormPicture::FormPicture(wxWindow* parent, const char* hostName, const char* pictureName)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, parent->FromDIP(wxSize(180, 135)),
              wxBORDER_THEME | wxFULL_REPAINT_ON_RESIZE, hostName) {
    RegisterFormats();
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
}

void FormPicture::SetPath(const std::string& path) {
    m_path = path;
    m_image = PictureChoice::NamesPicture(path) ? LoadPicture(path) : wxImage();
    SetToolTip(modUtilities::ToWx(path));
    m_picture->SetToolTip(modUtilities::ToWx(path));
    Place();
    Refresh();
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
    m_picture->Show(m_bitmap.IsOk());
    m_picture->Refresh();
}

wxRect FormPicture::PictureRect() const {
    return m_picture->GetRect();
}

void FormPicture::OnPaintHost(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    dc.Clear();
    if (m_bitmap.IsOk() || m_path.empty()) return;
    dc.SetFont(GetFont());
    dc.SetTextForeground(wxSystemSettings::GetColour(wxSYS_COLOUR_GRAYTEXT));
    const wxString name = modUtilities::ToWx(m_path.substr(m_path.find_last_of('\\') + 1));
    const wxRect area = GetClientRect().Deflate(FromDIP(4));
    const wxString text = wxControl::Ellipsize(name, dc, wxELLIPSIZE_MIDDLE, area.width);
    dc.DrawLabel(text, area, wxALIGN_CENTRE);
}

void FormPicture::Choose() {
    const std::string folder =
        modUtilities::ExistingFolderOf(m_path, NeskRegistry::Instance().DefaultBitmapDirectory);
    const std::string chosen = platform::ShowOpenFileDialog(
        wxGetTopLevelParent(this), {modStringRes::LoadResString(ChoosePictureTitle), folder, m_path, ""});
    if (chosen.empty()) return;
    SetPath(chosen);
    if (onChosen) onChosen();
}

} // namespace nesk
