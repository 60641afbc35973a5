#pragma once

#include <string>
#include <vector>

/// How the lists of drives show a drive, and what they stand for.
namespace nesk::DriveChoice {

/// The station's drives as they are listed, as "C:".
std::vector<std::string> Labels();

/// The letter of a listed drive, in capitals; 0 for a text without one.
char Letter(const std::string& label);

/// The root of a listed drive, as "C:\"; "" for a text without a letter.
std::string Root(const std::string& label);

/// Place of a drive in the list, from 0; -1 when it is not listed.
/// @param letter  in either case
int IndexOf(const std::vector<std::string>& labels, char letter);

/// Raises the run-time error for a drive that is not ready.
/// @param letter  in either case
void RequireReady(char letter);

} // namespace nesk::DriveChoice
