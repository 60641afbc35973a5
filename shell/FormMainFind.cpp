// The main window's commands that find and replace.

#include "shell/FormMain.h"

#include "checking/FormChangeFolder.h"
#include "checking/FormReplace.h"
#include "shell/FormFinder.h"
#include "shell/FormMenuTree.h"

namespace nesk {

void FormMain::Find() {
    if (FinishLabelEdit()) m_finder->Begin();
}

void FormMain::FindNext() {
    if (FinishLabelEdit()) m_finder->Next();
}

void FormMain::FindPrevious() {
    if (FinishLabelEdit()) m_finder->Previous();
}

void FormMain::ShowMatches() {
    if (FinishLabelEdit()) m_finder->ToggleFilter();
}

void FormMain::Replace() {
    if (FinishLabelEdit()) FormReplace(this, m_editor).Invoke(m_finder->Text());
}

void FormMain::ChangeFolder() {
    if (FinishLabelEdit()) FormChangeFolder(this, m_editor).Invoke();
}

} // namespace nesk
