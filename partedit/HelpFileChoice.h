#pragma once

#include <cstdint>
#include <string>

/// What the dialog for the help file of a part decides.
namespace nesk::HelpFileChoice {

/// The topic that a text means; `earlier` when the text is no 32-bit number.
std::int32_t Topic(const std::string& text, std::int32_t earlier);

/// Folder in which browsing begins when the help file names none: the one that the settings name for slides,
/// otherwise that of this program.
std::string DefaultFolder();

/// Folder in which browsing begins.
/// @param file           what the field holds: a file, or a folder
/// @param defaultFolder  the folder where that leads nowhere
std::string BrowseFolder(const std::string& file, const std::string& defaultFolder);

} // namespace nesk::HelpFileChoice
