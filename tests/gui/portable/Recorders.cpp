#include "gui/Recorders.h"

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

namespace nesk::testing {

namespace fs = std::filesystem;

namespace {

std::string Contents(const fs::path& path) {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    return text.str();
}

void WriteScript(const fs::path& path, const std::string& commands) {
    std::ofstream(path) << "#!/bin/sh\n" << commands;
    fs::permissions(path, fs::perms::owner_all);
}

} // namespace

HelpRecorder::HelpRecorder(const TempStation& station) : m_log(station.Folder() / "shown") {
    const fs::path script = station.Folder() / "viewer";
    // The file is renamed into place, so that a half-written line is never read.
    const std::string log = m_log.string();
    WriteScript(script, "if [ \"$1\" = -c ]; then echo \"$2\"; else echo contents; fi > '" + log +
                            "~'\nmv '" + log + "~' '" + log + "'\n");
    ::setenv("NESKMANAGER_HELPVIEWER", script.c_str(), 1);
}

HelpRecorder::~HelpRecorder() {
    ::unsetenv("NESKMANAGER_HELPVIEWER");
}

std::string HelpRecorder::Shown() const {
    for (int i = 0; i < 250 && !WasCalled(); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    std::string line;
    std::ifstream file(m_log);
    std::getline(file, line);
    return line;
}

bool HelpRecorder::WasCalled() const {
    return fs::exists(m_log);
}

PartInfoRecorder::PartInfoRecorder(const TempStation& station) : m_folder(station.Folder()) {
    ::setenv("NESKMANAGER_EDITPIF", "no-such-editor", 1);
}

PartInfoRecorder::~PartInfoRecorder() {
    ::unsetenv("NESKMANAGER_EDITPIF");
}

void PartInfoRecorder::Install(const std::string& iniPath) {
    WriteScript(m_folder / "editpif",
                "[ $# = 3 ] || exit 2\nprintf '%s|' \"$@\" > '" + (m_folder / "log").string() +
                    "'\nprintf '[Part]\\nName=Renamed\\n' > '" + TempStation::Host(iniPath).string() + "'\n");
    ::setenv("NESKMANAGER_EDITPIF", (m_folder / "editpif").c_str(), 1);
}

void PartInfoRecorder::InstallFailing() {
    WriteScript(m_folder / "editpif", "exit 3\n");
    ::setenv("NESKMANAGER_EDITPIF", (m_folder / "editpif").c_str(), 1);
}

std::string PartInfoRecorder::Log() const {
    return Contents(m_folder / "log");
}

} // namespace nesk::testing
