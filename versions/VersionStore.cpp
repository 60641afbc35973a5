#include "versions/VersionStore.h"

#include "base/FileErrors.h"
#include "base/FileHash.h"
#include "base/Messages.h"
#include "platform/ErrorCode.h"
#include "platform/FileStamp.h"
#include "platform/FileTime.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <set>
#include <utility>

namespace nesk {

namespace {

using platform::ErrorCode;

std::chrono::sys_days DayOf(const std::tm& time) {
    using namespace std::chrono;
    return sys_days(year{time.tm_year + 1900} / (time.tm_mon + 1) / time.tm_mday);
}

// The number for another version of the same second. It is above those of all others, even if lower ones are
// free again, because it tells which one is newer.
int NextNumber(const std::vector<MenuVersion>& versions, const MenuVersion& added) {
    int next = 1;
    for (MenuVersion other : versions) {
        const int number = std::exchange(other.number, added.number);
        const bool isSameSecond =
            !VersionNames::IsNewer(other, added) && !VersionNames::IsNewer(added, other);
        if (isSameSecond) next = std::max(next, number + 1);
    }
    return next;
}

bool IsNoFile(ErrorCode code) {
    return code == ErrorCode::FileNotFound || code == ErrorCode::PathNotFound;
}

} // namespace

std::vector<MenuVersion> Surplus(const std::vector<MenuVersion>& versions, const std::tm& now,
                                 const VersionLimits& limits) {
    const std::chrono::sys_days today = DayOf(now);
    std::set<std::chrono::sys_days> days; // of which a version is kept
    std::vector<MenuVersion> surplus;
    for (std::size_t i = 0; i < versions.size(); ++i) {
        const std::chrono::sys_days day = DayOf(versions[i].time);
        const bool isLastOfDay = days.insert(day).second;
        const bool isRecent = (today - day).count() <= limits.days;
        if (i >= limits.newest && !(isLastOfDay && isRecent)) surplus.push_back(versions[i]);
    }
    return surplus;
}

VersionStore::VersionStore(std::string path, platform::FileSystem& files, VersionLimits limits)
    : m_path(std::move(path)), m_files(files), m_limits(limits) {}

std::vector<MenuVersion> VersionStore::List() const {
    std::vector<MenuVersion> versions;
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    ErrorCode result = m_files.Search(Folder() + "\\*.*", search, entry);
    if (IsNoFile(result)) return versions;
    constexpr std::uint32_t noFile = platform::FileAttribute::Directory | platform::FileAttribute::Link;
    for (; result == ErrorCode::Success; result = search->Next(entry)) {
        std::optional<MenuVersion> version = VersionNames::Parse(m_path, entry.name);
        if (!version || (entry.attributes & noFile) != 0) continue;
        platform::FileStamp stamp;
        // Another editor may have removed it meanwhile.
        if (platform::StampOf(version->path, stamp) != ErrorCode::Success) continue;
        version->size = stamp.size;
        versions.push_back(*std::move(version));
    }
    if (result != ErrorCode::NoMoreItems) throw FileError(result, "VersionStore.List", Folder());
    std::sort(versions.begin(), versions.end(), VersionNames::IsNewer);
    return versions;
}

VersionStore::Kept VersionStore::Keep() {
    Kept kept;
    try {
        KeepIn(kept);
    } catch (const NeskError& error) {
        kept.error = error;
    } catch (const std::bad_alloc&) {
        kept.error =
            NeskError(RuntimeError::OutOfMemory, "VersionStore.Keep", Message::OutOfMemory, {m_path});
    }
    return kept;
}

void VersionStore::KeepIn(Kept& kept) {
    std::uint32_t attributes = 0;
    const ErrorCode found = m_files.Attributes(m_path, attributes);
    if (IsNoFile(found)) return;
    if (found != ErrorCode::Success) throw FileError(found, "VersionStore.Keep", m_path);
    std::vector<MenuVersion> versions = List();
    if (!IsNewest(versions)) Copy(versions, kept);
    RemoveSurplus(versions, kept);
}

bool VersionStore::IsNewest(const std::vector<MenuVersion>& versions) const {
    if (versions.empty()) return false;
    const FileHash present = FileHash::Of(m_path, m_files);
    if (present.Error() != ErrorCode::Success) throw FileError(present.Error(), "VersionStore.Keep", m_path);
    // A version that cannot be read is never equal.
    return FileHash::Of(versions.front().path, m_files) == present;
}

void VersionStore::Copy(std::vector<MenuVersion>& versions, Kept& kept) {
    const ErrorCode made = m_files.MakeFolder(Folder());
    if (made != ErrorCode::Success && made != ErrorCode::AlreadyExists && made != ErrorCode::FileExists)
        throw FileError(made, "VersionStore.Keep", Folder());
    MenuVersion version;
    if (!platform::LastWriteTime(m_path, version.time)) version.time = platform::LocalTime();
    version.number = NextNumber(versions, version);
    ErrorCode result = ErrorCode::AlreadyExists;
    // Another editor may keep versions at the same time; so many are not made in one second.
    constexpr int attempts = 100;
    for (int attempt = 0; result == ErrorCode::AlreadyExists && attempt < attempts; ++attempt) {
        if (attempt > 0) ++version.number;
        version.path = Folder() + "\\" + VersionNames::NameOf(m_path, version.time, version.number);
        result = m_files.KeepCopy(m_path, version.path, false);
    }
    if (result != ErrorCode::Success) throw FileError(result, "VersionStore.Keep", version.path);
    kept.isNew = true;
    kept.path = version.path;
    versions.insert(std::lower_bound(versions.begin(), versions.end(), version, VersionNames::IsNewer),
                    version);
}

// Goes on after a failure: the others are surplus all the same.
void VersionStore::RemoveSurplus(const std::vector<MenuVersion>& versions, Kept& kept) {
    for (const MenuVersion& version : Surplus(versions, platform::LocalTime(), m_limits)) {
        // A file with an old date may be surplus at once; it is the present one all the same.
        if (version.path == kept.path) continue;
        const ErrorCode result = m_files.RemoveFile(version.path);
        if (result != ErrorCode::Success && !IsNoFile(result) && !kept.error)
            kept.error = FileError(result, "VersionStore.Keep", version.path);
    }
}

} // namespace nesk
