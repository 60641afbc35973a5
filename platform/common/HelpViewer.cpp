#include "platform/HelpViewer.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/common/HelpStart.h"

namespace nesk::platform {

namespace {

bool IsFile(const std::string& path) {
    std::uint32_t attributes = 0;
    return StationFiles().Attributes(path, attributes) == ErrorCode::Success &&
           (attributes & FileAttribute::Directory) == 0;
}

} // namespace

HelpResult ShowHtmlHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    return IsFile(file) ? common::StartHtmlHelp(owner, file, command, data) : HelpResult::FileMissing;
}

HelpResult ShowClassicHelp(void* owner, const std::string& file, unsigned command, std::uint32_t data) {
    return IsFile(file) ? common::StartClassicHelp(owner, file, command, data) : HelpResult::FileMissing;
}

} // namespace nesk::platform
