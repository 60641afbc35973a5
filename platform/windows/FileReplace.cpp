#include "platform/windows/FileReplace.h"

#include "platform/ErrorCode.h"
#include "platform/windows/AbandonedFiles.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"

#include <aclapi.h>
#include <memory>
#include <tuple>

namespace nesk::platform::windows {

namespace {

constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct LocalFreer {
    void operator()(void* memory) const { ::LocalFree(memory); }
};

// Flushes a closed file to the disk.
ErrorCode FlushFile(const std::wstring& path) {
    const Handle file(
        ::CreateFileW(path.c_str(), GENERIC_WRITE, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    return file && ::FlushFileBuffers(file.Get()) != 0 ? ErrorCode::Success : LastError();
}

// Sets the last-write time of a copy to now. A copy has the time of its original, so another program could
// take it for abandoned. File systems without a creation time have only this time.
void SetWrittenNow(const std::wstring& path) {
    const Handle file(
        ::CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    if (file) ::SetFileTime(file.Get(), nullptr, nullptr, &now);
}

// The target of a link; the path itself when it is not a link or its target is missing.
std::wstring FinalPath(const std::wstring& path) {
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return path;
    const Handle file(::CreateFileW(path.c_str(), 0, ShareAll, nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return path;
    std::wstring target(::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    target.resize(::GetFinalPathNameByHandleW(file.Get(), target.data(), static_cast<DWORD>(target.size()),
                                              FILE_NAME_NORMALIZED));
    return target.empty() ? path : target;
}

// Errors of file systems that cannot replace a file, but can rename another file over it: those without
// access rights, and some of other vendors.
bool CannotReplace(DWORD error) {
    return error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED ||
           error == ERROR_CALL_NOT_IMPLEMENTED;
}

// Another program has one of the files open: often a scanner that reads every new file.
bool IsHeld(DWORD error) {
    return error == ERROR_UNABLE_TO_REMOVE_REPLACED || error == ERROR_UNABLE_TO_MOVE_REPLACEMENT ||
           error == ERROR_UNABLE_TO_MOVE_REPLACEMENT_2;
}

// A temporary name beside a file. The process number makes it unique among programs.
std::wstring TemporaryName(const std::wstring& front, const std::wstring& attempt = L"") {
    return front + std::to_wstring(::GetCurrentProcessId()) + attempt + L"~";
}

// Copies a file to a new file beside it, with the same access rights. An existing file or link of that name
// is neither overwritten nor followed.
ErrorCode CopyToNew(const std::wstring& path, const std::wstring& front, std::wstring& copy) {
    constexpr int Names = 100;
    copy = TemporaryName(front);
    for (int i = 1; ::CopyFileW(path.c_str(), copy.c_str(), TRUE) == 0; ++i) {
        const DWORD error = ::GetLastError();
        if ((error != ERROR_FILE_EXISTS && error != ERROR_ALREADY_EXISTS) || i > Names)
            return ErrorFromSystem(error);
        copy = TemporaryName(front, std::to_wstring(i));
    }
    const ErrorCode result = CopyAccessRights(path, copy);
    if (result != ErrorCode::Success) ::DeleteFileW(copy.c_str());
    return result;
}

// Replaces `target`, which exists, with `replacement`, using the system's function. It keeps the attributes
// of the file that do not belong to its contents: access rights, encryption, creation time. When it fails
// halfway, the old file has the temporary name and is renamed back.
DWORD ReplaceExisting(const std::wstring& target, const std::wstring& replacement) {
    const std::wstring front = target + ReplacedMark;
    const std::wstring old = TemporaryName(front);
    const bool done = ::ReplaceFileW(target.c_str(), replacement.c_str(), old.c_str(),
                                     REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0;
    const DWORD error = done ? ERROR_SUCCESS : ::GetLastError();
    if (!done && ::GetFileAttributesW(target.c_str()) == INVALID_FILE_ATTRIBUTES)
        ::MoveFileExW(old.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH);
    else
        ::DeleteFileW(old.c_str());
    if (done) RemoveAbandonedFiles(front);
    return error;
}

} // namespace

ErrorCode CopyAccessRights(const std::wstring& from, const std::wstring& to) {
    constexpr SECURITY_INFORMATION rights = DACL_SECURITY_INFORMATION;
    constexpr SECURITY_INFORMATION owners = OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION;
    PSID owner = nullptr;
    PSID group = nullptr;
    PACL list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD read = ::GetNamedSecurityInfoW(from.c_str(), SE_FILE_OBJECT, rights | owners, &owner, &group,
                                               &list, nullptr, &descriptor);
    const std::unique_ptr<void, LocalFreer> memory(descriptor);
    if (read != ERROR_SUCCESS) return CannotReplace(read) ? ErrorCode::Success : ErrorFromSystem(read);

    std::wstring target = to;
    // Only administrators may change the owner; for other users a failure is not an error.
    ::SetNamedSecurityInfoW(target.data(), SE_FILE_OBJECT, owners, owner, group, nullptr, nullptr);
    SECURITY_DESCRIPTOR_CONTROL control = 0;
    DWORD revision = 0;
    ::GetSecurityDescriptorControl(descriptor, &control, &revision);
    const SECURITY_INFORMATION inheritance = (control & SE_DACL_PROTECTED) != 0
                                                 ? PROTECTED_DACL_SECURITY_INFORMATION
                                                 : UNPROTECTED_DACL_SECURITY_INFORMATION;
    return ErrorFromSystem(::SetNamedSecurityInfoW(target.data(), SE_FILE_OBJECT, rights | inheritance,
                                                   nullptr, nullptr, list, nullptr));
}

ErrorCode KeepCopy(const std::wstring& path, const std::wstring& copy, bool mayReplace) {
    if (path.empty() || copy.empty()) return ErrorCode::PathNotFound;
    if (!mayReplace && ::GetFileAttributesW(copy.c_str()) != INVALID_FILE_ATTRIBUTES)
        return ErrorCode::AlreadyExists;
    const std::wstring front = copy + L".";
    std::wstring temporary;
    if (const ErrorCode copied = CopyToNew(path, front, temporary); copied != ErrorCode::Success)
        return copied;
    // The copy of a write-protected file is write-protected, too. It could then be neither flushed nor
    // replaced by the next copy.
    ::SetFileAttributesW(temporary.c_str(), FILE_ATTRIBUTE_NORMAL);
    SetWrittenNow(temporary);
    ErrorCode result = FlushFile(temporary);
    const DWORD flags = MOVEFILE_WRITE_THROUGH | (mayReplace ? DWORD{MOVEFILE_REPLACE_EXISTING} : 0);
    if (result == ErrorCode::Success && ::MoveFileExW(temporary.c_str(), copy.c_str(), flags) == 0)
        result = LastError();
    if (result != ErrorCode::Success) ::DeleteFileW(temporary.c_str());
    RemoveAbandonedFiles(front);
    return result;
}

ErrorCode ReplaceOrMove(const std::wstring& path, const std::wstring& replacement) {
    if (path.empty() || replacement.empty()) return ErrorCode::PathNotFound;
    const std::wstring target = FinalPath(path);
    const DWORD attributes = ::GetFileAttributesW(target.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return ::MoveFileExW(replacement.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) != 0
                   ? ErrorCode::Success
                   : LastError();
    if ((attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)) != 0)
        return ErrorCode::AccessDenied;
    if (const DWORD error = ReplaceExisting(target, replacement); error != ERROR_SUCCESS) {
        if (IsHeld(error)) return ErrorCode::SharingViolation;
        if (!CannotReplace(error)) return ErrorFromSystem(error);
        if (::MoveFileExW(replacement.c_str(), target.c_str(),
                          MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
            return LastError();
    }
    // The contents are already on the disk, so it does not matter if this fails because another program has
    // the file open.
    std::ignore = FlushFile(target);
    return ErrorCode::Success;
}

} // namespace nesk::platform::windows
