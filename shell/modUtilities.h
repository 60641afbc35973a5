#pragma once

#include "base/NeskError.h"
#include "platform/FileSystem.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

/// Path, file, text and settings helpers. They work on Windows paths in UTF-8 and answer with a value rather
/// than fail, unless their comment says otherwise.
namespace nesk::modUtilities {

/// The text without the blanks around it. Tabs and line ends stay.
std::string Trim(const std::string& text);

/// Makes the path end in "\". The blanks at its end are dropped first; a path that then ends in "\" is left
/// exactly as it was.
void AddTrailingBackslash(std::string& path);

/// Joins a folder and a relative path, resolving leading ".\" and "..\" of the latter. A path with a drive
/// letter is the result itself; one that begins with "\" is not rooted and leads to a doubled separator.
std::string PathJoin(const std::string& base, const std::string& relative);

/// The path up to and including the "\" before its last name, trailing ones skipped; "" when there is none.
std::string ParentFolder(const std::string& path);

/// Length of the server and the share that begin a network path: 14 for "\\server\share\folder", 0 for any
/// other path. Neither of the two is a folder that can be created.
std::size_t ShareLength(std::string_view path);

/// True when a search for the path finds a file. Folders are not files.
bool FileExists(const std::string& path, platform::FileSystem& files = platform::StationFiles());

/// True when the path names an existing folder.
bool DirectoryExists(const std::string& path, platform::FileSystem& files = platform::StationFiles());

/// The folder of a file, up to and including its last "\", where that folder exists; otherwise
/// `defaultFolder`.
std::string ExistingFolderOf(const std::string& file, const std::string& defaultFolder);

/// Creates every missing level of a folder. Raises the run-time error of the first level that cannot be
/// created.
void MakePath(const std::string& path);

/// Value of a key in a profile file, at most 4,095 characters; "" when it is missing.
std::string ReadIniValue(const std::string& file, const std::string& section, const std::string& key);

/// Field `index` (0-based) of a list separated by "|", as a number; `defaultValue` when the field is empty or
/// missing, 0 when it is no 16-bit number.
std::int16_t ListField(const std::string& text, int index, std::int16_t defaultValue);

/// The folder in which the measuring application is installed, as the registry names it; "" when it does not.
std::string InstallDirectory();

/// InstallDirectory and "\Bin".
std::string BinaryDirectory();

/// Size in points that a control's font gets under a locale: at least 9 where ideographs are written (1028,
/// 1041, 1042, 2052); elsewhere 8 for everything up to 8.
int ControlFontSize(std::uint32_t localeId, int size);

/// The text of an error as the user reads it: its message, without number and place. Of an argument of more
/// than 1,000 bytes it shows the beginning.
std::string MessageText(const NeskError& error);

/// The text of an error with its number and, where known, its file and line.
std::string ErrorText(const NeskError& error);

/// Shows an error in the program's message box: the common error report.
void ReportError(const NeskError& error);

/// The same for a failure that carries no number.
void ReportError(const std::exception& error);

} // namespace nesk::modUtilities
