#pragma once

#include "platform/ErrorCode.h"

#include <windows.h>

namespace nesk::platform::windows {

/// The result code of a system error. Both have the same numbers.
constexpr ErrorCode ErrorFromSystem(DWORD error) {
    return static_cast<ErrorCode>(error);
}

/// The result code of a status that a registry function returns.
constexpr ErrorCode ErrorFromSystem(LONG status) {
    return static_cast<ErrorCode>(status);
}

/// The error of the last call.
inline ErrorCode LastError() {
    return ErrorFromSystem(::GetLastError());
}

} // namespace nesk::platform::windows
