// A stand-in for hhctrl.ocx. Writes what it is asked to show into the file that NESK_TEST_HELP_LOG names.
#include <string>
#include <windows.h>

extern "C" HWND WINAPI HtmlHelpA(HWND caller, LPCSTR file, UINT command, DWORD_PTR data) {
    char log[MAX_PATH] = "";
    GetEnvironmentVariableA("NESK_TEST_HELP_LOG", log, sizeof log);
    const std::string line = std::to_string(command) + "|" + std::to_string(data) + "|" + file + "|" +
                             (caller != nullptr ? "owner" : "") + "\n";
    const HANDLE output = CreateFileA(log, FILE_APPEND_DATA, 0, nullptr, OPEN_ALWAYS, 0, nullptr);
    DWORD written = 0;
    WriteFile(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(output);
    // Simulates a file that the viewer cannot open.
    return line.find("broken") == std::string::npos ? GetDesktopWindow() : nullptr;
}
