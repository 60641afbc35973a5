// A second program that has a file open. It opens the file that its first argument names and shares nothing,
// or only what its second argument lists: "read", "write" or "delete". It writes a line when the file is open
// and keeps it open until its input ends.
#include <iostream>
#include <string>
#include <windows.h>

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return 2;
    DWORD share = 0;
    for (int i = 2; i < count; ++i) {
        const std::wstring allowed = arguments[i];
        share |= allowed == L"read"    ? DWORD{FILE_SHARE_READ}
                 : allowed == L"write" ? DWORD{FILE_SHARE_WRITE}
                                       : DWORD{FILE_SHARE_DELETE};
    }
    const HANDLE file = CreateFileW(arguments[1], GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
    std::cout << (file != INVALID_HANDLE_VALUE ? "open" : "failed") << std::endl;
    std::string unused;
    std::getline(std::cin, unused);
    return 0;
}
