#include "journal/UnsavedChanges.h"

#include "base/BackupNames.h"
#include "base/ByteSource.h"
#include "base/FileHash.h"
#include "base/NeskError.h"
#include "base/Paths.h"
#include "editing/SamePlace.h"
#include "journal/JournalCode.h"
#include "journal/JournalEvents.h"
#include "journal/JournalPlaces.h"
#include "journal/JournalRecord.h"
#include "journal/JournalTree.h"
#include "menu/MenuFile.h"
#include "menu/ReadMenuQuietly.h"
#include "platform/ErrorCode.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <tuple>
#include <vector>

namespace nesk {

using platform::ErrorCode;

namespace {

// Reads a whole file. Returns false for one that is missing or cannot be read to its end.
bool ReadBytes(const std::string& path, platform::FileSystem& files, std::string& bytes) {
    std::unique_ptr<platform::FileReader> reader;
    if (files.OpenForReading(path, reader) != ErrorCode::Success) return false;
    std::vector<char> buffer(std::size_t{1} << 16);
    for (;;) {
        std::size_t count = 0;
        if (reader->Read(buffer.data(), buffer.size(), count) != ErrorCode::Success) return false;
        if (count == 0) return true;
        bytes.append(buffer.data(), count);
    }
}

bool Exists(const std::string& path, platform::FileSystem& files) {
    std::uint32_t attributes = 0;
    return files.Attributes(path, attributes) == ErrorCode::Success;
}

// Calls `visit` with each journal file of a menu, and whether it is in the user's folder.
template <typename Visit>
void ForEachJournal(const std::string& menuPath, const JournalOptions& options, platform::FileSystem& files,
                    const Visit& visit) {
    for (const std::string& path : JournalPlaces::Beside(menuPath))
        if (Exists(path, files)) visit(path, false);
    if (options.folder.empty() || !Exists(options.folder, files)) return;
    for (const std::string& path : JournalPlaces::InFolder(options.folder, menuPath))
        if (Exists(path, files)) visit(path, true);
}

// Whether a hash is that of a file that could be read.
bool IsOfFile(const std::string& hash) {
    return !hash.empty() && hash != FileHash::MissingText && hash != FileHash::UnreadableText;
}

// Path of a file that has the version of the menu to which the changes apply, or "".
std::string BaseFor(const std::string& journalPath, const std::string& menuPath, const std::string& hash,
                    platform::FileSystem& files) {
    for (const std::string& path : {menuPath, JournalPlaces::BaseOf(journalPath), BackupOf(menuPath).path})
        if (IsOfFile(hash) && FileHash::Of(path, files).Text() == hash) return path;
    return "";
}

auto Order(const std::tm& time) {
    return std::array{time.tm_year, time.tm_mon, time.tm_mday, time.tm_hour, time.tm_min, time.tm_sec};
}

// Makes the first `count` changes. Returns how many could be made; after fewer, the menu is in any state.
std::size_t Repeat(const Journal& journal, std::size_t count, Menu& menu) {
    std::size_t made = 0;
    if (count == 0) return 0;
    try {
        JournalCounters::Restore(menu, journal.header->counters);
        for (; made < count; ++made) {
            JournalDecoder in(journal.steps[made].events);
            while (!in.AtEnd())
                JournalEvents::Repeat(in, menu);
        }
    } catch (const JournalDamage&) {
        return made;
    }
    return count;
}

// Whether the changes lead to the menu file as it is: then nothing is unsaved.
bool IsSaved(const FoundJournal& found, const std::string& menuPath, platform::FileSystem& files) {
    if (found.isDamaged) return false;
    const std::unique_ptr<Menu> base = UnsavedChanges::ReadBase(found, Paths::ParentFolder(menuPath), files);
    if (!base) return false;
    const RestoredMenu restored = UnsavedChanges::RestoreInto(found, *base, files);
    if (restored.isDamaged) return false;
    try {
        return HashOfSaved(*restored.menu) == FileHash::Of(menuPath, files);
    } catch (const NeskError&) {
        return false;
    }
}

// Describes a journal; nothing when it contains no unsaved changes.
std::optional<FoundJournal> Describe(const std::string& path, const Journal& journal,
                                     const std::string& menuPath, platform::FileSystem& files) {
    if (journal.isEnded || (journal.steps.empty() && !journal.isDamaged)) return std::nullopt;
    FoundJournal found;
    found.path = path;
    found.isDamaged = journal.isDamaged;
    if (!journal.steps.empty()) {
        found.changes = journal.steps.back().changes;
        found.time = journal.steps.back().time;
    }
    if (!journal.header) return found;
    found.owner = journal.header->owner;
    found.hash = journal.header->hash;
    found.basePath = BaseFor(path, menuPath, found.hash, files);
    found.isOfThisFile =
        found.hash != FileHash::UnreadableText && FileHash::Of(menuPath, files).Text() == found.hash;
    if (IsSaved(found, menuPath, files)) return std::nullopt;
    return found;
}

// Removes a journal without unsaved changes. One without a header may be about to get it.
void RemoveUnneeded(const std::string& path, const Journal& journal, platform::FileSystem& files) {
    if (!journal.header && files.RemoveUnheld(path) != ErrorCode::Success) return;
    std::ignore = files.RemoveFile(JournalPlaces::BaseOf(path));
    std::ignore = files.RemoveFile(path);
}

} // namespace

std::optional<FoundJournal> UnsavedChanges::Find(const std::string& menuPath, const JournalOptions& options,
                                                 platform::FileSystem& files) {
    std::optional<FoundJournal> newest;
    ForEachJournal(menuPath, options, files, [&](const std::string& path, bool isInFolder) {
        std::string bytes;
        if (files.IsHeld(path) || !ReadBytes(path, files, bytes)) return;
        const Journal journal = Journal::Read(bytes);
        if (!journal.isJournal) return;
        // Two menus of the same hash would have the same names in the user's folder.
        if (isInFolder && journal.header && !IsSamePlace(journal.header->menuPath, menuPath)) return;
        std::optional<FoundJournal> found = Describe(path, journal, menuPath, files);
        if (!found) {
            RemoveUnneeded(path, journal, files);
        } else if (!newest || Order(newest->time) <= Order(found->time)) {
            newest = std::move(found);
        }
    });
    return newest;
}

RestoredMenu UnsavedChanges::RestoreInto(const FoundJournal& found, const Menu& base,
                                         platform::FileSystem& files) {
    std::string bytes;
    RestoredMenu restored;
    const bool isRead = ReadBytes(found.path, files, bytes);
    const Journal journal = Journal::Read(bytes);
    restored.isDamaged = !isRead || journal.isDamaged || !journal.header;
    // A change that cannot be made may leave half of itself, so what could be made is made once more.
    std::size_t count = journal.header ? journal.steps.size() : 0;
    for (;;) {
        restored.menu = base.Compacted();
        if (!journal.header) return restored;
        const std::size_t made = Repeat(journal, count, *restored.menu);
        if (made == count) return restored;
        restored.isDamaged = true;
        count = made;
    }
}

std::unique_ptr<Menu> UnsavedChanges::ReadBase(const FoundJournal& found, const std::string& rootDirectory,
                                               platform::FileSystem& files) {
    if (!found.basePath.empty()) return ReadMenuQuietly(found.basePath, rootDirectory, files).menu;
    if (found.hash != FileHash::MissingText) return nullptr;
    auto menu = std::make_unique<Menu>();
    menu->Initialize(rootDirectory);
    return menu;
}

ErrorCode UnsavedChanges::Remove(const FoundJournal& found, platform::FileSystem& files) {
    std::ignore = files.RemoveFile(JournalPlaces::BaseOf(found.path));
    return files.RemoveFile(found.path);
}

ErrorCode UnsavedChanges::SetAside(const FoundJournal& found, std::string& kept,
                                   platform::FileSystem& files) {
    kept = DamagedBackupOf(found.path).path;
    if (const ErrorCode result = files.KeepCopy(found.path, kept, false); result != ErrorCode::Success)
        return result;
    return Remove(found, files);
}

} // namespace nesk
