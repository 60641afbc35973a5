#include "partedit/PartReference.h"

#include "base/Messages.h"
#include "base/ProblemMessages.h"
#include "platform/TextEncoding.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

namespace nesk::PartReference {

namespace {

bool EndsWithNoCase(const std::string& text, const std::string& end) {
    return text.size() >= end.size() && platform::EqualNoCase(text.substr(text.size() - end.size()), end);
}

} // namespace

bool RefersToPart(const std::string& text) {
    return text.starts_with('@');
}

std::string Make(const std::string& iniPath) {
    return "@" + iniPath + "@";
}

bool IsBarePath(const std::string& text) {
    if (RefersToPart(text)) return false;
    return text.find('\\') != std::string::npos || EndsWithNoCase(modUtilities::Trim(text), ".ini");
}

std::string FromTyped(const std::string& text) {
    const std::string path = modUtilities::Trim(text);
    // The path in the reference would end at the first "@".
    if (path.find('@') != std::string::npos || !EndsWithNoCase(path, "\\partinfo.ini")) return text;
    return Make(path);
}

std::string IniPath(const std::string& text) {
    if (!RefersToPart(text)) return "";
    return text.substr(1, text.find('@', 1) - 1);
}

std::optional<std::string> PartFolder(const std::string& iniPath) {
    const std::size_t separator = iniPath.rfind('\\');
    if (separator == std::string::npos) return std::nullopt;
    return iniPath.substr(0, separator);
}

std::string Description(const std::string& text) {
    if (!RefersToPart(text)) return modStringRes::LoadResString(Message::NoPart);
    const std::string name = modUtilities::ReadIniValue(IniPath(text), "Part", "Name");
    return modStringRes::FormatResString(Message::PartName, name);
}

std::string Problem(const std::string& text) {
    if (!RefersToPart(text))
        return IsBarePath(text) ? modStringRes::LoadResString(Message::PartBarePath) : "";
    const std::string path = IniPath(text);
    if (path.empty()) return modStringRes::LoadResString(Message::PartNoFile);
    if (!modUtilities::FileExists(path)) return modStringRes::FormatResString(Message::PartFileMissing, path);
    if (!modUtilities::ReadIniValue(path, "Part", "Name").empty()) return "";
    return modStringRes::FormatResString(Message::PartNoName, path);
}

} // namespace nesk::PartReference
