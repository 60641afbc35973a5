#include "platform/portable/BusyWait.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <thread>

namespace nesk::platform::portable {

namespace {

using std::chrono::milliseconds;

class SystemClock final : public BusyClock {
public:
    std::chrono::steady_clock::time_point Now() override { return std::chrono::steady_clock::now(); }
    void Sleep(milliseconds time) override { std::this_thread::sleep_for(time); }
};

SystemClock systemClock;
BusyClock* clockInUse = &systemClock;

// Waiting times in milliseconds. Most programs release the lock quickly, so the first waits are short.
constexpr std::array Waits{1, 2, 5, 10, 15, 20, 25, 25, 25, 50, 50, 100};

milliseconds WaitBefore(int attempt) {
    return milliseconds(Waits.at(std::min(static_cast<std::size_t>(attempt), Waits.size() - 1)));
}

} // namespace

BusyClock& TheBusyClock() {
    return *clockInUse;
}

void UseBusyClock(BusyClock* clock) {
    clockInUse = clock != nullptr ? clock : &systemClock;
}

bool WaitForOtherProgram(int attempt) {
    milliseconds waited{0};
    for (int before = 0; before < attempt && waited < BusyTimeout; ++before)
        waited += WaitBefore(before);
    if (waited >= BusyTimeout) return false;
    clockInUse->Sleep(std::min(WaitBefore(attempt), BusyTimeout - waited));
    return true;
}

} // namespace nesk::platform::portable
