#pragma once

#include "base/NeskError.h"

#include <string>

namespace nesk {

/// The run-time error that belongs to a result code of the file system (platform/ErrorCode.h).
/// @param code    result code, not Success
/// @param source  class and operation that failed
/// @param path    Windows path of the file or folder concerned; becomes "%0%" of the message
NeskError FileError(int code, const std::string& source, const std::string& path);

} // namespace nesk
