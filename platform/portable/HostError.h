#pragma once

namespace nesk::platform::portable {

/// The result code (ErrorCode.h) of an errno value; `fallback` for a value without a counterpart.
int ErrorFromErrno(int error, int fallback);

} // namespace nesk::platform::portable
