#include "base/BackupNames.h"

#include "platform/ErrorCode.h"
#include "platform/FileTime.h"

#include <array>
#include <cstdint>
#include <ctime>

namespace nesk {

namespace {

// True when a file or a folder has that name.
bool IsTaken(const std::string& path) {
    std::uint32_t attributes = 0;
    return platform::StationFiles().Attributes(path, attributes) == platform::ErrorCode::Success;
}

// The first of "stem + ending", "stem.2 + ending", ... that is not taken.
Backup FirstFree(const std::string& stem, const std::string& ending) {
    std::string copy = stem + ending;
    for (int number = 2; IsTaken(copy); ++number)
        copy = std::string(stem).append(".").append(std::to_string(number)).append(ending);
    return {copy, false};
}

} // namespace

Backup BackupOf(const std::string& path) {
    return {path + ".bak", true};
}

Backup DatedBackupOf(const std::string& path) {
    std::tm time{};
    if (!platform::LastWriteTime(path, time)) time = platform::LocalTime();
    // Without ":", which Windows does not allow in names.
    std::array<char, 32> date{};
    const std::size_t length = std::strftime(date.data(), date.size(), "%Y-%m-%d %H.%M.%S", &time);
    return FirstFree(path + "." + std::string(date.data(), length), ".bak");
}

Backup DamagedBackupOf(const std::string& path) {
    std::string copy = path + ".damaged";
    for (int number = 2; IsTaken(copy); ++number)
        copy = std::string(path).append(".damaged.").append(std::to_string(number));
    return {copy, false};
}

} // namespace nesk
