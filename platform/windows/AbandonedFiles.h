#pragma once

#include "platform/ErrorCode.h"

#include <string>

/// Files left behind by programs that were killed while saving.
namespace nesk::platform::windows {

/// Deletes a file that was created and last written more than an hour ago and that no program has open.
/// SharingViolation for any other file.
ErrorCode RemoveAbandoned(const std::wstring& path);

/// Calls RemoveAbandoned for every file whose path is `front`, a number and "~". Errors are ignored.
void RemoveAbandonedFiles(const std::wstring& front);

/// While a file is replaced, the old version is renamed: to the file's name, this mark, a number and "~".
constexpr const wchar_t* ReplacedMark = L".old.";

/// If `path` is missing, renames the newest file with such a name to `path`. The system replaces a file in
/// two steps: it renames the old file, then the new one. A program killed between them leaves `path` missing.
void RestoreInterrupted(const std::wstring& path);

} // namespace nesk::platform::windows
