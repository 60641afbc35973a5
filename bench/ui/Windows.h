#pragma once

#include <functional>

namespace nesk::bench {

/// What an action takes, in seconds.
double Seconds(const std::function<void()>& action);

/// Works off the events until the windows have drawn themselves and nothing is left to be done. Needs an
/// active event loop.
void Settle();

/// What an action takes with all that follows it in the windows, in milliseconds.
double MillisecondsSettled(const std::function<void()>& action);

/// Ends the program with a message.
[[noreturn]] void Fail(const char* what);

/// Ends the program with a message unless a condition holds.
inline void Demand(bool holds, const char* what) {
    if (!holds) Fail(what);
}

} // namespace nesk::bench
