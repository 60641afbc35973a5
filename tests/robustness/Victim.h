#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace nesk::testing {

/// This program in a second process, which saves repeatedly, reports each save and is killed.
class Victim {
public:
    /// Starts the process.
    /// @param arguments  arguments of its main; the number of the descriptor for SaveProgress is appended
    explicit Victim(std::vector<std::string> arguments);
    ~Victim();
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    /// Waits until the first save begins.
    void WaitForSave();

    /// Waits until a number of saves have ended.
    void WaitForEnds(int saves);

    /// Kills the process by SIGKILL. Returns false if it had already ended by itself, which must never
    /// happen.
    bool Kill();

    /// Valid after Kill.
    int Begun() const { return m_begun; }
    int Ended() const { return m_ended; }

private:
    bool ReadProgress();

    pid_t m_process = -1;
    int m_progress = -1;
    int m_begun = 0;
    int m_ended = 0;
};

/// The victim's side: reports the begin and the end of each save.
class SaveProgress {
public:
    explicit SaveProgress(const std::string& descriptor);
    void Begin() const { Tell('B'); }
    void End() const { Tell('E'); }

private:
    void Tell(char what) const;

    int m_descriptor;
};

} // namespace nesk::testing
