#pragma once

#include <chrono>

namespace nesk::platform::portable {

/// How long a request waits for another program that keeps the registry's database locked, in milliseconds.
constexpr std::chrono::milliseconds BusyTimeout{5000};

/// The clock that the registry uses when another program keeps its database locked.
class BusyClock {
public:
    virtual ~BusyClock() = default;

    /// The time now. It never goes back.
    virtual std::chrono::steady_clock::time_point Now() = 0;

    /// Waits.
    virtual void Sleep(std::chrono::milliseconds time) = 0;
};

/// The clock in use: the system's, unless a test replaced it.
BusyClock& TheBusyClock();

/// Uses another clock from now on. The caller keeps it alive until the next call.
/// @param clock  null for the system's
void UseBusyClock(BusyClock* clock);

/// Waits for another program before a request is tried again, longer from time to time.
/// @param attempt  how many times the request has been tried again already
/// @return false when the request has waited for BusyTimeout, so that it fails
bool WaitForOtherProgram(int attempt);

} // namespace nesk::platform::portable
