#pragma once

#include <cstdint>
#include <string>

/// The system's help viewers.
namespace nesk::platform {

enum class HelpResult {
    Shown,
    FileMissing,        ///< the help file does not exist
    ViewerMissing,      ///< no viewer is installed
    FormatNotSupported, ///< the station cannot show this kind of help file
    Failed              ///< the viewer did not start
};

/// Commands of the HTML help viewer.
namespace HtmlHelpCommand {
constexpr unsigned Contents = 1;
constexpr unsigned Topic = 15;
} // namespace HtmlHelpCommand

/// Commands of the classic help viewer.
namespace ClassicHelpCommand {
constexpr unsigned Topic = 1;
constexpr unsigned Index = 3;
} // namespace ClassicHelpCommand

/// Shows compiled HTML help.
/// @param owner    native handle of the calling window; may be null
/// @param file     Windows path of the ".chm" file
/// @param command  one of HtmlHelpCommand
/// @param data     topic number for HtmlHelpCommand::Topic, otherwise 0
HelpResult ShowHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data);

/// Shows a classic ".hlp" file; `command` is one of ClassicHelpCommand. The other parameters are those of
/// ShowHtmlHelp.
HelpResult ShowClassicHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data);

} // namespace nesk::platform
