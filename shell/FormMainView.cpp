// What of the main window is shown, and where: its bars, its place on the screen, and what it remembers of
// them.

#include "shell/FormMain.h"

#include "shell/CountsText.h"
#include "shell/FormChecker.h"
#include "shell/FormDetails.h"
#include "shell/FormFinder.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPanes.h"
#include "shell/FormPreview.h"
#include "shell/FormToolBar.h"
#include "widgets/UiUtilities.h"

#include <algorithm>

#include <wx/display.h>
#include <wx/menu.h>
#include <wx/utils.h>

namespace nesk {

namespace {

constexpr int UsualCharHeight = 17;

// Names of the remembered values.
constexpr const char* ShowsToolBar = "ToolBar";
constexpr const char* ShowsStatusBar = "StatusBar";
constexpr const char* ShowsPreview = "Preview";
constexpr const char* ShowsProblems = "Problems";

} // namespace

// The initial window size, for a font of the usual height and a screen with enough room.
wxSize FormMain::DefaultSize() {
    return wxWindow::FromDIP(wxSize(720, 640), nullptr);
}

void FormMain::UpdateCounts() {
    const std::string text = m_editor.IsOpen()
                                 ? CountsText(m_counts.Numbers(), tvMain->View().Selection().size(),
                                              m_checker->Check().LastCount())
                                 : std::string();
    sbMain->ShowCounts(modUtilities::ToWx(text));
}

// Shows the window as it was in the last run.
void FormMain::RestoreView() {
    m_memory.Load();
    tbMain->Show(m_memory.Flag(ShowsToolBar, true));
    sbMain->Show(m_memory.Flag(ShowsStatusBar, true));
    spMain->Restore(m_memory);
    CheckForScreen();
    UpdateViewMenu();
    PlaceOnScreen();
    if (m_memory.Flag(ShowsPreview, false)) ShowPreview(true);
    if (m_memory.Flag(ShowsProblems, false)) ShowProblems(true);
    if (m_place.WasMaximized()) Maximize();
}

void FormMain::RememberView() {
    m_place.Remember();
    spMain->Remember(m_memory);
    m_memory.SetFlag(ShowsPreview, spMain->IsPaneShown(FormPanes::Side::Beside), false);
    if (pnPreview != nullptr) {
        m_memory.SetNumber(PreviewScreenName, pnPreview->ScreenChoice());
        m_memory.SetNumber(DetailsHeightName, ToDIP(pnDetails->GetSize().y));
    }
    m_memory.SetFlag(ShowsProblems, spMain->IsPaneShown(FormPanes::Side::Below), false);
    m_memory.SetFlag(ShowsToolBar, tbMain->IsShown(), true);
    m_memory.SetFlag(ShowsStatusBar, sbMain->IsShown(), true);
    // The registry may be in use by another program. Nobody should look at a window meanwhile.
    Hide();
    m_memory.Save();
}

void FormMain::PlaceOnScreen() {
    SetMinClientSize(FromDIP(wxSize(SmallestSide, SmallestSide)));
    const bool isRestored = m_place.Restore();
    if (!isRestored) {
        const wxRect screen = wxDisplay(this).GetClientArea();
        // A larger font needs a larger window.
        const double scale = std::max(1.0, static_cast<double>(GetCharHeight()) / FromDIP(UsualCharHeight));
        const wxSize wanted = DefaultSize() * scale;
        SetSize(std::min(wanted.x, screen.width), std::min(wanted.y, screen.height));
    }
    // Setting the client size makes the window appear at once. Otherwise wx waits until the window manager
    // reports the frame size, and until then GTK warns that the menu bar does not fit into 2 pixels.
    SetClientSize(GetClientSize());
    if (!isRestored) CentreOnScreen();
}

// Replaces the tool bar if there is one already, because its texts depend on the language.
void FormMain::BuildToolBar() {
    FormToolBar* const former = tbMain;
    const bool isShown = former == nullptr || former->IsShown();
    if (former != nullptr) {
        SetToolBar(nullptr);
        former->Destroy();
    }
    tbMain = new FormToolBar(this, "tbMain");
    tbMain->Show(isShown);
    SetToolBar(tbMain);
    if (m_finder) m_finder->UseToolBar(*tbMain);
}

// Shows or hides a bar of the window, and gives its room to the tree.
void FormMain::ShowViewBar(wxWindow& bar, bool show) {
    if (bar.IsShown() != show) {
        bar.Show(show);
        SendSizeEvent();
    }
    UpdateViewMenu();
}

void FormMain::UpdateViewMenu() {
    mnuViewPreview->Check(spMain->IsPaneShown(FormPanes::Side::Beside));
    mnuViewProblems->Check(spMain->IsPaneShown(FormPanes::Side::Below));
    mnuViewToolBar->Check(tbMain->IsShown());
    mnuViewStatusBar->Check(sbMain->IsShown());
}

void FormMain::ViewToolBar() {
    ShowViewBar(*tbMain, !tbMain->IsShown());
}

void FormMain::ViewStatusBar() {
    ShowViewBar(*sbMain, !sbMain->IsShown());
}

void FormMain::ExpandBelow() {
    if (!FinishLabelEdit()) return;
    const wxBusyCursor busy;
    tvMain->ExpandBelow(tvMain->SelectedKey());
}

void FormMain::CollapseAll() {
    if (FinishLabelEdit()) tvMain->CollapseAll();
}

} // namespace nesk
