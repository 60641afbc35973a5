#include "platform/portable/ViewerProcess.h"

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace nesk::platform::portable {

namespace {

using namespace std::chrono_literals;

// How long a viewer may take to end after it was asked to; the windows are blocked during this time.
constexpr auto Patience = 2s;
constexpr auto Interval = 5ms;

// Settings of the viewer process: no input, no output, no inherited open files and default signal handling.
class SpawnSettings {
public:
    SpawnSettings() {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&m_actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&m_actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&m_actions, STDERR_FILENO + 1);
        sigset_t none;
        sigset_t all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setsigmask(&m_attributes, &none);
        posix_spawnattr_setsigdefault(&m_attributes, &all);
        posix_spawnattr_setflags(&m_attributes,
                                 POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings() {
        posix_spawnattr_destroy(&m_attributes);
        posix_spawn_file_actions_destroy(&m_actions);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    const posix_spawn_file_actions_t* Actions() const { return &m_actions; }
    const posix_spawnattr_t* Attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

int ViewerProcess::Start(const std::vector<std::string>& arguments) {
    End();
    std::vector<std::string> copies(arguments);
    std::vector<char*> pointers;
    pointers.reserve(copies.size() + 1);
    for (std::string& copy : copies)
        pointers.push_back(copy.data());
    pointers.push_back(nullptr);
    const SpawnSettings settings;
    pid_t process = 0;
    const int error = posix_spawnp(&process, pointers.front(), settings.Actions(), settings.Attributes(),
                                   pointers.data(), environ);
    if (error == 0) m_process = process;
    return error;
}

// Reaps the viewer if it has ended. Until it is reaped, its process ID cannot be reused.
bool ViewerProcess::HasEnded() {
    if (m_process != 0 && ::waitpid(m_process, nullptr, WNOHANG) != 0) m_process = 0;
    return m_process == 0;
}

void ViewerProcess::End() {
    if (HasEnded()) return;
    // Signals the whole session: the viewer may be a script that started the actual viewer.
    ::kill(-m_process, SIGTERM);
    const auto deadline = std::chrono::steady_clock::now() + Patience;
    while (!HasEnded()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            ::kill(-m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
            m_process = 0;
            return;
        }
        std::this_thread::sleep_for(Interval);
    }
}

} // namespace nesk::platform::portable
