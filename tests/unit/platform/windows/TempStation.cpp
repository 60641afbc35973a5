#include "unit/platform/TempStation.h"

#include "platform/common/NativePath.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WideText.h"

#include <aclapi.h>
#include <cstdlib>
#include <set>
#include <stdexcept>
#include <vector>
#include <windows.h>

#include <winioctl.h>

namespace nesk {

namespace fs = std::filesystem;

namespace {

using platform::windows::FilePath;

// The key of all settings, and below it the key that the program reads at its start.
constexpr const wchar_t* SettingsKey = L"SOFTWARE\\Quarndale";
constexpr const wchar_t* OwnSettingsKey = L"SOFTWARE\\Quarndale\\Neskworks";

// Gives everyone or no one full access to the settings.
void LetUseSettings(bool allowed) {
    ACL everyone{};
    ::InitializeAcl(&everyone, sizeof everyone, ACL_REVISION);
    // An empty list denies everything; a missing list denies nothing.
    for (const wchar_t* key : {SettingsKey, OwnSettingsKey}) {
        std::wstring path = std::wstring(L"MACHINE\\") + key;
        ::SetNamedSecurityInfoW(path.data(), SE_REGISTRY_KEY, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                allowed ? nullptr : &everyone, nullptr);
    }
}

void RemoveSettings() {
    LetUseSettings(true);
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, SettingsKey);
}

// The entries of a folder; empty for a file.
std::vector<WIN32_FIND_DATAW> EntriesOf(const std::wstring& folder) {
    std::vector<WIN32_FIND_DATAW> entries;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = ::FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return entries;
    do {
        const std::wstring name = entry.cFileName;
        if (name != L"." && name != L"..") entries.push_back(entry);
    } while (::FindNextFileW(search, &entry) != 0);
    ::FindClose(search);
    return entries;
}

// Removes a file, or a folder of any depth, even if write-protected, which the standard library cannot do.
void RemoveTree(const std::wstring& path) {
    const std::wstring prefix = L"\\\\?\\";
    std::vector<std::wstring> folders{prefix + path};
    ::SetFileAttributesW(folders.front().c_str(), FILE_ATTRIBUTE_NORMAL);
    if (::DeleteFileW(folders.front().c_str()) != 0) return;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        for (const WIN32_FIND_DATAW& entry : EntriesOf(folders[i])) {
            const std::wstring inside = folders[i] + L"\\" + entry.cFileName;
            ::SetFileAttributesW(inside.c_str(), FILE_ATTRIBUTE_NORMAL);
            if ((entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
                folders.push_back(inside);
            else
                ::DeleteFileW(inside.c_str());
        }
    }
    // The deepest folders are last.
    for (auto folder = folders.rbegin(); folder != folders.rend(); ++folder)
        ::RemoveDirectoryW(folder->c_str());
}

std::set<std::wstring> NamesOnC() {
    std::set<std::wstring> names;
    for (const WIN32_FIND_DATAW& entry : EntriesOf(L"C:"))
        names.insert(entry.cFileName);
    return names;
}

// The names on drive C: before the first test.
const std::set<std::wstring>& SystemNames() {
    static const std::set<std::wstring> names = NamesOnC();
    return names;
}

// Wine keeps its drives in a folder of links, which only its own mount manager changes. A drive made there by
// DefineDosDevice cannot be used to open files. This is the manager's request and its input.
constexpr DWORD DefineDriveRequest = CTL_CODE('m', 32, METHOD_BUFFERED, FILE_READ_ACCESS | FILE_WRITE_ACCESS);

struct DriveRequest {
    ULONG size = sizeof(DriveRequest);
    ULONG type = DRIVE_FIXED;
    ULONG fileSystem = 0;
    DWORD serial = 0;
    ULONGLONG device = 0;
    WCHAR letter = 0;
    USHORT folderOffset = 0;
    USHORT deviceOffset = 0;
    USHORT labelOffset = 0;
};

using HostNameFunction = char*(CDECL*)(const WCHAR* path);

// Wine's function that returns the host's name of a file; null on Windows.
HostNameFunction WineHostName() {
    return reinterpret_cast<HostNameFunction>(reinterpret_cast<void (*)()>(
        ::GetProcAddress(::GetModuleHandleW(L"kernel32"), "wine_get_unix_file_name")));
}

// Adds a drive whose root is a folder; removes the drive if `folder` is empty.
bool DefineDrive(char letter, const fs::path& folder) {
    const auto wideLetter = static_cast<wchar_t>(letter);
    const HostNameFunction hostName = WineHostName();
    if (hostName == nullptr) {
        const std::wstring drive{wideLetter, L':'};
        return folder.empty() ? ::DefineDosDeviceW(DDD_REMOVE_DEFINITION, drive.c_str(), nullptr) != 0
                              : ::DefineDosDeviceW(0, drive.c_str(), folder.c_str()) != 0;
    }
    DriveRequest request;
    request.letter = wideLetter;
    std::string bytes;
    if (folder.empty()) {
        request.type = DRIVE_NO_ROOT_DIR;
        bytes.assign(reinterpret_cast<const char*>(&request), sizeof request);
    } else {
        char* const host = hostName(folder.c_str());
        if (host == nullptr) return false;
        request.folderOffset = sizeof request;
        bytes.assign(reinterpret_cast<const char*>(&request), sizeof request);
        bytes.append(host).push_back('\0');
        ::HeapFree(::GetProcessHeap(), 0, host);
    }
    const platform::windows::Handle manager(::CreateFileW(
        L"\\\\.\\MountPointManager", GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    DWORD unused = 0;
    return manager && ::DeviceIoControl(manager.Get(), DefineDriveRequest, bytes.data(),
                                        static_cast<DWORD>(bytes.size()), nullptr, 0, &unused, nullptr) != 0;
}

} // namespace

TempStation::TempStation() {
    if (std::getenv("NESKMANAGER_TEST_PREFIX") == nullptr)
        throw std::runtime_error(
            "these tests change the machine's settings and its drive C:; run them by ./test");
    SystemNames();
    RemoveSettings();
    m_folder = fs::temp_directory_path() / ("nesk-test-" + std::to_string(::GetCurrentProcessId()));
    fs::create_directories(m_folder);
}

TempStation::~TempStation() {
    Leave();
    for (const char letter : m_drives)
        DefineDrive(letter, {});
    for (const std::wstring& name : NamesOnC())
        if (!SystemNames().contains(name)) RemoveTree(L"C:\\" + name);
    RemoveTree(m_folder.native());
}

fs::path TempStation::Host(const std::string& windowsPath) {
    return platform::common::ToNativePath(windowsPath);
}

void TempStation::AddDrive(char letter) {
    const char upper = static_cast<char>(letter & ~0x20);
    if (upper == 'C' || m_drives.find(upper) != std::string::npos) return;
    const fs::path folder = m_folder / std::string(1, upper);
    fs::create_directories(folder);
    if (!DefineDrive(upper, folder)) throw std::runtime_error("no further drive");
    m_drives += upper;
}

void TempStation::Write(const std::string& windowsPath, const std::string& bytes) {
    if (windowsPath.size() > 1 && windowsPath[1] == ':') AddDrive(windowsPath[0]);
    for (std::size_t end = windowsPath.find('\\', 3); end != std::string::npos;
         end = windowsPath.find('\\', end + 1))
        ::CreateDirectoryW(FilePath(windowsPath.substr(0, end)).c_str(), nullptr);
    const platform::windows::Handle file(::CreateFileW(FilePath(windowsPath).c_str(), GENERIC_WRITE, 0,
                                                       nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL,
                                                       nullptr));
    DWORD written = 0;
    if (!file ||
        ::WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) == 0)
        throw std::runtime_error("the test cannot write " + windowsPath);
}

void TempStation::Leave() {
    RemoveSettings();
}

void TempStation::BreakSettings() {
    HKEY key = nullptr;
    ::RegCreateKeyExW(HKEY_LOCAL_MACHINE, OwnSettingsKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                      nullptr);
    ::RegCloseKey(key);
    LetUseSettings(false);
}

} // namespace nesk
