#include "platform/PartInfoEditor.h"

#include <array>
#include <cstdlib>

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/utils.h>

namespace nesk::platform {

namespace {

// The command searched in PATH, unless the variable names another.
constexpr const char* DefaultCommand = "neskmonitor-editpif";
constexpr const char* CommandVariable = "NESKMANAGER_EDITPIF";

// Full path of the command; empty when no executable is found.
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

// Every call starts the command again, so there is nothing to release.
void ReleasePartInfoEditor() {}

PartInfoResult EditPartInfo(const std::string& partFolder, const std::string& iniPath,
                            std::int32_t languageId) {
    const std::string command = FindCommand().fn_str().data();
    if (command.empty()) return PartInfoResult::Missing;
    // The paths come from the menu file; the command would take a leading "-" for an option.
    if (partFolder.starts_with('-') || iniPath.starts_with('-')) return PartInfoResult::Failed;
    const std::string language = std::to_string(languageId);
    // The arguments are passed to the program unchanged; no shell interprets them.
    const std::array<const char*, 5> arguments{command.c_str(), partFolder.c_str(), iniPath.c_str(),
                                               language.c_str(), nullptr};
    const long status = wxExecute(arguments.data(), wxEXEC_SYNC);
    return status == 0 ? PartInfoResult::Done : PartInfoResult::Failed;
}

} // namespace nesk::platform
