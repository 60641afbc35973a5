#pragma once

#include "gui/ModalDriver.h"

#include <functional>
#include <gtest/gtest.h>
#include <utility>

#include <wx/dialog.h>
#include <wx/timer.h>

namespace nesk::testing {

/// Runs an action on the next modal dialog of a class as soon as it is active, no matter what opens it. The
/// action must end the dialog. The test fails if no such dialog appears within five seconds.
template <typename Form>
class NextDialog {
public:
    explicit NextDialog(std::function<void(Form&)> act) : m_act(std::move(act)) {
        m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { Look(); });
        m_timer.Start(20);
    }
    ~NextDialog() { EXPECT_FALSE(m_act) << "the dialog did not come"; }
    NextDialog(const NextDialog&) = delete;
    NextDialog& operator=(const NextDialog&) = delete;

private:
    void Look() {
        if (!m_act) return;
        for (wxWindow* window : wxTopLevelWindows) {
            auto* form = dynamic_cast<Form*>(window);
            if (form == nullptr || !IsOpen(*form) || !form->IsActive()) continue;
            // The action may process events and so reenter this function.
            const std::function<void(Form&)> act = std::exchange(m_act, nullptr);
            act(*form);
            return;
        }
    }

    std::function<void(Form&)> m_act;
    wxTimer m_timer;
};

} // namespace nesk::testing
