#pragma once

#include <string>

/// Checks and initial values of the history dialog.
namespace nesk::HistoryChoice {

/// True when `directory`, without leading and trailing spaces, is an existing folder and so a valid history
/// directory.
bool IsDirectory(const std::string& directory);

/// True when `title`, without leading and trailing spaces, is not empty and so a valid history title.
bool IsTitle(const std::string& title);

/// The initial title: `title`, or `proposed` when `title` is empty.
std::string TitleToShow(const std::string& title, const std::string& proposed);

/// Initial folder for browsing: the text of the field when it is not empty, otherwise the history directory
/// of the settings.
std::string BrowseFolder(const std::string& directory);

} // namespace nesk::HistoryChoice
