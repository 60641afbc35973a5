#include "unit/platform/windows/HeldFile.h"

#include "platform/FileSystem.h"
#include "platform/windows/WideText.h"

#include <array>
#include <stdexcept>

namespace nesk::testing {

using platform::windows::Handle;

namespace {

constexpr DWORD LongestWait = 20000;

struct Pipe {
    Handle read;
    Handle write;
};

Pipe MakePipe() {
    HANDLE read = nullptr;
    HANDLE write = nullptr;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    if (::CreatePipe(&read, &write, &inherited, 0) == 0) throw std::runtime_error("the test has no pipe");
    return {Handle(read), Handle(write)};
}

// The other process must not inherit this process's ends, or neither process would see the pipe close.
void KeepHere(const Handle& end) {
    ::SetHandleInformation(end.Get(), HANDLE_FLAG_INHERIT, 0);
}

} // namespace

HeldFile::HeldFile(const std::string& windowsPath, const std::string& sharing) {
    Pipe input = MakePipe();
    Pipe output = MakePipe();
    KeepHere(input.write);
    KeepHere(output.read);
    const std::string program = platform::ProgramFolder() + "\\HoldFile.exe";
    std::wstring command =
        platform::windows::ToWide("\"" + program + "\" \"" + windowsPath + "\" " + sharing);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input.read.Get();
    startup.hStdOutput = output.write.Get();
    startup.hStdError = ::GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    if (::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                         &started) == 0)
        throw std::runtime_error("the test cannot start HoldFile");
    ::CloseHandle(started.hThread);
    m_process = Handle(started.hProcess);
    m_input = std::move(input.write);
    output.write.Close();
    std::array<char, 16> answer{};
    DWORD size = 0;
    if (::ReadFile(output.read.Get(), answer.data(), static_cast<DWORD>(answer.size()), &size, nullptr) ==
            0 ||
        !std::string(answer.data(), size).starts_with("open"))
        throw std::runtime_error("the test cannot hold " + windowsPath);
}

HeldFile::~HeldFile() {
    m_input.Close();
    if (::WaitForSingleObject(m_process.Get(), LongestWait) != WAIT_OBJECT_0)
        ::TerminateProcess(m_process.Get(), 1);
}

} // namespace nesk::testing
