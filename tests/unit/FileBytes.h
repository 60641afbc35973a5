#pragma once

#include "unit/platform/TempStation.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>
#include <string>

namespace nesk::testing {

/// Contents of a file of the station; "" if it is missing.
/// @param windowsPath  for example "C:\\Data\\file.txt"
inline std::string FileBytes(const std::string& windowsPath) {
    std::ostringstream bytes;
    bytes << std::ifstream(TempStation::Host(windowsPath), std::ios::binary).rdbuf();
    return bytes.str();
}

/// The names in a folder of the station, sorted and separated by spaces.
inline std::string FilesIn(const std::string& windowsFolder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(TempStation::Host(windowsFolder)))
        names.insert(entry.path().filename().string());
    std::string text;
    for (const std::string& name : names)
        text.append(text.empty() ? "" : " ").append(name);
    return text;
}

} // namespace nesk::testing
