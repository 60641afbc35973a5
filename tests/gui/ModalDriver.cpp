#include "gui/ModalDriver.h"

#include <gtest/gtest.h>
#include <utility>

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
    // The action processes events, so the timer ticks meanwhile.
    if (m_acts) return;
    if (!m_done && IsOpen(m_dialog) && m_dialog.IsActive()) {
        m_done = m_acts = true;
        m_act();
        m_acts = false;
        m_ticks = 0;
    } else if (++m_ticks > MostTicks) {
        m_timer.Stop();
        ADD_FAILURE() << "the dialog " << m_dialog.GetName() << " was not ended";
        if (IsOpen(m_dialog)) m_dialog.EndModal(wxID_CANCEL);
    }
}

} // namespace nesk::testing
