#include "platform/portable/Station.h"

#include "platform/portable/StationRegistry.h"

#include <atomic>
#include <cstdlib>
#include <deque>
#include <mutex>
#include <utility>

namespace nesk::platform::portable {

namespace {

// The folder in use; null before the first use. Another thread may still use the former folder, so none is
// ever deleted.
std::atomic<const std::filesystem::path*> g_folder = nullptr;

void Choose(std::filesystem::path folder) {
    static std::mutex mutex;
    static std::deque<std::filesystem::path> folders;
    const std::lock_guard lock(mutex);
    g_folder = &folders.emplace_back(std::move(folder));
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
    if (g_folder == nullptr) Choose(DefaultStationFolder());
    return *g_folder;
}

void UseStation(const std::filesystem::path& folder) {
    Choose(std::filesystem::absolute(folder).lexically_normal());
    ReopenStationRegistry();
}

} // namespace nesk::platform::portable
