#pragma once

#include <optional>
#include <string>

/// The program of a part button: "@", full path of the part's partinfo.ini, "@"; or a plain program
/// identifier.
namespace nesk::PartReference {

/// True when the text refers to a part: it begins with "@".
bool RefersToPart(const std::string& text);

/// The reference to a part, given the full path of its partinfo.ini.
std::string Make(const std::string& iniPath);

/// Path of the partinfo.ini that the text refers to: what follows the first "@", up to the next one. "" for a
/// plain identifier.
std::string IniPath(const std::string& text);

/// Folder of the part, without a trailing "\"; nothing when the path has no "\".
std::optional<std::string> PartFolder(const std::string& iniPath);

/// What is said of the text: the name of the part as its partinfo.ini gives it (empty when it does not), or
/// that there is no part.
std::string Description(const std::string& text);

/// What is wrong with the part that the text refers to: no file is named, its partinfo.ini does not exist, or
/// that file names no part. "" when nothing is, and for a plain identifier.
std::string Problem(const std::string& text);

} // namespace nesk::PartReference
