#include "platform/FileSystem.h"

#include "platform/ErrorCode.h"
#include "platform/windows/AbandonedFiles.h"
#include "platform/windows/FileReplace.h"
#include "platform/windows/Handle.h"
#include "platform/windows/SystemError.h"
#include "platform/windows/WideText.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace nesk::platform {

namespace {

using windows::FilePath;
using windows::FromWide;
using windows::Handle;
using windows::LastError;

// Other programs keep full access to a file while it is read.
constexpr DWORD ShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// The largest size read or written in one call.
DWORD Portion(std::size_t size) {
    return static_cast<DWORD>(std::min<std::size_t>(size, std::size_t{1} << 30U));
}

// Reads a file up to the length that it had when it was opened.
class SystemReader final : public FileReader {
public:
    SystemReader(Handle handle, LONGLONG length)
        : m_handle(std::move(handle)), m_left(static_cast<ULONGLONG>(length)) {}

    ErrorCode Read(char* buffer, std::size_t capacity, std::size_t& count) override {
        const auto portion = static_cast<DWORD>(std::min<ULONGLONG>(Portion(capacity), m_left));
        DWORD got = 0;
        const bool done = ::ReadFile(m_handle.Get(), buffer, portion, &got, nullptr) != 0;
        count = done ? got : 0;
        m_left -= count;
        return done ? ErrorCode::Success : LastError();
    }

private:
    Handle m_handle;
    ULONGLONG m_left;
};

class SystemWriter final : public FileWriter {
public:
    explicit SystemWriter(Handle handle) : m_handle(std::move(handle)) {}

    ErrorCode Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            DWORD put = 0;
            if (::WriteFile(m_handle.Get(), bytes.data(), Portion(bytes.size()), &put, nullptr) == 0)
                return LastError();
            bytes.remove_prefix(put);
        }
        return ErrorCode::Success;
    }

    ErrorCode Flush() override {
        return ::FlushFileBuffers(m_handle.Get()) != 0 ? ErrorCode::Success : LastError();
    }

    ErrorCode Close() override { return m_handle.Close() ? ErrorCode::Success : LastError(); }

private:
    Handle m_handle;
};

DirectoryEntry EntryOf(const WIN32_FIND_DATAW& found) {
    return {FromWide(found.cFileName), found.dwFileAttributes};
}

class SystemSearch final : public DirectorySearch {
public:
    explicit SystemSearch(HANDLE search) : m_search(search) {}
    ~SystemSearch() override { ::FindClose(m_search); }
    SystemSearch(const SystemSearch&) = delete;
    SystemSearch& operator=(const SystemSearch&) = delete;

    ErrorCode Next(DirectoryEntry& entry) override {
        WIN32_FIND_DATAW found{};
        if (::FindNextFileW(m_search, &found) == 0)
            return ::GetLastError() == ERROR_NO_MORE_FILES ? ErrorCode::NoMoreItems : LastError();
        entry = EntryOf(found);
        return ErrorCode::Success;
    }

private:
    HANDLE m_search;
};

// A search for a name without wildcards, with at most one entry.
class SingleSearch final : public DirectorySearch {
public:
    ErrorCode Next(DirectoryEntry&) override { return ErrorCode::NoMoreItems; }
};

class SystemFiles final : public FileSystem {
public:
    ErrorCode Attributes(const std::string& path, std::uint32_t& attributes) override {
        attributes = 0;
        const std::wstring name = FilePath(path);
        if (name.empty()) return ErrorCode::PathNotFound;
        const DWORD found = ::GetFileAttributesW(name.c_str());
        if (found == INVALID_FILE_ATTRIBUTES) return LastError();
        attributes = found;
        return ErrorCode::Success;
    }

    ErrorCode Search(const std::string& pattern, std::unique_ptr<DirectorySearch>& search,
                     DirectoryEntry& first) override {
        search.reset();
        const std::string name = pattern.substr(pattern.find_last_of("\\/") + 1);
        if (name.find_first_of("*?") == std::string::npos) return SearchOne(pattern, search, first);
        const std::wstring path = FilePath(pattern);
        WIN32_FIND_DATAW found{};
        const HANDLE handle = ::FindFirstFileW(path.c_str(), &found);
        if (handle == INVALID_HANDLE_VALUE) return LastError();
        first = EntryOf(found);
        search = std::make_unique<SystemSearch>(handle);
        return ErrorCode::Success;
    }

    ErrorCode MakeFolder(const std::string& path) override {
        const std::wstring name = FilePath(path);
        if (name.empty()) return ErrorCode::PathNotFound;
        return ::CreateDirectoryW(name.c_str(), nullptr) != 0 ? ErrorCode::Success : LastError();
    }

    ErrorCode OpenForReading(const std::string& path, std::unique_ptr<FileReader>& reader) override {
        reader.reset();
        const std::wstring name = FilePath(path);
        if (name.empty()) return ErrorCode::PathNotFound;
        Handle handle(::CreateFileW(name.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (!handle) return LastError();
        // A read from a pipe or a device could wait forever.
        if (::GetFileType(handle.Get()) != FILE_TYPE_DISK) return ErrorCode::AccessDenied;
        LARGE_INTEGER length{};
        if (::GetFileSizeEx(handle.Get(), &length) == 0) return LastError();
        reader = std::make_unique<SystemReader>(std::move(handle), length.QuadPart);
        return ErrorCode::Success;
    }

    ErrorCode CreateNew(const std::string& path, std::unique_ptr<FileWriter>& writer) override {
        writer.reset();
        const std::wstring name = FilePath(path);
        if (name.empty()) return ErrorCode::PathNotFound;
        // No other program may open the file while it is written.
        Handle handle(::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!handle) return ::GetLastError() == ERROR_FILE_EXISTS ? ErrorCode::AlreadyExists : LastError();
        writer = std::make_unique<SystemWriter>(std::move(handle));
        return ErrorCode::Success;
    }

    ErrorCode RemoveFile(const std::string& path) override {
        const std::wstring name = FilePath(path);
        if (name.empty()) return ErrorCode::PathNotFound;
        return ::DeleteFileW(name.c_str()) != 0 ? ErrorCode::Success : LastError();
    }

    void RestoreInterrupted(const std::string& path) override { windows::RestoreInterrupted(FilePath(path)); }

    ErrorCode RemoveAbandoned(const std::string& path) override {
        return windows::RemoveAbandoned(FilePath(path));
    }

    // The system does not delete a file while CreateNew has it open.
    ErrorCode RemoveUnheld(const std::string& path) override { return RemoveFile(path); }

    // CreateNew lets no other program open its file.
    bool IsHeld(const std::string& path) override {
        const std::wstring name = FilePath(path);
        if (name.empty()) return false;
        const Handle handle(::CreateFileW(name.c_str(), GENERIC_READ, ShareAll, nullptr, OPEN_EXISTING,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        return !handle && ::GetLastError() == ERROR_SHARING_VIOLATION;
    }

    ErrorCode CopyAccessRights(const std::string& from, const std::string& to) override {
        return windows::CopyAccessRights(FilePath(from), FilePath(to));
    }

    ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        return windows::KeepCopy(FilePath(path), FilePath(copy), mayReplace);
    }

    ErrorCode Replace(const std::string& path, const std::string& replacement) override {
        return windows::ReplaceOrMove(FilePath(path), FilePath(replacement));
    }

private:
    // The system's search functions find neither a path with a trailing separator nor the root of a drive.
    // The attributes show whether such a path exists.
    ErrorCode SearchOne(const std::string& path, std::unique_ptr<DirectorySearch>& search,
                        DirectoryEntry& first) {
        std::uint32_t attributes = 0;
        if (const ErrorCode result = Attributes(path, attributes); result != ErrorCode::Success)
            return result;
        first.attributes = attributes;
        const std::size_t end = path.find_last_not_of("\\/");
        const std::string name = path.substr(0, end == std::string::npos ? 0 : end + 1);
        first.name = name.substr(name.find_last_of("\\/") + 1);
        WIN32_FIND_DATAW found{};
        const HANDLE handle = ::FindFirstFileW(FilePath(name).c_str(), &found);
        if (handle != INVALID_HANDLE_VALUE) {
            // The name as spelled on the disk.
            first.name = FromWide(found.cFileName);
            ::FindClose(handle);
        }
        search = std::make_unique<SingleSearch>();
        return ErrorCode::Success;
    }
};

} // namespace

FileSystem& StationFiles() {
    static SystemFiles files;
    return files;
}

std::string ProgramFolder() {
    std::wstring path(std::numeric_limits<short>::max(), L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::string program = FromWide(path);
    return program.substr(0, program.find_last_of('\\'));
}

} // namespace nesk::platform
