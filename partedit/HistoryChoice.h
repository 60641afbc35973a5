#pragma once

#include <string>

/// What the history dialog checks and begins with.
namespace nesk::HistoryChoice {

/// True when `directory`, without blanks around it, can be the history directory: it exists.
bool IsDirectory(const std::string& directory);

/// True when `title`, without blanks around it, can be the history title: it is not empty.
bool IsTitle(const std::string& title);

/// The title that the dialog begins with: `title`, or `proposed` where that is empty.
std::string TitleToShow(const std::string& title, const std::string& proposed);

/// Folder at which browsing begins: the text of the field, otherwise the history directory of the settings.
std::string BrowseFolder(const std::string& directory);

} // namespace nesk::HistoryChoice
