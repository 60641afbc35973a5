#include "settings/WindowMemory.h"

#include "base/NeskError.h"
#include "platform/Registry.h"
#include "platform/StationFolder.h"
#include "platform/TextEncoding.h"
#include "settings/RegEntry.h"

#include <charconv>
#include <vector>

namespace nesk {

namespace {

const std::string Key = "NeskManager";

// The registry would create a station in a folder that has none.
bool HasStation() {
    using platform::StationFolderState;
    const StationFolderState state = platform::LookUpStationFolder(platform::StationFolderName());
    return state == StationFolderState::Usable || state == StationFolderState::NotApplicable;
}

} // namespace

void WindowMemory::Load() {
    m_stored.clear();
    try {
        const platform::RegistryReading reading(platform::StationRegistry());
        RegEntry entry;
        entry.OpenKey(Key);
        std::vector<RegValue> values;
        entry.QueryValues(values);
        for (RegValue& value : values)
            if (value.type == platform::RegType::Text) m_stored[value.name] = std::move(value.data);
    } catch (const NeskError&) {
        m_stored.clear();
    }
    m_values = m_stored;
}

std::optional<int> WindowMemory::Number(const std::string& name) const {
    const auto found = m_values.find(name);
    if (found == m_values.end()) return std::nullopt;
    const std::string& text = found->second;
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    return isNumber ? std::optional(number) : std::nullopt;
}

bool WindowMemory::Flag(const std::string& name, bool otherwise) const {
    const auto found = m_values.find(name);
    if (found == m_values.end()) return otherwise;
    if (found->second == "true") return true;
    return found->second == "false" ? false : otherwise;
}

std::optional<std::string> WindowMemory::Text(const std::string& name) const {
    const auto found = m_values.find(name);
    return found != m_values.end() && !found->second.empty() ? std::optional(found->second) : std::nullopt;
}

void WindowMemory::SetText(const std::string& name, const std::string& value) {
    const std::string stored = platform::ToAnsi(value) ? value : "";
    // Storing an empty text removes the value.
    if (!stored.empty() || m_values.contains(name)) m_values[name] = stored;
}

void WindowMemory::SetNumber(const std::string& name, int value) {
    m_values[name] = std::to_string(value);
}

void WindowMemory::SetFlag(const std::string& name, bool value, bool otherwise) {
    if (Flag(name, otherwise) != value) m_values[name] = value ? "true" : "false";
}

bool WindowMemory::Save() {
    if (m_values == m_stored) return true;
    if (!HasStation()) return false;
    try {
        platform::RegistryGroup group(platform::StationRegistry());
        RegEntry entry;
        entry.CreateKey(Key);
        for (const auto& [name, text] : m_values)
            if (const auto stored = m_stored.find(name); stored == m_stored.end() || stored->second != text)
                entry.SetString(name, text);
        if (group.End() != platform::ErrorCode::Success) return false;
    } catch (const NeskError&) {
        return false;
    }
    m_stored = m_values;
    return true;
}

} // namespace nesk
