#include "platform/Drives.h"

#include "platform/ErrorCode.h"

#include <array>
#include <windows.h>

namespace nesk::platform {

namespace {

// Disables the system's prompt for a medium while a drive is checked.
class NoMediumPrompt {
public:
    NoMediumPrompt() { ::SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &m_before); }
    ~NoMediumPrompt() { ::SetThreadErrorMode(m_before, nullptr); }
    NoMediumPrompt(const NoMediumPrompt&) = delete;
    NoMediumPrompt& operator=(const NoMediumPrompt&) = delete;

private:
    DWORD m_before = 0;
};

} // namespace

std::vector<char> DriveLetters() {
    std::vector<char> letters;
    const DWORD drives = ::GetLogicalDrives();
    for (unsigned drive = 0; drive < 26; ++drive)
        if ((drives & (1UL << drive)) != 0) letters.push_back(static_cast<char>('A' + drive));
    return letters;
}

ErrorCode CheckDrive(char letter) {
    const NoMediumPrompt noPrompt;
    const std::array<wchar_t, 5> pattern{static_cast<wchar_t>(static_cast<unsigned char>(letter)), L':',
                                         L'\\', L'*', L'\0'};
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW(pattern.data(), &found);
    if (search != INVALID_HANDLE_VALUE) {
        ::FindClose(search);
        return ErrorCode::Success;
    }
    // A root folder has no "." entry, so the search finds nothing in an empty one.
    return ::GetLastError() == ERROR_FILE_NOT_FOUND ? ErrorCode::Success : ErrorCode::NotReady;
}

} // namespace nesk::platform
