#include "gui/PartDialogFixture.h"

#include "settings/NeskRegistry.h"
#include "shell/Startup.h"
#include "widgets/UiUtilities.h"

#include <wx/choice.h>
#include <wx/msgdlg.h>

namespace nesk::testing {

using modUtilities::FromWx;

namespace {

constexpr int TickMilliseconds = 20;
constexpr int MostIdleTicks = 400;

// The topmost modal dialog if it is active; null otherwise.
wxDialog* ActiveDialog() {
    for (auto node = wxTopLevelWindows.GetLast(); node != nullptr; node = node->GetPrevious()) {
        auto* dialog = dynamic_cast<wxDialog*>(node->GetData());
        if (dialog != nullptr && IsOpen(*dialog)) return dialog->IsActive() ? dialog : nullptr;
    }
    return nullptr;
}

} // namespace

PartDialogTest::PartDialogTest() {
    Startup::InitLanguage();
    NeskRegistry::Instance() = NeskRegistry();
    m_fileDialog = platform::SetOpenFileDialog(
        [this](wxWindow*, const platform::OpenFileRequest& request) { return AnswerFile(request); });
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Watch(); });
    m_timer.StartOnce(TickMilliseconds);
}

PartDialogTest::~PartDialogTest() {
    m_timer.Stop();
    platform::SetOpenFileDialog(m_fileDialog);
    EXPECT_TRUE(m_steps.empty()) << "a dialog that was expected did not come: " << m_steps.front().name;
    EXPECT_TRUE(m_files.empty()) << "a file dialog that was expected did not come";
    EXPECT_TRUE(m_boxAnswers.empty()) << "a box of the system that was expected did not come";
}

void PartDialogTest::Watch() {
    // Restarted before any action, so that it also ticks while a dialog opened by the action is shown.
    m_timer.StartOnce(TickMilliseconds);
    wxDialog* dialog = ActiveDialog();
    if (dialog != nullptr && !m_steps.empty() && FromWx(dialog->GetName()) == m_steps.front().name &&
        m_steps.front().ready(*dialog)) {
        const Step step = m_steps.front();
        m_steps.pop_front();
        m_idleTicks = 0;
        step.act(*dialog);
        m_idleTicks = 0;
    } else if (dialog != nullptr && ++m_idleTicks > MostIdleTicks) {
        m_idleTicks = 0;
        ADD_FAILURE() << "nothing was done with the dialog " << FromWx(dialog->GetName());
        dialog->EndModal(wxID_CANCEL);
    }
}

int PartDialogTest::Answer(wxDialog* dialog) {
    if (const auto* box = dynamic_cast<wxMessageDialog*>(dialog)) {
        boxes.push_back({FromWx(box->GetCaption()), FromWx(box->GetMessage())});
        if (m_boxAnswers.empty()) {
            ADD_FAILURE() << "unexpected box: " << boxes.back().text;
            return wxID_CANCEL;
        }
        const int answer = m_boxAnswers.front();
        m_boxAnswers.pop_front();
        return answer;
    }
    return wxID_NONE;
}

std::string PartDialogTest::AnswerFile(const platform::OpenFileRequest& request) {
    fileDialogs.push_back(request.title + "|" + request.folder + "|" + request.file + "|" + request.filter);
    if (m_files.empty()) {
        ADD_FAILURE() << "unexpected file dialog";
        return "";
    }
    const std::string path = m_files.front();
    m_files.pop_front();
    return path;
}

std::string PartDialogTest::FocusName([[maybe_unused]] const wxChoice& list) {
#ifdef NESK_PORTABLE_STATION
    return "-";
#else
    return FromWx(list.GetName());
#endif
}

std::string PartDialogTest::TabOrder() {
    std::string order;
    const wxWindow* first = wxWindow::FindFocus();
    constexpr int most = 30;
    for (int i = 0; i < most; ++i) {
        const wxWindow* focus = wxWindow::FindFocus();
        if (i > 0 && focus == first) break;
        order.append(order.empty() ? "" : " ").append(focus == nullptr ? "-" : FromWx(focus->GetName()));
        Press(WXK_TAB);
    }
    return order;
}

} // namespace nesk::testing
