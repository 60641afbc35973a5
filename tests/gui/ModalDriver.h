#pragma once

#include <functional>

#include <wx/dialog.h>
#include <wx/timer.h>

namespace nesk::testing {

/// Does something with a modal dialog as soon as it is active, while the call that shows it is still waiting.
/// The action has to end the dialog; a dialog that is open for more than five seconds is ended and fails the
/// test.
class ModalDriver {
public:
    ModalDriver(wxDialog& dialog, std::function<void()> act);

private:
    void OnTimer();

    wxDialog& m_dialog;
    std::function<void()> m_act;
    wxTimer m_timer;
    int m_ticks = 0;
    bool m_done = false;
};

/// Whether a modal dialog waits for an answer. Not every toolkit's IsModal tells: on Windows it holds until
/// the call that showed the dialog has returned, although the dialog has its answer and is hidden.
bool IsOpen(const wxDialog& dialog);

/// Presses a button of a dialog. One that is missing, hidden or disabled fails the test.
void PressButton(wxWindow* button);

/// Presses a key in the control that has the focus.
void PressKey(int key, int modifiers = 0);

} // namespace nesk::testing
