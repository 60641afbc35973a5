#include "settings/RegistryListEditor.h"

#include "base/Messages.h"
#include "platform/StationFolder.h"
#include "platform/TextEncoding.h"
#include "settings/RegEntry.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <optional>

namespace nesk::RegistryListEditor {

namespace {

// The longest text that can be read back from the registry, in bytes of the code page.
constexpr std::size_t LongestName = 255;

} // namespace

bool MayEdit() {
    return platform::StationIsFolder();
}

std::string NameProblem(const std::string& name) {
    const std::string trimmed = modUtilities::Trim(name);
    if (trimmed.empty()) return modStringRes::LoadResString(Message::NameNeeded);
    if (std::any_of(trimmed.begin(), trimmed.end(), [](char c) { return c >= 0 && c < ' '; }))
        return modStringRes::LoadResString(Message::NameNotStorable);
    const std::optional<std::string> bytes = platform::ToAnsi(trimmed);
    if (!bytes) return modStringRes::LoadResString(Message::NameNotStorable);
    return bytes->size() > LongestName ? modStringRes::LoadResString(Message::NameTooLong) : "";
}

std::string Add(const std::string& parentKey, const std::string& name) {
    RegEntry entry;
    std::string key;
    // The keys are "M1", "M2", ... in the list of machines, and "U1", ... in the list of users.
    for (int number = 1; key.empty() || entry.TestKey(key); ++number)
        key = parentKey + "\\" + parentKey.front() + std::to_string(number);
    entry.CreateKey(key);
    entry.SetString("Name", modUtilities::Trim(name));
    return key;
}

bool MayRemove(const std::string& key, const std::vector<std::string>& inUse) {
    return !key.empty() && std::none_of(inUse.begin(), inUse.end(), [&](const std::string& used) {
        return platform::EqualNoCase(key, used);
    });
}

void Remove(const std::string& key) {
    const std::size_t separator = key.rfind('\\');
    RegEntry entry;
    entry.OpenKey(key.substr(0, separator));
    entry.DeleteKey(key.substr(separator + 1));
}

} // namespace nesk::RegistryListEditor
