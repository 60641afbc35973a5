#pragma once

#include <optional>
#include <string>

/// The program of a part button: "@", full path of the part's partinfo.ini, "@"; or a plain program
/// identifier.
namespace nesk::PartReference {

/// True when the text refers to a part: it begins with "@".
bool RefersToPart(const std::string& text);

/// Builds the reference to a part from the full path of its partinfo.ini.
std::string Make(const std::string& iniPath);

/// True when a plain identifier looks like the path of a file: it contains "\" or ends in ".ini". It is then
/// started as an identifier, and no file is read.
bool IsBarePath(const std::string& text);

/// What a typed text means: the reference, when it is the path of a partinfo.ini in a folder; otherwise the
/// text as it stands.
std::string FromTyped(const std::string& text);

/// Path of the partinfo.ini that the text refers to: the text between the first "@" and the next one. "" for
/// a plain identifier.
std::string IniPath(const std::string& text);

/// Folder of the part, without a trailing "\"; nothing when the path has no "\".
std::optional<std::string> PartFolder(const std::string& iniPath);

/// A description of the text: the name of the part from its partinfo.ini (empty when the file contains no
/// name), or a text that there is no part.
std::string Description(const std::string& text);

/// The problem with the part that the text refers to: the path is empty, the partinfo.ini does not exist, or
/// the file contains no part name. For a plain identifier, that it is a bare path. "" when there is no
/// problem.
std::string Problem(const std::string& text);

} // namespace nesk::PartReference
