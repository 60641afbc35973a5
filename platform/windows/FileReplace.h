#pragma once

#include <string>

/// The steps of saving a file that put one file in the place of another. All answer with a result code.
namespace nesk::platform::windows {

/// Gives `to` the access rights of `from`, and its owner where the user may do that.
int CopyAccessRights(const std::wstring& from, const std::wstring& to);

/// Makes `copy` hold the contents of `path` in one step. AlreadyExists when it exists and may not be
/// replaced.
int KeepCopy(const std::wstring& path, const std::wstring& copy, bool mayReplace);

/// Puts `replacement` in the place of `path`, which may be missing, in one step. A link is followed: what it
/// leads to is replaced. AccessDenied when `path` is read-only or a folder.
int ReplaceOrMove(const std::wstring& path, const std::wstring& replacement);

} // namespace nesk::platform::windows
