#pragma once

#include <vector>

namespace nesk::platform {

/// Letters of the drives that the station has, in capitals and in the order of the alphabet. A drive without
/// a medium is among them.
///
/// On a station that is a folder these are its folders `drives/<letter>`, and Z, the host's own files.
std::vector<char> DriveLetters();

/// Tells whether a drive can be read.
/// @param letter  drive letter in either case
/// @return Success, or NotReady (ErrorCode.h) when the drive is missing, cannot be read or has no medium
///
/// On a station that is a folder, a file named ".notready" in a drive's folder stands for a missing medium.
int CheckDrive(char letter);

} // namespace nesk::platform
