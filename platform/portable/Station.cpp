#include "platform/portable/Station.h"

#include "platform/portable/StationRegistry.h"

#include <cstdlib>
#include <optional>

namespace nesk::platform::portable {

namespace {

std::optional<std::filesystem::path>& ChosenFolder() {
    static std::optional<std::filesystem::path> folder;
    return folder;
}

std::string Environment(const char* name) {
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

} // namespace

std::filesystem::path DefaultStationFolder() {
    if (const std::string folder = Environment("NESKMANAGER_STATION"); !folder.empty())
        return std::filesystem::absolute(folder).lexically_normal();
    std::filesystem::path data = Environment("XDG_DATA_HOME");
    // The XDG base directory rules require that a relative path is ignored.
    if (!data.is_absolute()) data = std::filesystem::path(Environment("HOME")) / ".local" / "share";
    return data / "neskmanager" / "station";
}

const std::filesystem::path& StationFolder() {
    std::optional<std::filesystem::path>& folder = ChosenFolder();
    if (!folder) folder = DefaultStationFolder();
    return *folder;
}

void UseStation(const std::filesystem::path& folder) {
    ChosenFolder() = std::filesystem::absolute(folder).lexically_normal();
    ReopenStationRegistry();
}

} // namespace nesk::platform::portable
