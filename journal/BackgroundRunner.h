#pragma once

#include <functional>

namespace nesk {

/// Starts a function in another thread, for which nobody waits. Returns false when that is not possible.
using BackgroundRunner = std::function<bool(std::function<void()>)>;

} // namespace nesk
