#pragma once

#include <filesystem>
#include <string>

/// The folder that represents a measuring station: `registry.db` and `drives/c`, `drives/d`, ...
namespace nesk::platform::portable {

/// The folder set by the environment: NESKMANAGER_STATION, by default $XDG_DATA_HOME/neskmanager/station.
std::filesystem::path DefaultStationFolder();

/// Folder of the station in use: DefaultStationFolder, read once, unless UseStation replaced it. The
/// reference stays valid.
const std::filesystem::path& StationFolder();

/// Switches to another station. Handles that are open on the old one become invalid.
void UseStation(const std::filesystem::path& folder);

/// Converts a Windows path to a host path: `C:\x` is drives/c/x of the station, `Z:\x` is /x. Existing names
/// are found in any case; missing names keep the given spelling. "." and ".." are resolved and never lead out
/// of the drive. A path without a drive letter is relative to the root of C:. Empty when `path` is empty, is
/// on a network share, or contains a zero byte.
std::filesystem::path ToHostPath(const std::string& path);

/// A host path to which a Windows path leads if something exists there; a guess from the folders that
/// ToHostPath found before, made without a system call. "" when there is no guess. When nothing exists at the
/// guess, ask ToHostPath.
std::string LikelyHostPath(const std::string& path);

/// Converts an absolute host path to a Windows path: on a drive of the station if the path is inside it,
/// otherwise on Z:. Bytes that are not UTF-8 survive a round trip.
std::string ToWindowsPath(const std::filesystem::path& path);

} // namespace nesk::platform::portable
