#pragma once

#include "platform/OpenFileDialog.h"

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// Shows the system's save-file dialog, which asks for confirmation before an existing file is chosen.
/// @param request  as for ShowOpenFileDialog; `file` is the proposed name
/// @return the Windows path of the file; "" when the dialog was cancelled
std::string ShowSaveFileDialog(wxWindow* parent, const OpenFileRequest& request);

/// Replaces the system's dialog with another function; an empty function restores the dialog. Returns the
/// previous function.
OpenFileDialogFunction SetSaveFileDialog(OpenFileDialogFunction dialog);

} // namespace nesk::platform
