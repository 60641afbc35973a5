#pragma once

#include "platform/OpenFileDialog.h"

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// Shows the system's dialog for naming a file to be written, which asks before an existing file is chosen.
/// @param request  as for ShowOpenFileDialog; `file` is the name that is proposed
/// @return the Windows path of the file; "" when the dialog was cancelled
std::string ShowSaveFileDialog(wxWindow* parent, const OpenFileRequest& request);

/// Puts something else in the place of the system's dialog; an empty function brings that back. Returns what
/// was there before.
OpenFileDialogFunction SetSaveFileDialog(OpenFileDialogFunction dialog);

} // namespace nesk::platform
