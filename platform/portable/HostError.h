#pragma once

#include "platform/ErrorCode.h"

namespace nesk::platform::portable {

/// The result code (ErrorCode.h) of an errno value; `fallback` for a value without a counterpart.
ErrorCode ErrorFromErrno(int error, ErrorCode fallback);

} // namespace nesk::platform::portable
