// What the main window shows of the problems of the menu, and what it does about them.

#include "shell/FormMain.h"

#include "base/Messages.h"
#include "base/ProblemMessages.h"
#include "checking/FormChangeFolder.h"
#include "checking/ProblemFix.h"
#include "checking/UiFieldChooser.h"
#include "menu/MenuEntry.h"
#include "shell/FormChecker.h"
#include "shell/FormDetails.h"
#include "shell/FormMenuTree.h"
#include "shell/FormPanes.h"
#include "shell/FormPreview.h"
#include "shell/FormProblems.h"
#include "shell/FormReport.h"
#include "shell/UiOperatorScreen.h"
#include "widgets/UiUtilities.h"

#include <memory>
#include <optional>
#include <utility>

#include <wx/utils.h>

namespace nesk {

void FormMain::BuildChecker() {
    m_checker = std::make_unique<FormChecker>(*this, m_editor, StationInspector());
    m_checker->onChanged = [this] { OnProblemsChanged(); };
    // A hint is not worth a mark.
    tvMain->SetProblems([this](const MenuEntry& entry) { return HasProblem(&entry); });
}

bool FormMain::HasProblem(const MenuEntry* entry) const {
    return entry != nullptr && m_checker->Check().WorstBelow(*entry) >= Severity::Warning;
}

// Lets the check know the operator's screen.
void FormMain::CheckForScreen() {
    const int choice =
        pnPreview != nullptr ? pnPreview->ScreenChoice() : m_memory.Number(PreviewScreenName).value_or(-1);
    const ScreenSize screen = OperatorScreen(choice, *this);
    // Made when the first caption is checked, and not at the start of the program.
    const auto captions = std::make_shared<std::optional<UiCaptionCheck>>();
    m_checker->SetOptions({ButtonGrid(screen).PerPage(),
                           [captions, screen, face = GetFont().GetFaceName()](std::string_view caption) {
                               if (!*captions) captions->emplace(screen, face);
                               return (*captions)->Fits(caption);
                           }});
}

void FormMain::OnProblemsChanged() {
    UpdateCounts();
    tvMain->UpdateMarks();
    if (pnPreview != nullptr) pnPreview->RefreshMarks();
    if (pnDetails != nullptr) pnDetails->ShowPartName();
    if (pnProblems != nullptr) pnProblems->ShowFindings();
}

void FormMain::ShowProblems(bool show) {
    if (pnProblems == nullptr) {
        if (!show) return;
        pnProblems = new FormProblems(spMain, m_checker->Check());
        pnProblems->onGoTo = [this](const Finding& finding) { GoToProblem(finding); };
        pnProblems->onFix = [this](Fix fix, const std::vector<Finding>& findings) {
            FixProblems(fix, findings);
        };
        pnProblems->onCheckAgain = [this] { m_checker->LookAgain(); };
        pnProblems->onClose = [this] {
            ShowProblems(false);
            tvMain->Window().SetFocus();
        };
        pnProblems->onLeave = [this] { tvMain->Window().SetFocus(); };
        modUtilities::SetFormFont(*pnProblems);
    }
    if (show)
        spMain->ShowPane(FormPanes::Side::Below, *pnProblems);
    else
        spMain->HidePane(FormPanes::Side::Below);
    UpdateViewMenu();
}

void FormMain::ViewProblems() {
    const bool show = !spMain->IsPaneShown(FormPanes::Side::Below);
    ShowProblems(show);
    if (show) {
        m_checker->RefreshFiles();
        pnProblems->FocusList();
    } else {
        tvMain->Window().SetFocus();
    }
}

// Selects the entry of a problem in the tree, and its field if the fields are shown.
void FormMain::GoToProblem(const Finding& finding) {
    if (!FinishLabelEdit()) return;
    const std::optional<TextField> field = finding.field;
    tvMain->SelectKey(finding.entry->ID());
    if (field && pnDetails != nullptr && pnDetails->FocusField(DetailFieldOf(*field))) return;
    tvMain->Window().SetFocus();
}

void FormMain::FixProblems(Fix fix, const std::vector<Finding>& selected) {
    if (!FinishLabelEdit()) return;
    const std::vector<Finding> findings = ProblemFix::Fitting(selected, fix);
    if (findings.empty()) return wxBell();
    const Finding& first = findings.front();
    try {
        switch (fix) {
        case Fix::ChooseFile: {
            const std::string now(FieldText(*first.entry, *first.field));
            const std::string path = ChooseFieldPath(this, *first.field, now);
            if (!path.empty()) ProblemFix::SetPath(m_editor, findings, path);
            break;
        }
        case Fix::ChangeFolder: FormChangeFolder(this, m_editor).Invoke(ProblemFix::FolderOf(first)); break;
        case Fix::Clear: ProblemFix::Clear(m_editor, findings); break;
        case Fix::MakeFolder: MakeProblemFolders(findings); break;
        case Fix::Rename:
            GoToProblem(first);
            // The tree scrolls first: a text box in a tree that has not scrolled yet is over another entry.
            CallAfter([this] {
                m_returnsToProblems = true;
                Rename();
            });
            break;
        case Fix::Edit:
            GoToProblem(first);
            EditSelected();
            break;
        case Fix::Count: break;
        }
    } catch (const NeskError& error) {
        ShowRefusal(Message::CommandFailed, error);
    }
}

// After an entry was renamed from the list, the user goes on there, unless he has gone elsewhere.
void FormMain::ReturnToProblems() {
    const bool isDue = std::exchange(m_returnsToProblems, false);
    if (isDue && tvMain->Window().HasFocus() && spMain->IsPaneShown(FormPanes::Side::Below))
        pnProblems->FocusList();
}

void FormMain::MakeProblemFolders(const std::vector<Finding>& findings) {
    try {
        ProblemFix::MakeFolders(findings);
    } catch (const NeskError& error) {
        ShowRefusal(Message::FolderNotMade, error);
    }
    m_checker->LookAgain();
}

// What the check has not found by now is missing in the report, which says so.
void FormMain::Report() {
    if (!FinishLabelEdit()) return;
    FormReport(this, m_editor, m_checker->Check()).Invoke([this] { m_checker->Finish(); });
}

} // namespace nesk
