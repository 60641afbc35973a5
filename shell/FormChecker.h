#pragma once

#include "checking/MenuCheck.h"

#include <cstddef>
#include <functional>
#include <memory>

#include <wx/timer.h>

class wxFrame;
class wxIdleEvent;

namespace nesk {

/// Checks the open menu of the main window while the user does nothing else.
class FormChecker : private MenuEditorListener {
public:
    /// Both must outlive this object.
    FormChecker(wxFrame& frame, MenuEditor& editor, std::shared_ptr<FileInspector> inspector);
    ~FormChecker() override;

    const MenuCheck& Check() const { return m_check; }

    /// Sets what is known of the operator's screen.
    void SetOptions(CheckOptions options);

    /// Looks the files up again, because some may have changed; at most every few seconds.
    void RefreshFiles();

    /// Looks the files up again, because this program has changed some.
    void LookAgain();

    /// Checks everything at once. Files that take long are not waited for.
    void Finish();

    /// The problems may be others.
    std::function<void()> onChanged;

private:
    void OnMenuReplaced() override { Wait(); }
    void OnMenuEvent(const MenuEvent& /*event*/) override { Wait(); }
    void OnStateChanged() override { Wait(); }

    void Wait();
    void OnTimer();
    void OnIdle(wxIdleEvent& event);

    wxFrame& m_frame;
    MenuEditor& m_editor;
    MenuCheck m_check;
    wxTimer m_timer;
    wxTimer m_refreshTimer; // for files that are to be looked up later
    bool m_isDue = false;   // there is something to do in idle time
    std::size_t m_shownVersion = 0;
    std::size_t m_shownWaiting = 0;
    MenuCheck::Clock::time_point m_refreshed{};
};

} // namespace nesk
