#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// Parameters of the system's open-file dialog. Paths are Windows paths.
struct OpenFileRequest {
    std::string title;
    std::string folder; ///< folder shown first
    std::string file;   ///< file selected at first; only its name is used; "" for none
    std::string filter; ///< pairs of description and patterns, separated by "|"; "" for all files
};

/// Shows the system's dialog for opening an existing file.
/// @return the Windows path of the file chosen; "" when the dialog was cancelled
std::string ShowOpenFileDialog(wxWindow* parent, const OpenFileRequest& request);

/// Signature of ShowOpenFileDialog.
using OpenFileDialogFunction = std::function<std::string(wxWindow* parent, const OpenFileRequest& request)>;

/// Replaces the system's dialog with another function; an empty function restores the dialog. For tests on
/// systems where only a user can choose a file in the dialog. Returns the previous function.
OpenFileDialogFunction SetOpenFileDialog(OpenFileDialogFunction dialog);

} // namespace nesk::platform
