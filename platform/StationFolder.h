#pragma once

#include "platform/ErrorCode.h"

#include <memory>
#include <string>

/// The folder that represents the station on systems other than Windows. On Windows the station is the
/// computer itself, so there is no folder to choose and these functions do nothing. Folders are native paths
/// in UTF-8.
namespace nesk::platform {

enum class StationFolderState {
    NotApplicable, ///< the station is the computer
    Usable,
    Empty,   ///< an existing folder that does not contain a station
    Missing, ///< the folder does not exist
    Denied   ///< the folder may not be read or searched
};

/// True when stations are folders on this system.
bool StationIsFolder();

/// Folder of the station in use; "" where stations are not folders.
std::string StationFolderName();

/// Folder of the station with which the program starts: NESKMANAGER_STATION, or the default; "" where
/// stations are not folders. The last station used is not remembered.
std::string UsualStationFolder();

/// Checks what is at a folder path.
StationFolderState LookUpStationFolder(const std::string& folder);

/// Switches to another station. A folder inside a station's drives selects that station. Open registry keys
/// become invalid; the caller must reload settings, language and help file. On failure (PathNotFound,
/// AccessDenied, or InvalidName for a folder that does not contain a station) the current station stays in
/// use.
ErrorCode UseStationFolder(const std::string& chosen);

/// True when an example station was installed with the program.
bool HasExampleStation();

/// A new station under construction. Until Finish succeeds, it is in a temporary folder beside its final one
/// and is the station in use, so that its settings can be written. Without Finish, the destructor removes it
/// and the previous station is in use again.
class NewStationFolder {
public:
    virtual ~NewStationFolder() = default;

    /// Moves the station to its final folder and keeps it in use. AlreadyExists when something was created
    /// there in between.
    virtual ErrorCode Finish() = 0;
};

/// Creates a new station: an empty drive C:, or a copy of the example.
/// @param folder  absolute path; must not exist or must be an empty folder, else AlreadyExists, or FileExists
///                for a file. InvalidName for a relative path
ErrorCode BeginStationFolder(const std::string& folder, bool example,
                             std::unique_ptr<NewStationFolder>& station);

} // namespace nesk::platform
