#include "partedit/FormSelectPart.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "partedit/FormSelectDrive.h"
#include "partedit/RepositoryRoot.h"
#include "platform/TextEncoding.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"
#include "widgets/UiIcons.h"
#include "widgets/UiUtilities.h"

#include <memory>
#include <utility>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/event.h>
#include <wx/evtloop.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/utils.h>

namespace nesk {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using modUtilities::ResText;
using modUtilities::ToWx;
using platform::TreeNode;
using platform::TreeView;

namespace {

constexpr std::int32_t HelpTopic = 33010;

// Frequent enough to look continuous, rare enough to cost no time.
constexpr long ProgressMilliseconds = 50;
// Short enough that a click on "Cancel" takes effect at once.
constexpr long EventMilliseconds = 15;

enum Image { FolderImage, PartImage };

std::unique_ptr<TreeNode> FolderNode(const std::string& text) {
    return std::make_unique<TreeNode>(text, FolderImage, "");
}

TreeView& MakeView(wxWindow* parent) {
    platform::TreeStyle style;
    style.size = parent->FromDIP(wxSize(420, 340));
    style.details = true;
    return *TreeView::Create(parent, "tvMain", style);
}

// The path of the partinfo.ini of a node; "" for a folder and for null.
std::string TagOf(const TreeNode* node) {
    return node != nullptr ? node->Key() : "";
}

} // namespace

FormSelectPart::FormSelectPart(wxWindow* parent)
    : FormDialog(parent, "FormSelectPart", Message::PartTreeTitle, HelpTopic) {
    tvMain = &MakeView(this);
    const wxSize size = tvMain->ImageSize();
    tvMain->SetImages({IconBundle("folder", size), IconBundle("part", size)}); // in the order of Image
    tvMain->SetAccessibleName(LoadResString(Message::PartTreeRoot));
    lblProgress = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxST_NO_AUTORESIZE,
                                   "lblProgress");
    cmdSelectDrive = NewButton(this, "cmdSelectDrive", Message::SelectDrive);

    auto* lower = new wxBoxSizer(wxHORIZONTAL);
    lower->Add(lblProgress, wxSizerFlags(1).CentreVertical());
    lower->Add(cmdSelectDrive);
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(&tvMain->Window(), wxSizerFlags(1).Expand());
    content->Add(lower, wxSizerFlags().Expand().Border(wxTOP, Gap()));
    Finish(content);

    cmdOK->Disable();
    cmdSelectDrive->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SelectDrive(); });
    tvMain->on.selectionChanged = [this] { Choose(tvMain->Selected()); };
    // A click on the selected node also chooses it: after a scan, the selected node is the root.
    tvMain->on.clicked = [this](TreeNode& node) { Choose(&node); };
    tvMain->on.activated = [this](TreeNode& node) {
        // On a folder, the tree keeps its default behaviour: it opens or closes the folder.
        if (TagOf(&node).empty()) return false;
        OnOK();
        return true;
    };
}

FormSelectPart::~FormSelectPart() {
    tvMain->on = {};
}

std::string FormSelectPart::SelectPart() {
    m_result.clear();
    m_cancelled = false;
    cmdCancel->Enable();
    // The dialog must be visible before the scan starts, so that the user can watch and cancel it.
    CallAfter([this] { BuildRepository(); });
    tvMain->Window().SetFocus();
    ShowModal();
    return m_result;
}

void FormSelectPart::BuildRepository() {
    BuildTree(RepositoryRoot(), LoadResString(Message::PartTreeRoot));
}

void FormSelectPart::BuildTree(const std::string& path, const std::string& text) {
    m_startFolder = path;
    TreeNode& root = StartTree(text);
    cmdOK->Disable();
    cmdSelectDrive->Disable();
    m_busy = true;
    m_touched = m_skipsUnreadable = false;
    m_unreadable.clear();
    m_foldersRead = 0;
    wxWindow& tree = tvMain->Window();
    const wxCursor before = tree.GetCursor();
    tree.SetCursor(*wxHOURGLASS_CURSOR);
    // Without a folder there is nothing to read, and the pattern "*.*" alone would read another folder.
    if (!path.empty()) ScanParts(path, &root, *this);
    m_busy = false;
    if (m_cancelled) {
        EndModal(m_closeResult);
        return;
    }
    ShowProgress(m_foldersRead);
    tvMain->Expand(root);
    tree.SetCursor(before);
    cmdSelectDrive->Enable();
    ListUnreadable();
}

// The user did not make this selection, so the result of an earlier selection must stay.
TreeNode& FormSelectPart::StartTree(const std::string& text) {
    const TreeView::Quiet quiet(*tvMain);
    TreeNode& root = tvMain->SetRoot(FolderNode(text));
    tvMain->Select(&root);
    return root;
}

void FormSelectPart::SelectDrive() {
    const std::string drive = FormSelectDrive(this).SelectDrive(m_startFolder);
    if (drive == "*")
        BuildRepository();
    else if (!drive.empty())
        BuildTree(drive, drive);
}

void FormSelectPart::Choose(const TreeNode* node) {
    m_touched = true;
    m_result = TagOf(node);
    cmdOK->Enable(!m_result.empty());
}

void FormSelectPart::OnOK() {
    const std::string tag = TagOf(tvMain->Selected());
    if (tag.empty()) return;
    m_result = tag;
    Close(wxID_OK);
}

// The result of an earlier selection stays. It is cleared only when the dialog opens.
void FormSelectPart::OnCancel() {
    Close(wxID_CANCEL);
}

void FormSelectPart::Close(int result) {
    if (!m_busy) return EndModal(result);
    m_cancelled = true;
    m_closeResult = result;
    cmdCancel->Disable();
}

// Selects the current part of the button, unless the user has already selected something.
void FormSelectPart::Preselect(TreeNode& part) {
    if (m_touched || m_current.empty() || !platform::EqualNoCase(part.Key(), m_current)) return;
    const TreeView::Quiet quiet(*tvMain);
    tvMain->Select(&part);
    tvMain->EnsureVisible(part);
    cmdOK->Enable();
}

PartScanVisitor::Node FormSelectPart::OnFolder(Node parent, const std::string&, const std::string& name) {
    return &tvMain->Append(*static_cast<TreeNode*>(parent), FolderNode(name));
}

void FormSelectPart::OnPart(Node parent, const std::string& path, const std::string& name,
                            const std::string& partName) {
    auto part = std::make_unique<TreeNode>(name, PartImage, PartInfoPath(path));
    if (partName != name) part->SetDetail(partName);
    Preselect(tvMain->Append(*static_cast<TreeNode*>(parent), std::move(part)));
}

// A drive may contain thousands of unreadable folders. After the first message, the user can skip the
// messages for all others, which are then listed at the end.
void FormSelectPart::OnUnreadable(const std::string& path, platform::ErrorCode code,
                                  std::uint32_t attributes) {
    const NeskError error = FileError(code, "FormSelectPart", path);
    const std::string text = FormatResString(Message::PartTreeUnreadable, error.number,
                                             modUtilities::MessageText(error), path, attributes);
    if (m_skipsUnreadable) {
        m_unreadable.push_back(text);
        return;
    }
    wxMessageDialog box(this, ToWx(text), ResText(Message::ApplicationTitle),
                        wxOK | wxCANCEL | wxICON_EXCLAMATION);
    box.SetOKCancelLabels(ResText(Message::PartTreeNext), ResText(Message::PartTreeSkipAll));
    m_skipsUnreadable = box.ShowModal() != wxID_OK;
}

void FormSelectPart::ListUnreadable() {
    if (m_unreadable.empty()) return;
    std::string text = FormatResString(Message::PartTreeUnreadableList, m_unreadable.size());
    for (const std::string& place : m_unreadable)
        text.append("\n").append(place);
    modMessageBox::ShowMessage(text, modMessageBox::Option::Exclamation);
}

bool FormSelectPart::OnProgress(std::size_t foldersRead) {
    m_foldersRead = foldersRead;
    // Processing events takes longer than reading a folder.
    if (foldersRead > 0 && m_sinceEvents.Time() < EventMilliseconds) return !m_cancelled;
    m_sinceEvents.Start();
    if (m_sinceProgress.Time() >= ProgressMilliseconds) ShowProgress(foldersRead);
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    if (loop != nullptr && !loop->IsYielding()) loop->YieldFor(wxEVT_CATEGORY_ALL);
    return !m_cancelled;
}

void FormSelectPart::ShowProgress(std::size_t foldersRead) {
    m_sinceProgress.Start();
    lblProgress->SetLabelText(ToWx(FormatResString(Message::PartTreeProgress, foldersRead)));
}

} // namespace nesk
