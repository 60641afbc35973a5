#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// What the system's open-file dialog is asked to show. Paths are Windows paths.
struct OpenFileRequest {
    std::string title;
    std::string folder; ///< where it begins
    std::string file;   ///< file that is chosen at first; its name alone counts; "" for none
    std::string filter; ///< pairs of description and patterns, separated by "|"; "" for all files
};

/// Shows the system's dialog for opening an existing file.
/// @return the Windows path of the file chosen; "" when the dialog was cancelled
std::string ShowOpenFileDialog(wxWindow* parent, const OpenFileRequest& request);

/// What ShowOpenFileDialog calls.
using OpenFileDialogFunction = std::function<std::string(wxWindow* parent, const OpenFileRequest& request)>;

/// Puts something else in the place of the system's dialog; an empty function brings that back. A test needs
/// it where the system's dialog can be given a file only by hand. Returns what was there before.
OpenFileDialogFunction SetOpenFileDialog(OpenFileDialogFunction dialog);

} // namespace nesk::platform
