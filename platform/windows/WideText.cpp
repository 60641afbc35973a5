#include "platform/windows/WideText.h"

#include <windows.h>

namespace nesk::platform::windows {

namespace {

// The path of a folder must be 12 characters shorter than that of a file, so that a name of 8.3 characters
// fits.
constexpr std::size_t LongestPlainPath = MAX_PATH - 12;

} // namespace

std::wstring ToWide(std::string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0)), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string FromWide(std::wstring_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr,
                                                                    0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), static_cast<int>(narrow.size()),
                        nullptr, nullptr);
    return narrow;
}

std::wstring FilePath(const std::string& path) {
    if (path.empty() || path.find('\0') != std::string::npos) return {};
    std::wstring wide = ToWide(path);
    // A device path, or a path that already has the prefix.
    if (wide.starts_with(L"\\\\?\\") || wide.starts_with(L"\\\\.\\")) return wide;
    std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    if (full.size() < LongestPlainPath) return full;
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

} // namespace nesk::platform::windows
