#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk {

/// Shows the system's dialog to choose a folder of the host. Stations are in such folders.
/// @param promptId  message number of the title
/// @param folder    the initial folder, as a path of the host; when it does not exist, the nearest existing
///                  folder above it is used
/// @return the folder, as a path of the host; "" when the dialog was cancelled
std::string ChooseStationFolder(wxWindow* parent, int promptId, const std::string& folder);

/// The function that ChooseStationFolder calls.
using StationFolderChooser =
    std::function<std::string(wxWindow* parent, int promptId, const std::string& folder)>;

/// Replaces the system's dialog; an empty function restores it. Tests need this, because only a user can
/// choose a folder in the dialog. Returns the previous function.
StationFolderChooser SetStationFolderChooser(StationFolderChooser chooser);

} // namespace nesk
