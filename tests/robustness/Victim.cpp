#include "robustness/Victim.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace nesk::testing {

Victim::Victim(std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    // The reading end stays in this process; the program gets the number of the other end.
    if (::pipe(ends.data()) != 0 || ::fcntl(ends[0], F_SETFD, FD_CLOEXEC) != 0)
        throw std::runtime_error("no pipe");
    arguments.push_back(std::to_string(ends[1]));
    std::vector<char*> values{const_cast<char*>("victim")};
    for (std::string& argument : arguments)
        values.push_back(argument.data());
    values.push_back(nullptr);
    m_process = ::fork();
    if (m_process == 0) {
        ::execv("/proc/self/exe", values.data());
        ::_exit(127);
    }
    ::close(ends[1]);
    m_progress = ends[0];
    if (m_process < 0) throw std::runtime_error("no process");
}

Victim::~Victim() {
    if (m_process > 0) Kill();
    ::close(m_progress);
}

bool Victim::ReadProgress() {
    std::array<char, 4096> told{};
    ssize_t count = 0;
    do
        count = ::read(m_progress, told.data(), told.size());
    while (count < 0 && errno == EINTR);
    for (ssize_t i = 0; i < count; ++i)
        ++(told[static_cast<std::size_t>(i)] == 'B' ? m_begun : m_ended);
    return count > 0;
}

void Victim::WaitForSave() {
    while (m_begun == 0 && ReadProgress()) {
    }
}

void Victim::WaitForEnds(int saves) {
    while (m_ended < saves && ReadProgress()) {
    }
}

bool Victim::Kill() {
    ::kill(m_process, SIGKILL);
    while (ReadProgress()) {
    }
    int status = 0;
    const bool waited = ::waitpid(m_process, &status, 0) == m_process;
    m_process = -1;
    return waited && WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}

SaveProgress::SaveProgress(const std::string& descriptor) : m_descriptor(std::atoi(descriptor.c_str())) {}

void SaveProgress::Tell(char what) const {
    // If no process reads the reports, no process will kill this one either.
    if (::write(m_descriptor, &what, 1) != 1) ::_exit(0);
}

} // namespace nesk::testing
