#include "shell/SafeFile.h"

#include "platform/ErrorCode.h"
#include "shell/FileErrors.h"
#include "shell/Messages.h"
#include "shell/modUtilities.h"

#include <utility>

namespace nesk {

namespace {

namespace ErrorCode = platform::ErrorCode;

// Names tried for the new file: others belong to editors that save at the same time or were killed while they
// did.
constexpr int TemporaryNames = 100;

} // namespace

SafeFile::SafeFile(std::string path, platform::FileSystem& files) : m_files(files), m_path(std::move(path)) {
    CreateTemporary();
}

SafeFile::~SafeFile() {
    if (m_temporary.empty()) return;
    m_writer.reset();
    m_files.RemoveFile(m_temporary);
}

void SafeFile::CreateTemporary() {
    int result = ErrorCode::AlreadyExists;
    std::string name;
    for (int i = 1; i <= TemporaryNames && result == ErrorCode::AlreadyExists; ++i) {
        name = m_path + ".new" + (i > 1 ? std::to_string(i) : "");
        result = m_files.CreateNew(name, m_writer);
    }
    // What the user asked to be written is the file itself; the name beside it would only confuse.
    Check(result, m_path);
    m_temporary = name;
}

void SafeFile::Check(int result, const std::string& path) const {
    if (result != ErrorCode::Success) throw FileError(result, "SafeFile", path);
}

void SafeFile::Write(std::string_view bytes) {
    Check(m_writer->Write(bytes), m_path);
}

void SafeFile::Commit(const Backup& backup) {
    Check(m_writer->Flush(), m_path);
    Check(m_writer->Close(), m_path);
    m_writer.reset();
    std::uint32_t attributes = 0;
    const int found = m_files.Attributes(m_path, attributes);
    if (found == ErrorCode::Success) {
        if ((attributes & (platform::FileAttribute::ReadOnly | platform::FileAttribute::Directory)) != 0)
            throw FileError(ErrorCode::AccessDenied, "SafeFile", m_path);
        Check(m_files.CopyAccessRights(m_path, m_temporary), m_path);
        KeepBackup(backup);
    } else if (found != ErrorCode::FileNotFound) {
        // Whatever stands there and cannot be looked at must not be replaced unseen.
        throw FileError(found, "SafeFile", m_path);
    }
    Check(m_files.Replace(m_path, m_temporary), m_path);
    m_temporary.clear();
}

void SafeFile::KeepBackup(const Backup& backup) {
    if (backup.path.empty()) return;
    const int result = m_files.KeepCopy(m_path, backup.path, backup.mayReplace);
    if (result == ErrorCode::Success) return;
    // When it is the file itself that cannot be read, the user must hear its name and not the copy's.
    std::unique_ptr<platform::FileReader> reader;
    Check(m_files.OpenForReading(m_path, reader), m_path);
    const NeskError cause = FileError(result, "SafeFile", backup.path);
    throw NeskError(cause.number, cause.source, Message::BackupFailed,
                    {backup.path, modUtilities::MessageText(cause)});
}

} // namespace nesk
