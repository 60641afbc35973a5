#include "settings/VersionSettings.h"

#include "base/NeskError.h"
#include "settings/RegEntry.h"

#include <charconv>
#include <string>
#include <system_error>
#include <vector>

namespace nesk {

namespace {

// The key of the options.
const std::string Key = "Neskworks";

void ReadNumber(const std::string& text, int least, int& number) {
    int read = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (isNumber && read >= least && read <= VersionSettings::Most) number = read;
}

} // namespace

VersionSettings VersionSettings::Read() {
    VersionSettings settings;
    try {
        RegEntry entry;
        if (!entry.TestKey(Key)) return settings;
        entry.OpenKey(Key);
        std::vector<RegValue> values;
        entry.QueryValues(values);
        for (const RegValue& value : values) {
            if (value.type != platform::RegType::Text) continue;
            if (value.name == "MenuVersions") ReadNumber(value.data, 1, settings.newest);
            if (value.name == "MenuVersionDays") ReadNumber(value.data, 0, settings.days);
        }
    } catch (const NeskError&) {
        // A save must not fail for this. The usual numbers will do.
        return {};
    }
    return settings;
}

} // namespace nesk
