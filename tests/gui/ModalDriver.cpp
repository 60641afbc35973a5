#include "gui/ModalDriver.h"

#include <gtest/gtest.h>
#include <utility>

#include <wx/button.h>
#include <wx/uiaction.h>

namespace nesk::testing {

namespace {

constexpr int Interval = 20;
constexpr int MostTicks = 250;

} // namespace

ModalDriver::ModalDriver(wxDialog& dialog, std::function<void()> act)
    : m_dialog(dialog), m_act(std::move(act)) {
    m_timer.Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
    m_timer.Start(Interval);
}

void ModalDriver::OnTimer() {
    ++m_ticks;
    if (!m_done && IsOpen(m_dialog) && m_dialog.IsActive()) {
        m_done = true;
        m_act();
    } else if (m_ticks > MostTicks) {
        m_timer.Stop();
        ADD_FAILURE() << "the dialog " << m_dialog.GetName() << " was not ended";
        if (IsOpen(m_dialog)) m_dialog.EndModal(wxID_CANCEL);
    }
}

void PressButton(wxWindow* button) {
    ASSERT_NE(button, nullptr);
    ASSERT_TRUE(button->IsEnabled()) << button->GetName();
    ASSERT_TRUE(button->IsShown()) << button->GetName();
    wxCommandEvent event(wxEVT_BUTTON, button->GetId());
    event.SetEventObject(button);
    button->ProcessWindowEvent(event);
}

void PressKey(int key, int modifiers) {
    wxUIActionSimulator simulator;
    simulator.Char(key, modifiers);
}

} // namespace nesk::testing
