#pragma once

#include "base/ByteSink.h"
#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace nesk {

/// What becomes of the version that is replaced.
struct Backup {
    std::string path;        ///< Windows path of the copy; "" keeps none
    bool mayReplace = false; ///< false: an older copy of that name makes the save fail
};

/// A file being replaced: what is written goes to a new file beside the old one, which takes its place in one
/// step when everything has reached the disk. Until Commit has returned, the old file is untouched; without
/// Commit the new one is removed.
class SafeFile final : public ByteSink {
public:
    /// Creates the new file. Raises the run-time error of the failure.
    /// @param path  Windows path of the file to replace, which may be missing
    explicit SafeFile(std::string path, platform::FileSystem& files = platform::StationFiles());
    ~SafeFile() override;
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    void Write(std::string_view bytes) override;

    /// Flushes, closes, takes over the access rights of the file before or those usual for a new one, keeps
    /// the backup and replaces the file. Raises the run-time error of the step that failed.
    void Commit(const Backup& backup);

private:
    static void Check(int result, const std::string& path);
    void CreateTemporary();
    void KeepBackup(const Backup& backup);

    platform::FileSystem& m_files;
    std::string m_path;
    std::string m_temporary;
    std::unique_ptr<platform::FileWriter> m_writer;
    bool m_closed = false;
};

} // namespace nesk
