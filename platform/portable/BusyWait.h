#pragma once

#include <chrono>

namespace nesk::platform::portable {

/// How long a request waits while another program holds a lock on the registry's database.
constexpr std::chrono::milliseconds BusyTimeout{5000};

/// The clock used for waiting while another program holds a lock on the registry's database.
class BusyClock {
public:
    virtual ~BusyClock() = default;

    /// The current time of a monotonic clock.
    virtual std::chrono::steady_clock::time_point Now() = 0;

    virtual void Sleep(std::chrono::milliseconds time) = 0;
};

/// The clock in use: the system's clock, unless a test replaced it.
BusyClock& TheBusyClock();

/// Replaces the clock. The caller keeps the new clock alive until the next call.
/// @param clock  null for the system's clock
void UseBusyClock(BusyClock* clock);

/// Waits before a request to a locked database is retried. Later retries wait longer.
/// @param attempt  number of earlier retries of the request
/// @return false when the request has waited for BusyTimeout and must fail
bool WaitForOtherProgram(int attempt);

} // namespace nesk::platform::portable
