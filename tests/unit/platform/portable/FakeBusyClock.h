#pragma once

#include "platform/portable/BusyWait.h"

#include <functional>

namespace nesk::testing {

/// As long as it lives, the registry waits by this clock: waiting for another program takes no real time.
class FakeBusyClock final : public platform::portable::BusyClock {
public:
    FakeBusyClock() { platform::portable::UseBusyClock(this); }
    ~FakeBusyClock() override { platform::portable::UseBusyClock(nullptr); }
    FakeBusyClock(const FakeBusyClock&) = delete;
    FakeBusyClock& operator=(const FakeBusyClock&) = delete;

    std::chrono::steady_clock::time_point Now() override { return m_now; }

    void Sleep(std::chrono::milliseconds time) override {
        Advance(time);
        m_slept += time;
        if (whenSlept) whenSlept();
    }

    /// Lets time pass in which the registry does not wait.
    void Advance(std::chrono::milliseconds time) { m_now += time; }

    /// How long the registry has waited in all.
    std::chrono::milliseconds Slept() const { return m_slept; }

    /// Called after each wait: what other programs do meanwhile.
    std::function<void()> whenSlept;

private:
    // Like the system's clock, it does not begin at 0.
    std::chrono::steady_clock::time_point m_now{std::chrono::hours(1)};
    std::chrono::milliseconds m_slept{0};
};

} // namespace nesk::testing
