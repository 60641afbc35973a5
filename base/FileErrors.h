#pragma once

#include "base/NeskError.h"
#include "platform/ErrorCode.h"

#include <string>

namespace nesk {

/// The run-time error for a result code of the file system.
/// @param code    result code other than Success
/// @param source  class and operation that failed
/// @param path    Windows path of the file or folder concerned; fills "%0%" in the message
NeskError FileError(platform::ErrorCode code, const std::string& source, const std::string& path);

} // namespace nesk
