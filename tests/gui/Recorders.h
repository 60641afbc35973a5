#pragma once

#include "unit/platform/TempStation.h"

#include <string>
#include <vector>

namespace nesk::testing {

/// Replaces the system's help viewer and records what it is asked to show.
class HelpRecorder {
public:
    explicit HelpRecorder(const TempStation& station);
    ~HelpRecorder();
    HelpRecorder(const HelpRecorder&) = delete;
    HelpRecorder& operator=(const HelpRecorder&) = delete;

    /// The requested topic as decimal text; "contents" for the table of contents; "" if the viewer was not
    /// called. Waits some seconds, because a viewer may run in a process of its own.
    std::string Shown() const;

#ifndef NESK_PORTABLE_STATION
    /// What each call requested, in the format of Shown. On the portable station a call ends the viewer of
    /// the previous call, which may not have recorded its request yet.
    std::vector<std::string> Calls() const;
#endif

    /// Returns whether the viewer was called, without waiting.
    bool WasCalled() const;

private:
    std::filesystem::path m_log;
};

/// Replaces the operator interface's part-information editor. Until Install is called, no editor is
/// available.
class PartInfoRecorder {
public:
    explicit PartInfoRecorder(const TempStation& station);
    ~PartInfoRecorder();
    PartInfoRecorder(const PartInfoRecorder&) = delete;
    PartInfoRecorder& operator=(const PartInfoRecorder&) = delete;

    /// Installs an editor that records its arguments and renames the part to "Renamed".
    /// @param iniPath  Windows path of the partinfo.ini that the editor writes
    void Install(const std::string& iniPath);

    /// Installs an editor that fails.
    void InstallFailing();

    /// The three arguments of the last call, each followed by "|"; "" if there was no call.
    std::string Log() const;

private:
    std::filesystem::path m_folder;
};

} // namespace nesk::testing
