#pragma once

#include <string>

/// What the history dialog checks and begins with.
namespace nesk::HistoryChoice {

/// True when `directory`, without blanks around it, can be the history directory: it exists.
bool IsDirectory(const std::string& directory);

/// True when `title`, without blanks around it, can be the history title: it is not empty.
bool IsTitle(const std::string& title);

/// The message about a field that was refused.
/// @param label  text of the field's label with its access key
std::string RefusalText(const std::string& label);

/// Folder at which browsing begins: the text of the field, otherwise the history directory of the settings.
std::string BrowseFolder(const std::string& directory);

} // namespace nesk::HistoryChoice
