#pragma once

#include "base/ByteSink.h"
#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <string_view>

namespace nesk {

/// How the replaced version of a file is kept.
struct Backup {
    std::string path;        ///< Windows path of the copy; "" for no copy
    bool mayReplace = false; ///< if false, an existing copy of that name makes the save fail
};

/// Replaces a file atomically. Data is written to a temporary file in the same folder, which takes the place
/// of the old file when everything has reached the disk. Until Commit returns, the old file is untouched;
/// without Commit, the destructor removes the temporary file.
class SafeFile final : public ByteSink {
public:
    /// Creates the temporary file. Raises the run-time error of the failure.
    /// @param path  Windows path of the file to replace, which may be missing
    explicit SafeFile(std::string path, platform::FileSystem& files = platform::StationFiles());
    ~SafeFile() override;
    SafeFile(const SafeFile&) = delete;
    SafeFile& operator=(const SafeFile&) = delete;

    void Write(std::string_view bytes) override;

    /// Flushes and closes the temporary file, copies the access rights of the old file (or sets the usual
    /// ones for a new file), makes the backup and replaces the file. Raises the run-time error of the step
    /// that failed.
    void Commit(const Backup& backup);

private:
    static void Check(platform::ErrorCode result, const std::string& path);
    void CreateTemporary();
    void KeepBackup(const Backup& backup);

    platform::FileSystem& m_files;
    std::string m_path;
    std::string m_temporary;
    std::unique_ptr<platform::FileWriter> m_writer;
    bool m_closed = false;
};

} // namespace nesk
