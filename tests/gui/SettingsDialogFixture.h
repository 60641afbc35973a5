#pragma once

#include "gui/ModalDriver.h"
#include "settings/NeskRegistry.h"
#include "shell/Startup.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"
#include "unit/CoreFixture.h"

#include <functional>
#include <string>

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/stopwatch.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace nesk::testing {

/// A fresh station in English with empty settings, a message recorder, and functions that type keys into the
/// dialog that is shown. A message that was not announced fails the test.
class SettingsDialogTest : public CoreTest {
protected:
    SettingsDialogTest() {
        Startup::InitLanguage();
        NeskRegistry::Instance() = NeskRegistry();
    }
    ~SettingsDialogTest() override { NeskRegistry::Instance() = NeskRegistry(); }

    /// Processes the pending events of the dialog.
    static void Settle() {
        for (int i = 0; i < 10; ++i) {
            while (wxEventLoop::GetActive()->Pending())
                wxEventLoop::GetActive()->Dispatch();
            wxTheApp->ProcessPendingEvents();
            wxEventLoop::GetActive()->ProcessIdle();
        }
    }

    /// Waits until a condition holds. Returns false if it does not hold within the given time.
    static bool WaitUntil(const std::function<bool()>& condition, long milliseconds = 3000) {
        const wxStopWatch watch;
        while (!condition()) {
            if (watch.Time() > milliseconds) return false;
            wxMilliSleep(5);
            Settle();
        }
        return true;
    }

    /// Types a text, or presses a key, into the control that has the focus.
    static void Type(const std::string& text) {
        wxUIActionSimulator simulator;
        simulator.Text(text.c_str());
        wxMilliSleep(50);
        Settle();
    }
    static void Press(int key, int modifiers = 0) {
        PressKey(key, modifiers);
        wxMilliSleep(50);
        Settle();
    }
};

} // namespace nesk::testing
