#pragma once

#include <string>
#include <vector>

/// Conversions between drives and their entries in the lists of drives.
namespace nesk::DriveChoice {

/// The entries of the station's drives, for example "C:".
std::vector<std::string> Labels();

/// The upper-case drive letter of an entry; 0 when the text does not begin with a letter.
char Letter(const std::string& label);

/// The root of the drive of an entry, for example "C:\"; "" when the text does not begin with a letter.
std::string Root(const std::string& label);

/// Index of a drive in the list, from 0; -1 when it is not in the list.
/// @param letter  upper or lower case
int IndexOf(const std::vector<std::string>& labels, char letter);

/// Raises a run-time error when a drive is not ready.
/// @param letter  upper or lower case
void RequireReady(char letter);

} // namespace nesk::DriveChoice
