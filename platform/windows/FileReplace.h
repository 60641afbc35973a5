#pragma once

#include "platform/ErrorCode.h"

#include <string>

/// The steps of saving that replace one file with another. All functions return result codes.
namespace nesk::platform::windows {

/// Copies the access rights of `from` to `to`, and the owner where the user's privileges allow it.
ErrorCode CopyAccessRights(const std::wstring& from, const std::wstring& to);

/// Copies the contents of `path` to `copy` atomically. AlreadyExists when `copy` exists and `mayReplace` is
/// false.
ErrorCode KeepCopy(const std::wstring& path, const std::wstring& copy, bool mayReplace);

/// Atomically replaces `path`, which may be missing, with `replacement`. If `path` is a link, its target is
/// replaced. AccessDenied when `path` is read-only or a folder.
ErrorCode ReplaceOrMove(const std::wstring& path, const std::wstring& replacement);

} // namespace nesk::platform::windows
