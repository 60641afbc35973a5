#include "shell/FormChecker.h"

#include <utility>

#include <wx/app.h>
#include <wx/frame.h>
#include <wx/utils.h>

namespace nesk {

namespace {

// Short enough that a key pressed meanwhile is answered at once.
constexpr std::chrono::milliseconds Slice{4};

// In milliseconds: the pause after an edit, so that typing and dragging are not held up, and the time after
// which answers about files are looked for.
constexpr int PauseAfterEdit = 150;
constexpr int PauseForFiles = 100;

// How long a report waits for files.
constexpr std::chrono::seconds LongestWait{2};

// Files are not looked up again more often.
constexpr std::chrono::seconds RefreshPause{5};

} // namespace

FormChecker::FormChecker(wxFrame& frame, MenuEditor& editor, std::shared_ptr<FileInspector> inspector)
    : m_frame(frame), m_editor(editor), m_check(editor, std::move(inspector)) {
    editor.AddListener(*this);
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
    m_refreshTimer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) {
        if (m_editor.IsOpen()) LookAgain();
    });
    m_frame.Bind(wxEVT_IDLE, &FormChecker::OnIdle, this);
}

FormChecker::~FormChecker() {
    m_frame.Unbind(wxEVT_IDLE, &FormChecker::OnIdle, this);
    m_editor.RemoveListener(*this);
}

void FormChecker::SetOptions(CheckOptions options) {
    m_check.SetOptions(std::move(options));
    Wait();
}

void FormChecker::RefreshFiles() {
    if (!m_editor.IsOpen()) return;
    const auto left = m_refreshed + RefreshPause - MenuCheck::Clock::now();
    if (left <= std::chrono::nanoseconds::zero()) return LookAgain();
    if (m_refreshTimer.IsRunning()) return;
    m_refreshTimer.StartOnce(
        static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(left).count()) + 1);
}

void FormChecker::LookAgain() {
    m_refreshed = MenuCheck::Clock::now();
    m_refreshTimer.Stop();
    m_check.RefreshFiles();
    Wait();
}

void FormChecker::Finish() {
    const MenuCheck::Clock::time_point end = MenuCheck::Clock::now() + LongestWait;
    while (!m_check.IsDone() && MenuCheck::Clock::now() < end)
        if (!m_check.Step(Slice)) wxMilliSleep(1);
    // Without files, the rest takes no time that matters.
    while (m_check.Step(Slice)) {
    }
    m_isDue = true; // the problems are shown in the next idle time
}

// The work begins after a pause without edits.
void FormChecker::Wait() {
    m_isDue = false;
    m_timer.StartOnce(PauseAfterEdit);
}

void FormChecker::OnTimer() {
    m_isDue = true;
    wxWakeUpIdle();
}

void FormChecker::OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (!m_isDue) return;
    const bool hasMore = m_check.Step(Slice);
    if (hasMore) {
        event.RequestMore();
    } else {
        m_isDue = false;
        if (!m_check.IsDone()) m_timer.StartOnce(PauseForFiles);
    }
    const bool isNew = m_shownVersion != m_check.Version() || m_shownWaiting != m_check.FilesWaiting();
    if (hasMore || !isNew) return;
    m_shownVersion = m_check.Version();
    m_shownWaiting = m_check.FilesWaiting();
    if (onChanged) onChanged();
}

} // namespace nesk
