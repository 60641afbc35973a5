#include "versions/SaveKeepingVersion.h"

#include "base/NeskError.h"

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
    return kept;
}

} // namespace nesk
