#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace nesk::platform::portable {

/// A viewer that runs beside this program, at most one at a time, in a session of its own. It may outlive the
/// program: only the next viewer ends it.
class ViewerProcess {
public:
    /// Ends the viewer that was started before, if it still runs, and starts another.
    /// @param arguments  the program, looked up in PATH, and its arguments; no shell sees them
    /// @return 0, or the errno value that says why the program could not be started
    int Start(const std::vector<std::string>& arguments);

private:
    void End();
    bool HasEnded();

    pid_t m_process = 0;
};

} // namespace nesk::platform::portable
