#include "versions/SaveKeepingVersion.h"

#include "base/FileHash.h"
#include "base/NeskError.h"
#include "platform/ErrorCode.h"

namespace nesk {

VersionStore::Kept SaveKeepingVersion(MenuEditor& editor, const std::string& path, const SavePlan& plan,
                                      VersionStore& store, platform::FileSystem& files) {
    VersionStore::Kept kept = store.Keep();
    try {
        editor.Save(path, plan);
    } catch (const NeskError& error) {
        if (!kept.isNew || error.number != RuntimeError::DiskFull) throw;
        static_cast<void>(files.RemoveFile(kept.path));
        kept.isNew = false;
        kept.path.clear();
        kept.error = error;
        editor.Save(path, plan);
    }
    // A save that changed nothing leaves no version that is the same as the file.
    if (kept.isNew && FileHash::Of(kept.path, files) == editor.HashOnDisk() &&
        files.RemoveFile(kept.path) == platform::ErrorCode::Success) {
        kept.isNew = false;
        kept.path.clear();
    }
    return kept;
}

} // namespace nesk
