#include "shell/FormReport.h"

#include "base/Messages.h"
#include "base/ReportMessages.h"
#include "base/SafeFile.h"
#include "checking/MenuCheck.h"
#include "checking/MenuReport.h"
#include "editing/MenuEditor.h"
#include "platform/SaveFileDialog.h"
#include "shell/UiReportPages.h"
#include "shell/modHelp.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/PictureFile.h"
#include "widgets/UiPictureFile.h"
#include "widgets/UiUtilities.h"

#include <unordered_map>
#include <utility>

#include <wx/base64.h>
#include <wx/button.h>
#include <wx/datetime.h>
#include <wx/filesys.h>
#include <wx/fs_mem.h>
#include <wx/html/htmlwin.h>
#include <wx/image.h>
#include <wx/imagpng.h>
#include <wx/mstream.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

// Long enough for the window to be painted before the report is made, which may take a while.
constexpr int PaintMilliseconds = 30;

// Longest side of a picture in the report, in pixels.
constexpr int PictureSide = 96;

// The picture as the bytes of a small PNG file; "" when it cannot be shown.
std::string SmallPicture(const std::string& path) {
    std::string file;
    // A file that cannot be read has no bytes, so it is no picture.
    static_cast<void>(ReadPictureFile(path, file));
    wxImage image = DecodeThumbnail(std::move(file), PictureSide).image;
    if (!image.IsOk()) return "";
    // With the default level, a report of many pictures takes half as long again and is a tenth smaller.
    image.SetOption(wxIMAGE_OPTION_PNG_COMPRESSION_LEVEL, 1);
    wxMemoryOutputStream stream;
    if (!image.SaveFile(stream, wxBITMAP_TYPE_PNG)) return "";
    std::string bytes(stream.GetSize(), '\0');
    stream.CopyTo(bytes.data(), bytes.size());
    return bytes;
}

} // namespace

// The small pictures of the report, each made once. The window and the printer find them in memory files.
class FormReport::Pictures {
public:
    Pictures() { wxFileSystem::AddHandler(&m_memory); }
    ~Pictures() {
        wxFileSystem::RemoveHandler(&m_memory);
        for (const auto& [path, picture] : m_pictures)
            if (!picture.bytes.empty()) wxMemoryFSHandler::RemoveFile(picture.name);
    }
    Pictures(const Pictures&) = delete;
    Pictures& operator=(const Pictures&) = delete;

    // Address of a picture inside a page that is saved.
    std::string Inside(const std::string& path) {
        const std::string& bytes = Of(path).bytes;
        if (bytes.empty()) return "";
        return "data:image/png;base64," + wxBase64Encode(bytes.data(), bytes.size()).ToStdString();
    }

    // Address of a picture for the window.
    std::string InMemory(const std::string& path) {
        const Picture& picture = Of(path);
        return picture.bytes.empty() ? "" : "memory:" + picture.name.ToStdString();
    }

private:
    struct Picture {
        std::string bytes;
        wxString name;
    };

    const Picture& Of(const std::string& path) {
        const auto [place, isNew] = m_pictures.try_emplace(path);
        Picture& picture = place->second;
        if (!isNew) return picture;
        picture.bytes = SmallPicture(path);
        if (picture.bytes.empty()) return picture;
        picture.name = wxString::Format("report-%zu.png", m_pictures.size());
        wxMemoryFSHandler::AddFileWithMimeType(picture.name, picture.bytes.data(), picture.bytes.size(),
                                               "image/png");
        return picture;
    }

    wxMemoryFSHandler m_memory;
    std::unordered_map<std::string, Picture> m_pictures;
};

FormReport::FormReport(wxWindow* parent, const MenuEditor& editor, const MenuCheck& check)
    : FormDialog(parent, "FormReport", Message::ReportTitle, modHelp::Topic::MainWindow)
    , m_editor(editor)
    , m_check(check)
    , m_pictures(std::make_unique<Pictures>()) {
    htmReport = new wxHtmlWindow(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(760, 480)),
                                 wxHW_SCROLLBAR_AUTO | wxBORDER_THEME, "htmReport");
    cmdPages = NewButton(this, "cmdPages", Message::ReportPages);
    cmdPrint = NewButton(this, "cmdPrint", Message::ReportPrint);
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(cmdPages);
    buttons->Add(cmdPrint, wxSizerFlags().Border(wxLEFT, Gap()));
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(htmReport, wxSizerFlags(1).Expand());
    content->Add(buttons, wxSizerFlags().Border(wxTOP, Gap()));
    Finish(content);
    cmdOK->SetLabel(ResText(Message::ReportSave));
    cmdCancel->SetLabel(ResText(Message::ReportClose));
    cmdPages->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnPages(); });
    cmdPrint->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { OnPrint(); });
}

FormReport::~FormReport() = default;

std::string FormReport::Page(Target target) {
    ReportOptions options;
    options.menuPath = m_editor.Path();
    options.isUnsaved = m_editor.IsDirty();
    options.date = modUtilities::FromWx(wxDateTime::Now().Format("%x %X"));
    options.pictureAddress = [this, target](const std::string& path) {
        // A file that has not been looked up may be on a server that does not answer.
        const FileFacts* facts = m_check.FactsOf(path, FileUse::Picture);
        if (facts == nullptr || facts->state != FileFacts::State::Good) return std::string();
        return target == Target::File ? m_pictures->Inside(path) : m_pictures->InMemory(path);
    };
    options.isForPaper = target == Target::Paper;
    return MenuReport(*m_editor.OpenMenu(), m_check, options);
}

void FormReport::Invoke(std::function<void()> prepare) {
    m_prepare = std::move(prepare);
    htmReport->SetPage("<p>" + ResText(Message::ReportMaking) + "</p>");
    for (wxWindow* button :
         {static_cast<wxWindow*>(cmdOK), static_cast<wxWindow*>(cmdPages), static_cast<wxWindow*>(cmdPrint)})
        button->Disable();
    htmReport->SetFocus();
    m_makeTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { MakePage(); });
    m_makeTimer.StartOnce(PaintMilliseconds);
    ShowModal();
}

void FormReport::MakePage() {
    const wxBusyCursor busy;
    if (m_prepare) m_prepare();
    htmReport->SetPage(ToWx(Page(Target::Window)));
    for (wxWindow* button :
         {static_cast<wxWindow*>(cmdOK), static_cast<wxWindow*>(cmdPages), static_cast<wxWindow*>(cmdPrint)})
        button->Enable();
    m_isMade = true;
}

void FormReport::OnOK() {
    const std::string folder = modUtilities::ParentFolder(m_editor.Path());
    const std::string path = platform::ShowSaveFileDialog(
        this, {LoadResString(Message::ReportSaveTitle), folder, LoadResString(Message::ReportFileName),
               LoadResString(Message::ReportFilter)});
    if (path.empty()) return;
    try {
        const wxBusyCursor busy;
        SafeFile file(path);
        file.Write(Page(Target::File));
        file.Commit({});
        // The window stays open: the report may be printed next.
        ShowReason(FormatResString(Message::ReportSaved, path));
    } catch (const NeskError& error) {
        modMessageBox::ShowMessage(FormatResString(Message::ReportNotSaved, modUtilities::MessageText(error)),
                                   modMessageBox::Option::Exclamation, LoadResString(Message::ErrorTitle));
    }
}

// Set up when it is first needed: that asks the system for its printers.
UiReportPages& FormReport::Printing() {
    if (!m_printing) {
        m_printing = std::make_unique<UiReportPages>(ToWx(std::string(m_editor.OpenMenu()->Caption())), this);
        m_printing->SetFooter("<center>" + ResText(Message::ReportPageNumber) + "</center>");
        m_printing->SetStandardFonts(9);
    }
    return *m_printing;
}

void FormReport::OnPages() {
    const wxBusyCursor busy;
    if (!Printing().PreviewText(ToWx(Page(Target::Paper)))) ShowReason(LoadResString(Message::ReportNoPages));
}

void FormReport::OnPrint() {
    Printing().PrintText(ToWx(Page(Target::Paper)));
}

} // namespace nesk
