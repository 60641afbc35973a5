#pragma once

#include "platform/HelpViewer.h"

/// The viewers of one system. Parameters and results are those of HelpViewer.h; the file exists.
namespace nesk::platform::common {

HelpResult StartHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data);
HelpResult StartClassicHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data);

} // namespace nesk::platform::common
