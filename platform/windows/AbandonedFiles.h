#pragma once

#include <string>

/// Files that programs left which were killed while they saved.
namespace nesk::platform::windows {

/// Deletes a file that came to be and was last written more than an hour ago, and which no program has open.
/// SharingViolation for another.
int RemoveAbandoned(const std::wstring& path);

/// Does so with every file whose path is `front`, a number and "~". What cannot be deleted stays.
void RemoveAbandonedFiles(const std::wstring& front);

} // namespace nesk::platform::windows
