#pragma once

#include <cstdint>
#include <string>

/// The application's help file.
namespace nesk::modHelp {

/// Topics that the program itself asks for.
namespace Topic {
constexpr std::int32_t Overview = 906;
constexpr std::int32_t General = 33000;
constexpr std::int32_t MainWindow = 33001;
} // namespace Topic

/// Chooses the help file for a language: HTML help before classic help, the language before English, the
/// program's folder before the installation's "Bin". When there is none, the last candidate is kept, so that
/// a later request names the file that was expected.
/// @return true when a file was found
bool SetHelpFile(int languageId, const std::string& baseName);

/// Windows path of the help file; "" before SetHelpFile.
std::string HelpFile();

/// True when the help file is HTML help, which its ending alone decides.
bool IsHtmlHelp();

/// Shows a topic of the help file. Without a help file nothing happens; when it cannot be shown, a message
/// says why.
/// @param owner  native handle of the window that asks; may be null
/// @return true when it is shown
bool ShowHelpTopic(void* owner, std::int32_t topic);

/// Shows the table of contents, otherwise as ShowHelpTopic.
bool ShowHelpContents(void* owner);

} // namespace nesk::modHelp
