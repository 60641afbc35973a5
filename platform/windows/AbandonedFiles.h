#pragma once

#include <string>

/// Files that programs left which were killed while they saved.
namespace nesk::platform::windows {

/// Deletes a file that came to be and was last written more than an hour ago, and which no program has open.
/// SharingViolation for another.
int RemoveAbandoned(const std::wstring& path);

/// Does so with every file whose path is `front`, a number and "~". What cannot be deleted stays.
void RemoveAbandonedFiles(const std::wstring& front);

/// What stands beside a file while it is replaced has this, a number and "~" behind the file's name.
constexpr const wchar_t* ReplacedMark = L".old.";

/// Gives the youngest file of that name the name of `path` again, when that is missing: the system replaces a
/// file by giving both of them other names, one after the other.
void RestoreInterrupted(const std::wstring& path);

} // namespace nesk::platform::windows
