#pragma once

#include "gui/ModalDriver.h"

#include <functional>
#include <gtest/gtest.h>
#include <utility>

#include <wx/dialog.h>
#include <wx/timer.h>

namespace nesk::testing {

/// Does something with the next modal dialog of a class, whoever opens it, as soon as it is active. The
/// action has to end the dialog. A dialog that does not come within five seconds fails the test.
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
            // The action may let events be handled, and so come here again.
            const std::function<void(Form&)> act = std::exchange(m_act, nullptr);
            act(*form);
            return;
        }
    }

    std::function<void(Form&)> m_act;
    wxTimer m_timer;
};

} // namespace nesk::testing
