#include "platform/PartInfoEditor.h"

#include <array>
#include <cstdlib>

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

namespace nesk::platform {

namespace {

// The command looked for in PATH, or the one that the variable names.
constexpr const char* DefaultCommand = "neskmonitor-editpif";
constexpr const char* CommandVariable = "NESKMANAGER_EDITPIF";

// Full path of the command; empty when there is none that can be run.
wxString FindCommand() {
    const wxString name(PartInfoEditorName().c_str(), wxConvFile);
    wxPathList folders;
    folders.AddEnvList("PATH");
    const wxString found =
        name.Contains('/') ? wxFileName(name).GetAbsolutePath() : folders.FindAbsoluteValidPath(name);
    return wxFileName::IsFileExecutable(found) ? found : wxString();
}

} // namespace

std::string PartInfoEditorName() {
    const char* name = std::getenv(CommandVariable);
    return name != nullptr && *name != '\0' ? name : DefaultCommand;
}

// Every call starts the command anew.
void ReleasePartInfoEditor() {}

PartInfoResult EditPartInfo(const std::string& partFolder, const std::string& iniPath,
                            std::int32_t languageId) {
    const std::string command = FindCommand().fn_str().data();
    if (command.empty()) return PartInfoResult::Missing;
    // The paths come out of the menu file; the command would take such a one for an option.
    if (partFolder.starts_with('-') || iniPath.starts_with('-')) return PartInfoResult::Failed;
    const std::string language = std::to_string(languageId);
    // The arguments go to the program as they are; no shell sees them.
    const std::array<const char*, 5> arguments{command.c_str(), partFolder.c_str(), iniPath.c_str(),
                                               language.c_str(), nullptr};
    const long status = wxExecute(arguments.data(), wxEXEC_SYNC);
    return status == 0 ? PartInfoResult::Done : PartInfoResult::Failed;
}

} // namespace nesk::platform
