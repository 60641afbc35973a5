#pragma once

#include <cstdint>
#include <string>

namespace nesk::platform {

enum class PartInfoResult {
    Done,
    Missing, ///< there is no such editor
    Failed   ///< it did not start, or ended with an error
};

/// Lets the operator interface's own editor edit the information of a part, and waits until it has ended. The
/// windows of this program are shown but take no input meanwhile.
/// @param partFolder  folder of the part, without a trailing "\"
/// @param iniPath     full path of its partinfo.ini
/// @param languageId  language identifier of this program
PartInfoResult EditPartInfo(const std::string& partFolder, const std::string& iniPath,
                            std::int32_t languageId);

/// Lets go of the editor at the end of the program, where the station keeps one ready.
void ReleasePartInfoEditor();

/// Name of that editor, for messages.
std::string PartInfoEditorName();

} // namespace nesk::platform
