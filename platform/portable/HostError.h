#pragma once

namespace nesk::platform::portable {

/// The result code (ErrorCode.h) that belongs to an errno value; `fallback` for one without a counterpart.
int ErrorFromErrno(int error, int fallback);

} // namespace nesk::platform::portable
