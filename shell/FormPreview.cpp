#include "shell/FormPreview.h"

#include "base/PreviewMessages.h"
#include "menu/MenuItem.h"
#include "shell/UiOperatorScreen.h"
#include "shell/modStringRes.h"
#include "widgets/UiUtilities.h"

#include <array>

#include <wx/button.h>
#include <wx/choice.h>
#include <wx/display.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/tglbtn.h>
#include <wx/toplevel.h>
#include <wx/utils.h>
#include <wx/wrapsizer.h>

namespace nesk {

using modStringRes::FormatResString;
using modUtilities::ResText;
using modUtilities::ToWx;

namespace {

constexpr int CheckMilliseconds = 2000;
constexpr int FollowMilliseconds = 30;
constexpr int Gap = 4;

wxString ScreenText(int textId, ScreenSize screen) {
    return ToWx(FormatResString(textId, screen.width, screen.height));
}

} // namespace

FormPreview::FormPreview(wxWindow* parent, MenuEditor& editor, std::shared_ptr<PictureFiles> files)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL, "pnlPreview")
    , m_editor(editor) {
    BuildControls(std::move(files));
    BindGrid();
    BindDrag();
    ShowTexts();
    SetScreenChoice(static_cast<int>(OperatorScreens().size()));
    cmdUp->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { Up(); });
    tglPin->Bind(wxEVT_TOGGLEBUTTON, [this](wxCommandEvent&) {
        m_place.SetPinned(tglPin->GetValue());
        ShowPlace();
    });
    cboScreen->Bind(wxEVT_CHOICE, [this](wxCommandEvent&) {
        ApplyScreen();
        if (on.screenChanged) on.screenChanged();
    });
    m_checkTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        auto* top = dynamic_cast<wxTopLevelWindow*>(wxGetTopLevelParent(this));
        if (top == nullptr || !top->IsActive()) return;
        grdButtons->CheckFiles();
        if (on.filesDue) on.filesDue();
    });
    m_checkTimer.Start(CheckMilliseconds);
    m_followTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { FollowSelection(); });
    m_editor.AddListener(*this);
    FormPreview::OnMenuReplaced();
}

FormPreview::~FormPreview() {
    m_editor.RemoveListener(*this);
}

void FormPreview::BuildControls(std::shared_ptr<PictureFiles> files) {
    cmdUp = new wxButton(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                         wxDefaultValidator, "cmdUp");
    tglPin = new wxToggleButton(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, wxBU_EXACTFIT,
                                wxDefaultValidator, "tglPin");
    lblScreen = new wxStaticText(this, wxID_ANY, "", wxDefaultPosition, wxDefaultSize, 0, "lblScreen");
    cboScreen = new wxChoice(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, 0, nullptr, 0,
                             wxDefaultValidator, "cboScreen");
    grdButtons = new FormButtonGrid(this, "grdButtons", m_editor, std::move(files));

    auto* screen = new wxBoxSizer(wxHORIZONTAL);
    screen->Add(lblScreen, wxSizerFlags().CentreVertical());
    screen->AddSpacer(FromDIP(Gap));
    screen->Add(cboScreen, wxSizerFlags().CentreVertical());
    // A narrow pane shows the controls in several lines.
    auto* bar = new wxWrapSizer(wxHORIZONTAL);
    const auto flags = wxSizerFlags().CentreVertical().Border(wxALL, FromDIP(Gap) / 2);
    bar->Add(cmdUp, flags);
    bar->Add(tglPin, flags);
    bar->Add(screen, flags);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(bar, wxSizerFlags().Expand());
    sizer->Add(grdButtons, wxSizerFlags(1).Expand());
    SetSizer(sizer);
}

void FormPreview::ShowTexts() {
    const auto show = [](wxControl& control, int textId, int helpId) {
        control.SetLabel(ResText(textId));
        control.SetToolTip(ResText(helpId));
    };
    show(*cmdUp, Message::PreviewUp, Message::PreviewUpHelp);
    show(*tglPin, Message::PreviewPin, Message::PreviewPinHelp);
    lblScreen->SetLabel(ResText(Message::PreviewScreen));
    cboScreen->SetToolTip(ResText(Message::PreviewScreenHelp));
    const int choice = cboScreen->GetSelection();
    cboScreen->Clear();
    for (const ScreenSize screen : OperatorScreens())
        cboScreen->Append(ScreenText(Message::PreviewScreenSize, screen));
    cboScreen->Append(ScreenText(Message::PreviewThisScreen, ScreenOf(*this)));
    cboScreen->SetSelection(choice);
    Layout();
}

int FormPreview::ScreenChoice() const {
    return cboScreen->GetSelection();
}

void FormPreview::SetScreenChoice(int choice) {
    const int last = static_cast<int>(cboScreen->GetCount()) - 1;
    cboScreen->SetSelection(choice >= 0 && choice <= last ? choice : last);
    ApplyScreen();
}

void FormPreview::ApplyScreen() {
    grdButtons->SetScreen(OperatorScreen(cboScreen->GetSelection(), *this));
}

void FormPreview::BindGrid() {
    ButtonGridEvents& grid = grdButtons->on;
    grid.select = [this](const EntryIds& ids) { Select(ids); };
    grid.open = [this](const std::string& id) { Open(id); };
    grid.up = [this] { Up(); };
    grid.contextMenu = [this](wxPoint at) { on.contextMenu(*grdButtons, at); };
    grid.isMarked = [this](const std::string& id) { return on.isMarked && on.isMarked(id); };
    grid.fileChanged = [this] {
        if (on.fileChanged) on.fileChanged();
    };
    grdButtons->Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        m_isHere = true;
        event.Skip();
    });
}

void FormPreview::BindDrag() {
    ButtonGridEvents& grid = grdButtons->on;
    grid.mayDrop = [this](const EntryDrop& drop) { return on.mayDrop(DraggedEntries(), drop); };
    grid.isDragKnown = [this] { return !DraggedEntries().empty(); };
    grid.dropped = [this](const EntryDrop& drop) {
        // The system is still busy ending the drag.
        CallAfter([this, ids = DraggedEntries(), drop] { ActHere([&] { on.dropped(ids, drop); }); });
    };
    grid.droppedText = [this](const EntryDrop& drop, const std::string& text) {
        bool isTaken = false;
        ActHere([&] { isTaken = on.droppedText(drop, text); });
        return isTaken;
    };
    grid.mayDropFiles = [this](const std::vector<std::string>& paths, const std::string& id) {
        return on.mayDropFiles(paths, id);
    };
    grid.droppedFiles = [this](const std::vector<std::string>& paths, const std::string& id) {
        ActHere([&] { on.droppedFiles(paths, id); });
    };
    grid.dragLeft = [this] { on.dragLeft(); };
    grid.dragText = [this](const EntryIds& ids) { return on.dragText(ids); };
    grid.dragTaken = [this](const EntryIds& ids) { on.dragTaken(ids); };
}

EntryIds FormPreview::DraggedEntries() const {
    return Dragged().empty() ? on.dragged() : Dragged();
}

const EntryIds& FormPreview::Dragged() const {
    return grdButtons->Dragged();
}

void FormPreview::ForgetDragged() {
    grdButtons->ForgetDragged();
}

// --- what is shown ---

void FormPreview::ShowPlace() {
    const std::string& id = m_place.Id();
    if (id != m_shownId) {
        m_shownId = id;
        grdButtons->ShowEntry(id);
        grdButtons->ShowSelection(m_selected, m_current);
    }
    cmdUp->Enable(m_place.Entry() != nullptr && m_place.Entry()->ParentMenu() != nullptr);
    tglPin->SetValue(m_place.IsPinned());
}

void FormPreview::ShowSelection(const EntryIds& selected, const std::string& current) {
    m_selected = selected;
    m_current = current;
    if (m_isActing)
        m_place.Note(current);
    else
        FollowSelection();
    ShowPlace();
    grdButtons->ShowSelection(selected, current);
}

void FormPreview::FollowSelection() {
    if (wxGetMouseState().LeftIsDown() || !on.dragged().empty()) {
        m_followTimer.StartOnce(FollowMilliseconds);
        return;
    }
    if (m_place.Follow(m_current, m_isHere)) ShowPlace();
}

void FormPreview::FollowAgain() {
    m_isHere = false;
    m_place.Note("");
    ShowSelection(EntryIds(m_selected), std::string(m_current));
}

void FormPreview::RefreshMarks() {
    grdButtons->Refresh();
}

// --- what the user does ---

// Does what selects entries, and stays where they are selected.
void FormPreview::ActHere(const std::function<void()>& action) {
    m_isActing = true;
    action();
    m_isActing = false;
}

void FormPreview::Select(const EntryIds& ids) {
    ActHere([&] { on.select(ids); });
}

void FormPreview::Open(const std::string& id) {
    if (!m_place.Open(id)) return on.edit(id);
    Select({id});
    ShowPlace();
}

// The submenu that was shown becomes the selected button.
void FormPreview::Up() {
    const std::string left = m_place.Up();
    if (left.empty()) return wxBell();
    ShowPlace();
    Select({left});
}

// --- the editor ---

void FormPreview::OnMenuReplaced() {
    m_place.OnMenuReplaced();
    m_selected.clear();
    m_current.clear();
    m_shownId.clear();
    grdButtons->ShowEntry("");
    ShowPlace();
}

void FormPreview::OnMenuEvent(const MenuEvent& event) {
    m_place.OnMenuEvent(event);
}

void FormPreview::OnStateChanged() {
    // An entry that was moved has another id, but is still the one that was shown.
    m_shownId = m_place.Id();
    grdButtons->UpdateButtons(m_shownId);
    ShowPlace();
}

} // namespace nesk
