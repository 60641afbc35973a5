#pragma once

#include "unit/platform/TempStation.h"

#include <string>
#include <vector>

namespace nesk::testing {

/// Takes the place of the system's help viewer and notes what it is asked to show.
class HelpRecorder {
public:
    explicit HelpRecorder(const TempStation& station);
    ~HelpRecorder();
    HelpRecorder(const HelpRecorder&) = delete;
    HelpRecorder& operator=(const HelpRecorder&) = delete;

    /// The topic that was asked for, as decimal text; "contents" for the table of contents. Waits some
    /// seconds for a viewer that runs beside the program; "" when it was not called.
    std::string Shown() const;

#ifndef NESK_PORTABLE_STATION
    /// What each call asked for, as Shown tells it. On the portable station a call ends the viewer of the one
    /// before, which may not have come to note anything.
    std::vector<std::string> Calls() const;
#endif

    /// Whether the viewer was called, without waiting.
    bool WasCalled() const;

private:
    std::filesystem::path m_log;
};

/// Takes the place of the operator interface's part-information editor. Until it is installed there is none.
class PartInfoRecorder {
public:
    explicit PartInfoRecorder(const TempStation& station);
    ~PartInfoRecorder();
    PartInfoRecorder(const PartInfoRecorder&) = delete;
    PartInfoRecorder& operator=(const PartInfoRecorder&) = delete;

    /// An editor that notes its arguments and gives the part the name "Renamed".
    /// @param iniPath  Windows path of the partinfo.ini that it writes
    void Install(const std::string& iniPath);

    /// An editor that fails.
    void InstallFailing();

    /// The three arguments of the last call, a "|" after each; "" when there was none.
    std::string Log() const;

private:
    std::filesystem::path m_folder;
};

} // namespace nesk::testing
