#pragma once

#include "gui/UiDriver.h"

#include <functional>

#include <wx/dialog.h>
#include <wx/timer.h>

namespace nesk::testing {

/// Runs an action on a modal dialog as soon as the dialog is active, while the call that shows it is still
/// waiting. The action must end the dialog. A dialog that stays open for five seconds without the action, or
/// after it, is ended and fails the test.
class ModalDriver {
public:
    ModalDriver(wxDialog& dialog, std::function<void()> act);

private:
    void OnTimer();

    wxDialog& m_dialog;
    std::function<void()> m_act;
    wxTimer m_timer;
    int m_ticks = 0;
    bool m_acts = false;
    bool m_done = false;
};

} // namespace nesk::testing
