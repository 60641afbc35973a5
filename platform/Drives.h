#pragma once

#include "platform/ErrorCode.h"

#include <vector>

namespace nesk::platform {

/// Letters of the station's drives, in upper case and alphabetical order, including drives without a medium.
///
/// If the station is a folder, these are its folders `drives/<letter>` and Z, which is the host's file
/// system.
std::vector<char> DriveLetters();

/// Checks whether a drive can be read.
/// @param letter  drive letter in either case
/// @return Success, or NotReady (ErrorCode.h) when the drive is missing, cannot be read or has no medium
///
/// If the station is a folder, a file named ".notready" in a drive's folder simulates a missing medium.
ErrorCode CheckDrive(char letter);

} // namespace nesk::platform
