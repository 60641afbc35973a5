#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace nesk::testing {

/// This program in a second process, which saves again and again, tells so and is killed.
class Victim {
public:
    /// Starts it.
    /// @param arguments  what its main gets; behind them comes the number of the descriptor for SaveProgress
    explicit Victim(std::vector<std::string> arguments);
    ~Victim();
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    /// Waits until the first save begins.
    void WaitForSave();

    /// Waits until a number of saves has ended.
    void WaitForEnds(int saves);

    /// Ends it by SIGKILL. False when it had ended by itself, which it never should.
    bool Kill();

    /// Known after Kill.
    int Begun() const { return m_begun; }
    int Ended() const { return m_ended; }

private:
    bool ReadProgress();

    pid_t m_process = -1;
    int m_progress = -1;
    int m_begun = 0;
    int m_ended = 0;
};

/// The victim's side: tells that a save begins or has ended.
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
