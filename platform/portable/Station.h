#pragma once

#include <filesystem>
#include <string>

/// The folder that stands for a measuring station: `registry.db` and `drives/c`, `drives/d`, ...
namespace nesk::platform::portable {

/// The folder that the environment names: NESKMANAGER_STATION, by default $XDG_DATA_HOME/neskmanager/station.
std::filesystem::path DefaultStationFolder();

/// Folder of the station in use: DefaultStationFolder, asked for once, unless another was put in its place.
/// Valid until that happens.
const std::filesystem::path& StationFolder();

/// Puts another station in place of the one in use. Handles that are open on the old one become invalid.
void UseStation(const std::filesystem::path& folder);

/// Turns a Windows path into a host path: `C:\x` is drives/c/x of the station, `Z:\x` is /x. Names that exist
/// in another case are found; what does not exist keeps the spelling given. "." and ".." are resolved and
/// never lead out of the drive. A path without a drive letter counts from the root of C:. Empty when `path`
/// is empty, names a network share, or holds a zero byte.
std::filesystem::path ToHostPath(const std::string& path);

/// Turns an absolute host path into a Windows path: under one of the station's drives where it lies there,
/// otherwise on Z:. Bytes that are not UTF-8 survive the way there and back.
std::string ToWindowsPath(const std::filesystem::path& path);

} // namespace nesk::platform::portable
