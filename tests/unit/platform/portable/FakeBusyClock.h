#pragma once

#include "platform/portable/BusyWait.h"

#include <functional>

namespace nesk::testing {

/// A fake clock for the registry's waits while it lives: waiting for another program takes no real time.
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

    /// Advances the time without a wait of the registry.
    void Advance(std::chrono::milliseconds time) { m_now += time; }

    /// Total time that the registry has waited.
    std::chrono::milliseconds Slept() const { return m_slept; }

    /// Called after each wait, to do what other programs do during it.
    std::function<void()> whenSlept;

private:
    // Does not start at 0, like the system's clock.
    std::chrono::steady_clock::time_point m_now{std::chrono::hours(1)};
    std::chrono::milliseconds m_slept{0};
};

} // namespace nesk::testing
