// What of the main window is shown: its bars.

#include "shell/FormMain.h"

#include "shell/FormToolBar.h"

namespace nesk {

// Replaces the tool bar if there is one already, because its texts depend on the language.
void FormMain::BuildToolBar() {
    FormToolBar* const former = tbMain;
    if (former != nullptr) {
        SetToolBar(nullptr);
        former->Destroy();
    }
    tbMain = new FormToolBar(this, "tbMain");
    SetToolBar(tbMain);
}

} // namespace nesk
