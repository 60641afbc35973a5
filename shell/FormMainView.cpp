// What of the main window is shown: its bars.

#include "shell/FormMain.h"

#include "shell/FormMenuTree.h"
#include "shell/FormToolBar.h"

#include <wx/menu.h>
#include <wx/utils.h>

namespace nesk {

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
