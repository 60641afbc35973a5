#include "partedit/FormSelectPart.h"

#include "partedit/FormSelectDrive.h"
#include "partedit/RepositoryRoot.h"
#include "shell/FileErrors.h"
#include "shell/FormIcons.h"
#include "shell/FormUtilities.h"
#include "shell/Messages.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/event.h>
#include <wx/evtloop.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/treectrl.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr int TitleText = 32047;
constexpr int SelectDriveText = 32068;
constexpr int RootText = 32069;
constexpr int ProgressText = 34201;   // %0% number of folders
constexpr int UnreadableText = 34205; // %0% number, %1% description, %2% path, %3% attributes
constexpr std::int32_t HelpTopic = 33004;

constexpr int ImageSize = 20;
// Often enough to be seen moving, seldom enough to cost nothing.
constexpr long ProgressMilliseconds = 50;
// So that a click on "Cancel" is seen at once.
constexpr long EventMilliseconds = 15;

enum Image { FolderImage, PartImage };

// What a node stands for. Folders have no tag.
class NodeData final : public wxTreeItemData {
public:
    explicit NodeData(std::string nodeTag) : tag(std::move(nodeTag)) {}
    const std::string tag;
};

} // namespace

FormSelectPart::FormSelectPart(wxWindow* parent)
    : FormDialog(parent, "FormSelectPart", TitleText, HelpTopic) {
    tvMain =
        new wxTreeCtrl(this, wxID_ANY, wxDefaultPosition, FromDIP(wxSize(420, 340)),
                       wxTR_HAS_BUTTONS | wxTR_LINES_AT_ROOT | wxTR_SINGLE, wxDefaultValidator, "tvMain");
    wxVector<wxBitmapBundle> images; // in the order of Image
    images.push_back(IconBundle("folder", wxSize(ImageSize, ImageSize)));
    images.push_back(IconBundle("part", wxSize(ImageSize, ImageSize)));
    tvMain->SetImages(images);
    lblProgress = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                   "lblProgress");
    cmdSelectDrive = NewButton(this, "cmdSelectDrive", SelectDriveText);

    auto* lower = new wxBoxSizer(wxHORIZONTAL);
    lower->Add(lblProgress, wxSizerFlags(1).CentreVertical());
    lower->Add(cmdSelectDrive);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(tvMain, wxSizerFlags(1).Expand());
    content->Add(lower, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    Finish(content);

    cmdOK->Disable();
    cmdSelectDrive->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SelectDrive(); });
    tvMain->Bind(wxEVT_TREE_SEL_CHANGED, [this](wxTreeEvent& event) { Choose(event.GetItem()); });
    // Of a click on the node that is selected already the tree says nothing, and after a scan the root is.
    tvMain->Bind(wxEVT_LEFT_DOWN, [this](wxMouseEvent& event) {
        event.Skip();
        int place = 0;
        const wxTreeItemId node = tvMain->HitTest(event.GetPosition(), place);
        if ((place & wxTREE_HITTEST_ONITEM) != 0 && node == tvMain->GetSelection()) Choose(node);
    });
    tvMain->Bind(wxEVT_TREE_ITEM_ACTIVATED, [this](wxTreeEvent& event) {
        // On a folder the tree does what it always does: it opens or closes it.
        if (TagOf(event.GetItem()).empty()) return event.Skip();
        OnOK();
    });
}

std::string FormSelectPart::SelectPart() {
    m_result.clear();
    m_cancelled = false;
    cmdCancel->Enable();
    // The scan needs the dialog on the screen, to be watched and called off.
    CallAfter([this] { BuildRepository(); });
    tvMain->SetFocus();
    ShowModal();
    return m_result;
}

void FormSelectPart::BuildRepository() {
    BuildTree(RepositoryRoot(), ResText(RootText));
}

void FormSelectPart::BuildTree(const std::string& path, const wxString& text) {
    m_startFolder = path;
    const wxTreeItemId root = StartTree(text);
    cmdOK->Disable();
    cmdSelectDrive->Disable();
    m_busy = true;
    m_foldersRead = 0;
    const wxCursor before = tvMain->GetCursor();
    tvMain->SetCursor(*wxHOURGLASS_CURSOR);
    // Without a folder there is nothing to read, and "*.*" alone would read another.
    if (!path.empty()) ScanParts(path, root.GetID(), *this);
    m_busy = false;
    if (m_cancelled) {
        EndModal(m_closeResult);
        return;
    }
    ShowProgress(m_foldersRead);
    tvMain->Expand(root);
    tvMain->SetCursor(before);
    cmdSelectDrive->Enable();
}

// A tree without a selection selects something by itself, sooner or later. That is no choice of the user's,
// and what was chosen before stays the result.
wxTreeItemId FormSelectPart::StartTree(const wxString& text) {
    const wxEventBlocker blocker(tvMain, wxEVT_TREE_SEL_CHANGED);
    tvMain->DeleteAllItems();
    const wxTreeItemId root = tvMain->AddRoot(text, FolderImage, FolderImage, new NodeData(""));
    tvMain->SelectItem(root);
    return root;
}

void FormSelectPart::SelectDrive() {
    const std::string drive = FormSelectDrive(this).SelectDrive(m_startFolder);
    if (drive == "*")
        BuildRepository();
    else if (!drive.empty())
        BuildTree(drive, ToWx(drive));
}

void FormSelectPart::Choose(const wxTreeItemId& node) {
    m_result = TagOf(node);
    cmdOK->Enable(!m_result.empty());
}

void FormSelectPart::OnOK() {
    const std::string tag = TagOf(tvMain->GetSelection());
    if (tag.empty()) return;
    m_result = tag;
    Close(wxID_OK);
}

// What was selected before stays the result, which is cleared when the dialog opens and at no other time.
void FormSelectPart::OnCancel() {
    Close(wxID_CANCEL);
}

void FormSelectPart::Close(int result) {
    if (!m_busy) return EndModal(result);
    m_cancelled = true;
    m_closeResult = result;
    cmdCancel->Disable();
}

std::string FormSelectPart::TagOf(const wxTreeItemId& node) const {
    return node.IsOk() ? static_cast<NodeData*>(tvMain->GetItemData(node))->tag : "";
}

PartScanVisitor::Node FormSelectPart::OnFolder(Node parent, const std::string&, const std::string& name) {
    return tvMain->AppendItem(wxTreeItemId(parent), ToWx(name), FolderImage, FolderImage, new NodeData(""))
        .GetID();
}

void FormSelectPart::OnPart(Node parent, const std::string& path, const std::string& name) {
    tvMain->AppendItem(wxTreeItemId(parent), ToWx(name), PartImage, PartImage,
                       new NodeData(PartInfoPath(path)));
}

void FormSelectPart::OnUnreadable(const std::string& path, int code, std::uint32_t attributes) {
    const NeskError error = FileError(code, "FormSelectPart", path);
    const std::string text =
        FormatResString(UnreadableText, error.number, modUtilities::MessageText(error), path, attributes);
    wxMessageDialog(this, ToWx(text), ResText(Message::ApplicationTitle), wxOK | wxICON_EXCLAMATION)
        .ShowModal();
}

bool FormSelectPart::OnProgress(std::size_t foldersRead) {
    m_foldersRead = foldersRead;
    // Looking for events takes longer than reading a folder.
    if (foldersRead > 0 && m_sinceEvents.Time() < EventMilliseconds) return !m_cancelled;
    m_sinceEvents.Start();
    if (m_sinceProgress.Time() >= ProgressMilliseconds) ShowProgress(foldersRead);
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    if (loop != nullptr && !loop->IsYielding()) loop->YieldFor(wxEVT_CATEGORY_ALL);
    return !m_cancelled;
}

void FormSelectPart::ShowProgress(std::size_t foldersRead) {
    m_sinceProgress.Start();
    lblProgress->SetLabelText(ToWx(FormatResString(ProgressText, foldersRead)));
}

} // namespace nesk
