#pragma once

#include <functional>

namespace nesk::bench {

/// The duration of an action in seconds.
double Seconds(const std::function<void()>& action);

/// Processes events until the windows are painted and no event is pending. Needs an active event loop.
void Settle();

/// The duration of an action and the resulting updates of the windows, in milliseconds.
double MillisecondsSettled(const std::function<void()>& action);

/// Ends the program with a message.
[[noreturn]] void Fail(const char* what);

/// Ends the program with a message unless a condition holds.
inline void Demand(bool holds, const char* what) {
    if (!holds) Fail(what);
}

} // namespace nesk::bench
