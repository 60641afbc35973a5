#pragma once

#include <memory>
#include <string>

/// The folder that stands for the station, off Windows. On Windows the station is the computer itself: there
/// is no folder to choose, and nothing here does anything. Folders are named as the system names them, in
/// UTF-8.
namespace nesk::platform {

enum class StationFolderState {
    NotApplicable, ///< the station is the computer
    Usable,
    Empty,   ///< an existing folder that holds no station
    Missing, ///< there is no such folder
    Denied   ///< a folder that may not be read or searched
};

/// Whether stations are folders here.
bool StationIsFolder();

/// Folder of the station in use; "" where stations are none.
std::string StationFolderName();

/// Folder of the station with which the program begins: NESKMANAGER_STATION, or the default; "" where
/// stations are none. Nothing else is remembered.
std::string UsualStationFolder();

/// What there is at a folder.
StationFolderState LookUpStationFolder(const std::string& folder);

/// Puts another station in place of the one in use. A folder in the drives of a station stands for the
/// station. Open registry keys become invalid; settings, language and help file are the caller's to read
/// anew. PathNotFound, AccessDenied, or InvalidName for a folder that holds no station; the station in use
/// stays then.
int UseStationFolder(const std::string& chosen);

/// Whether an example station was installed with the program.
bool HasExampleStation();

/// A new station on its way. Until Finish has succeeded it lies beside its folder and is the one in use, so
/// that its settings can be written; without Finish it is removed and the former one is back in use.
class NewStationFolder {
public:
    virtual ~NewStationFolder() = default;

    /// Moves the station to its folder and uses it there. AlreadyExists when something came there meanwhile.
    virtual int Finish() = 0;
};

/// Makes a new station: an empty drive C:, or a copy of the example.
/// @param folder  absolute; must not exist or be an empty folder, else AlreadyExists. InvalidName for one
///                that is not absolute
int BeginStationFolder(const std::string& folder, bool example, std::unique_ptr<NewStationFolder>& station);

} // namespace nesk::platform
