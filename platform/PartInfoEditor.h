#pragma once

#include <cstdint>
#include <string>

namespace nesk::platform {

enum class PartInfoResult {
    Done,
    Missing, ///< no such editor is installed
    Failed   ///< the editor did not start, or ended with an error
};

/// Opens a part's information in the operator interface's editor and waits until the editor has ended. The
/// windows of this program stay visible but accept no input until then.
/// @param partFolder  folder of the part, without a trailing "\"
/// @param iniPath     full path of its partinfo.ini
/// @param languageId  language identifier of this program
PartInfoResult EditPartInfo(const std::string& partFolder, const std::string& iniPath,
                            std::int32_t languageId);

/// Releases the editor at the end of the program, on stations that keep one ready.
void ReleasePartInfoEditor();

/// Name of the editor, for messages.
std::string PartInfoEditorName();

} // namespace nesk::platform
