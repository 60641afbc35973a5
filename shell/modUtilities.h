#pragma once

#include "base/NeskError.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

/// Helpers for paths, files, texts and settings. Paths are Windows paths in UTF-8. The functions return a
/// value instead of raising errors, unless their comment says otherwise.
namespace nesk::modUtilities {

/// The text without leading and trailing spaces. Tabs and line ends stay.
std::string Trim(const std::string& text);

/// The text itself if it has at most `length` bytes; otherwise its beginning, cut between two characters, and
/// "...".
std::string Shortened(const std::string& text, std::size_t length);

/// Makes the path end in "\". Removes spaces at the end first. A path that ends in "\" without these spaces
/// is left unchanged, including the spaces.
void AddTrailingBackslash(std::string& path);

/// Joins a folder and a relative path, and resolves ".\" and "..\" at the beginning of the relative path.
/// When the relative path has a drive letter, it is the result. When it begins with "\", it is not treated as
/// absolute, and the result has a doubled separator.
std::string PathJoin(const std::string& base, const std::string& relative);

/// The path up to and including the "\" before its last name. "\" at the end of the path are ignored. "" when
/// there is no such "\".
std::string ParentFolder(const std::string& path);

/// Length of the server and share at the beginning of a network path: 14 for "\\server\share\folder", 0 for
/// any other path. Neither the server nor the share can be created as a folder.
std::size_t ShareLength(std::string_view path);

/// True when a search for the path finds a file. Folders are not files.
bool FileExists(const std::string& path, platform::FileSystem& files = platform::StationFiles());

/// True when the path names an existing folder.
bool DirectoryExists(const std::string& path, platform::FileSystem& files = platform::StationFiles());

/// The folder of a file, up to and including its last "\", when that folder exists; otherwise
/// `defaultFolder`.
std::string ExistingFolderOf(const std::string& file, const std::string& defaultFolder);

/// Creates every missing level of a folder. Raises the run-time error of the first level that cannot be
/// created.
void MakePath(const std::string& path);

/// Value of a key in a profile file, at most 4,095 characters; "" when it is missing.
std::string ReadIniValue(const std::string& file, const std::string& section, const std::string& key);

/// Field `index` (0-based) of a list separated by "|", as a number. `defaultValue` when the field is empty or
/// missing, 0 when it is not a 16-bit number.
std::int16_t ListField(const std::string& text, int index, std::int16_t defaultValue);

/// The installation folder of the measuring application, from the registry; "" when the registry has none.
std::string InstallDirectory();

/// InstallDirectory and "\Bin".
std::string BinaryDirectory();

/// Font size in points of a control under a locale: at least 9 for locales with ideographs (1028, 1041, 1042,
/// 2052); in other locales, sizes up to 8 become 8.
int ControlFontSize(std::uint32_t localeId, int size);

/// The text of an error for the user: its message without number and location. Arguments longer than 1,000
/// bytes are shortened.
std::string MessageText(const NeskError& error);

/// The text of an error with its number and, when known, its file and line.
std::string ErrorText(const NeskError& error);

/// Shows an error in the program's message box: the common error report.
void ReportError(const NeskError& error);

/// Does the same for an exception without a number.
void ReportError(const std::exception& error);

} // namespace nesk::modUtilities
