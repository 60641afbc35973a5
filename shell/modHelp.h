#pragma once

#include <cstdint>
#include <string>

/// The application's help file.
namespace nesk::modHelp {

/// Topics that the program itself opens.
namespace Topic {
constexpr std::int32_t Overview = 906;
constexpr std::int32_t General = 33000;
constexpr std::int32_t MainWindow = 33001;
} // namespace Topic

/// Chooses the help file for a language. HTML help is preferred to classic help, the language to English, and
/// the program's folder to the "Bin" folder of the installation. When no file exists, the last candidate is
/// kept, so that a later message names the expected file.
/// @return true when a file was found
bool SetHelpFile(int languageId, const std::string& baseName);

/// Windows path of the help file; "" before SetHelpFile.
std::string HelpFile();

/// True when the help file is HTML help. Only the file extension is checked.
bool IsHtmlHelp();

/// Shows a topic of the help file. Does nothing when no help file is set. When the topic cannot be shown, a
/// message says why.
/// @param owner  native handle of the calling window; may be null
/// @return true when the topic is shown
bool ShowHelpTopic(void* owner, std::int32_t topic);

/// Does the same as ShowHelpTopic for the table of contents.
bool ShowHelpContents(void* owner);

} // namespace nesk::modHelp
