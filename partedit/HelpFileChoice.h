#pragma once

#include <cstdint>
#include <string>

/// Rules of the dialog for the help file of a part.
namespace nesk::HelpFileChoice {

/// True when a text is a topic number: a 32-bit number.
bool IsTopic(const std::string& text);

/// Converts a text to a topic number; `earlier` when the text is not a 32-bit number.
std::int32_t Topic(const std::string& text, std::int32_t earlier);

/// Initial folder for browsing when the help file has none: the slide folder of the settings, otherwise the
/// folder of this program.
std::string DefaultFolder();

/// Initial folder for browsing.
/// @param file           the text of the field: a file or a folder
/// @param defaultFolder  the folder to use when that folder does not exist
std::string BrowseFolder(const std::string& file, const std::string& defaultFolder);

} // namespace nesk::HelpFileChoice
