#include "platform/windows/AbandonedFiles.h"

#include "platform/ErrorCode.h"
#include "platform/windows/SystemError.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <tuple>

namespace nesk::platform::windows {

namespace {

// One hour in units of 100 nanoseconds.
constexpr std::uint64_t TicksUntilAbandoned = std::uint64_t{3600} * 10'000'000;

std::uint64_t Ticks(const FILETIME& time) {
    return (std::uint64_t{time.dwHighDateTime} << 32U) | time.dwLowDateTime;
}

// A copy has the last-write time of its original, so its creation time counts, too.
std::uint64_t LastUsed(const WIN32_FILE_ATTRIBUTE_DATA& file) {
    return std::max(Ticks(file.ftCreationTime), Ticks(file.ftLastWriteTime));
}

bool IsNumber(std::wstring_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
}

// Calls `callback` for each file whose path is `front`, a number and "~".
template <typename Callback>
void ForEachNumbered(const std::wstring& front, const Callback& callback) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((front + L"*~").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    const std::size_t folder = front.find_last_of(L"\\/") + 1;
    const std::size_t begin = front.size() - folder;
    do {
        const std::wstring_view name = found.cFileName;
        // The search also finds the user's own files of similar names, and short names.
        if (name.size() > begin && IsNumber(name.substr(begin, name.size() - begin - 1)))
            callback(front.substr(0, folder).append(name), found);
    } while (::FindNextFileW(search, &found) != 0);
    ::FindClose(search);
}

} // namespace

ErrorCode RemoveAbandoned(const std::wstring& path) {
    if (path.empty()) return ErrorCode::PathNotFound;
    WIN32_FILE_ATTRIBUTE_DATA found{};
    if (::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &found) == 0) return LastError();
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    // Between writing a file and moving it into place, a program does not have it open, so only its age shows
    // whether it is abandoned.
    if (Ticks(now) < LastUsed(found) + TicksUntilAbandoned) return ErrorCode::SharingViolation;
    return ::DeleteFileW(path.c_str()) != 0 ? ErrorCode::Success : LastError();
}

void RemoveAbandonedFiles(const std::wstring& front) {
    ForEachNumbered(front, [](const std::wstring& path, const WIN32_FIND_DATAW&) {
        std::ignore = RemoveAbandoned(path);
    });
}

void RestoreInterrupted(const std::wstring& path) {
    if (path.empty() || ::GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES) return;
    std::wstring newest;
    std::uint64_t written = 0;
    ForEachNumbered(path + ReplacedMark, [&](const std::wstring& old, const WIN32_FIND_DATAW& found) {
        if (!newest.empty() && Ticks(found.ftLastWriteTime) <= written) return;
        newest = old;
        written = Ticks(found.ftLastWriteTime);
    });
    if (!newest.empty()) ::MoveFileExW(newest.c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH);
}

} // namespace nesk::platform::windows
