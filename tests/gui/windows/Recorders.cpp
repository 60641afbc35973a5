#include "gui/Recorders.h"

#include "platform/PartInfoEditor.h"

#include <array>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <windows.h>

// Both stand-ins are modules next to the tests.

namespace nesk::testing {

namespace fs = std::filesystem;

namespace {

constexpr const wchar_t* ProgramIdKey = L"SOFTWARE\\Classes\\NeskMonitor.EditPIF";
constexpr const wchar_t* ClassKey = L"SOFTWARE\\Classes\\CLSID\\{6F0C6F7E-9B52-4C2C-8F14-3D6A35E0C5B1}";

std::string Contents(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

fs::path Module(const wchar_t* name) {
    std::array<wchar_t, MAX_PATH> program{};
    ::GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    return fs::path(program.data()).parent_path() / name;
}

fs::path SystemFolder() {
    std::array<wchar_t, MAX_PATH> folder{};
    ::GetSystemDirectoryW(folder.data(), static_cast<UINT>(folder.size()));
    return folder.data();
}

void SetKey(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const auto size = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    if (::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, value.c_str(), size) !=
        ERROR_SUCCESS)
        throw std::runtime_error("the test's COM object cannot be registered");
}

bool InstallHelpViewer() {
    const fs::path viewer = Module(L"FakeHelpViewer.dll");
    if (::CopyFileW(viewer.c_str(), (SystemFolder() / "hhctrl.ocx").c_str(), FALSE) == 0)
        throw std::runtime_error("the test's help viewer cannot be installed");
    return true;
}

} // namespace

HelpRecorder::HelpRecorder(const TempStation& station) : m_log(station.Folder() / "shown") {
    // Once the program has loaded the viewer, its file cannot be replaced; it is then already the right one.
    [[maybe_unused]] static const bool installed = InstallHelpViewer();
    ::SetEnvironmentVariableW(L"NESK_TEST_HELP_LOG", m_log.c_str());
}

HelpRecorder::~HelpRecorder() {
    ::SetEnvironmentVariableW(L"NESK_TEST_HELP_LOG", nullptr);
}

std::vector<std::string> HelpRecorder::Calls() const {
    std::vector<std::string> calls;
    std::istringstream lines(Contents(m_log));
    for (std::string line; std::getline(lines, line);) {
        // command|data|file|owner
        std::string command;
        std::string data;
        std::istringstream fields(line);
        std::getline(fields, command, '|');
        std::getline(fields, data, '|');
        calls.push_back(command == "15" ? data : command == "1" ? "contents" : command);
    }
    return calls;
}

std::string HelpRecorder::Shown() const {
    const std::vector<std::string> calls = Calls();
    return calls.empty() ? "" : calls.front();
}

bool HelpRecorder::WasCalled() const {
    return fs::exists(m_log);
}

PartInfoRecorder::PartInfoRecorder(const TempStation& station) : m_folder(station.Folder()) {
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, ProgramIdKey);
    // The program still holds the object from an earlier test.
    platform::ReleasePartInfoEditor();
}

PartInfoRecorder::~PartInfoRecorder() {
    platform::ReleasePartInfoEditor();
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, ProgramIdKey);
    ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, ClassKey);
}

void PartInfoRecorder::Install(const std::string&) {
    const std::wstring classId = std::wstring(ClassKey).substr(std::wstring(ClassKey).find(L'{'));
    SetKey(std::wstring(ProgramIdKey) + L"\\CLSID", nullptr, classId);
    SetKey(std::wstring(ClassKey) + L"\\InprocServer32", nullptr, Module(L"FakePartInfoEditor.dll").native());
    SetKey(std::wstring(ClassKey) + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
    ::SetEnvironmentVariableW(L"NESK_TEST_EDITPIF_LOG", (m_folder / "log").c_str());
    ::SetEnvironmentVariableW(L"NESK_TEST_EDITPIF_CALLS", (m_folder / "calls").c_str());
    ::SetEnvironmentVariableW(L"NESK_TEST_EDITPIF_FAIL", nullptr);
}

void PartInfoRecorder::InstallFailing() {
    Install("");
    ::SetEnvironmentVariableW(L"NESK_TEST_EDITPIF_FAIL", L"1");
}

std::string PartInfoRecorder::Log() const {
    return Contents(m_folder / "log");
}

} // namespace nesk::testing
