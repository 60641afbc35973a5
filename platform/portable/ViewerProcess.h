#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace nesk::platform::portable {

/// A viewer process, at most one at a time, in a session of its own. It may outlive the program: only
/// starting the next viewer ends it.
class ViewerProcess {
public:
    /// Ends the previous viewer if it still runs, and starts a new one.
    /// @param arguments  the program, searched in PATH, and its arguments; no shell interprets them
    /// @return 0, or the errno value of the failed start
    int Start(const std::vector<std::string>& arguments);

private:
    void End();
    bool HasEnded();

    pid_t m_process = 0;
};

} // namespace nesk::platform::portable
