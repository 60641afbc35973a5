#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk {

/// Shows the system's dialog for choosing a folder of the host, as stations are.
/// @param promptId  message number of the title
/// @param folder    where it begins, as the system names it; when that is missing, the next existing folder
///                  above it
/// @return the folder as the system names it; "" when the dialog was cancelled
std::string ChooseStationFolder(wxWindow* parent, int promptId, const std::string& folder);

/// What ChooseStationFolder calls.
using StationFolderChooser =
    std::function<std::string(wxWindow* parent, int promptId, const std::string& folder)>;

/// Puts something else in the place of the system's dialog; an empty function brings that back. A test needs
/// it: the dialog can be given a folder only by hand. Returns what was there before.
StationFolderChooser SetStationFolderChooser(StationFolderChooser chooser);

} // namespace nesk
