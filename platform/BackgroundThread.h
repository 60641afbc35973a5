#pragma once

#include <functional>

namespace nesk::platform {

/// Runs a function in a thread of its own, for which nobody waits. The function must not let an exception
/// out.
/// @return false when the system has no thread left; the function is then not run
bool RunInBackground(std::function<void()> function);

} // namespace nesk::platform
