#include "platform/common/HelpStart.h"

#include "platform/portable/Station.h"
#include "platform/portable/ViewerProcess.h"

#include <cerrno>
#include <cstdlib>
#include <vector>

namespace nesk::platform {

namespace {

// One help window, as on Windows: showing a topic replaces the previous one.
portable::ViewerProcess& Viewer() {
    static portable::ViewerProcess viewer;
    return viewer;
}

std::string ViewerName() {
    const char* name = std::getenv("NESKMANAGER_HELPVIEWER");
    return name != nullptr && *name != '\0' ? name : "xchm";
}

} // namespace

HelpResult common::StartHtmlHelp(void*, const std::string& file, unsigned command, std::uint32_t data) {
    std::vector<std::string> arguments{ViewerName()};
    if (command == HtmlHelpCommand::Topic) arguments.insert(arguments.end(), {"-c", std::to_string(data)});
    arguments.push_back(portable::ToHostPath(file).string());
    switch (Viewer().Start(arguments)) {
    case 0: return HelpResult::Shown;
    case ENOENT:
    case ENOTDIR:
    // A program without execute permission counts as missing.
    case EACCES: return HelpResult::ViewerMissing;
    default: return HelpResult::Failed;
    }
}

HelpResult common::StartClassicHelp(void*, const std::string&, unsigned, std::uint32_t) {
    return HelpResult::FormatNotSupported;
}

} // namespace nesk::platform
