#include "base/SafeFile.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/Paths.h"
#include "platform/ErrorCode.h"

#include <utility>

namespace nesk {

namespace {

namespace ErrorCode = platform::ErrorCode;

// Names tried for the new file: others belong to editors that save at the same time.
constexpr int TemporaryNames = 100;

// The error of a step. Where the path is not found it is the folder that is missing.
NeskError Failure(int result, const std::string& path) {
    const bool folder = result == ErrorCode::PathNotFound;
    return FileError(result, "SafeFile", folder ? Paths::ParentFolder(path) : path);
}

// The error of a backup that could not be made, and why.
NeskError BackupFailure(const std::shared_ptr<const NeskError>& cause, const std::string& path) {
    NeskError error(cause->number, cause->source, Message::BackupFailed, {path});
    error.cause = cause;
    return error;
}

} // namespace

SafeFile::SafeFile(std::string path, platform::FileSystem& files) : m_files(files), m_path(std::move(path)) {
    CreateTemporary();
}

SafeFile::~SafeFile() {
    if (m_temporary.empty()) return;
    // While the writer lives nobody else takes the file for abandoned and its name for a file of his own.
    if (!m_closed) m_writer->Close();
    m_files.RemoveFile(m_temporary);
}

void SafeFile::CreateTemporary() {
    int result = ErrorCode::AlreadyExists;
    std::string name;
    for (int i = 1; i <= TemporaryNames && result == ErrorCode::AlreadyExists; ++i) {
        // The name is one that nobody gives to a file of his own: what an editor left behind that was killed
        // is removed.
        name = m_path + ".nesk" + (i > 1 ? std::to_string(i) : "") + "~";
        result = m_files.CreateNew(name, m_writer);
        if (result == ErrorCode::AlreadyExists && m_files.RemoveAbandoned(name) == ErrorCode::Success)
            result = m_files.CreateNew(name, m_writer);
    }
    // What the user asked to be written is the file itself; the name beside it would only confuse.
    Check(result, m_path);
    m_temporary = name;
}

void SafeFile::Check(int result, const std::string& path) {
    if (result != ErrorCode::Success) throw Failure(result, path);
}

void SafeFile::Write(std::string_view bytes) {
    Check(m_writer->Write(bytes), m_path);
}

void SafeFile::Commit(const Backup& backup) {
    Check(m_writer->Flush(), m_path);
    m_closed = true;
    Check(m_writer->Close(), m_path);
    std::uint32_t attributes = 0;
    const int found = m_files.Attributes(m_path, attributes);
    if (found == ErrorCode::Success) {
        if ((attributes & (platform::FileAttribute::ReadOnly | platform::FileAttribute::Directory)) != 0)
            throw Failure(ErrorCode::AccessDenied, m_path);
        Check(m_files.CopyAccessRights(m_path, m_temporary), m_path);
        KeepBackup(backup);
    } else if (found == ErrorCode::FileNotFound) {
        // Others may have to read it: the operator interface may run as another user.
        m_files.GiveUsualRights(m_temporary);
    } else {
        // Whatever stands there and cannot be looked at must not be replaced unseen.
        throw Failure(found, m_path);
    }
    Check(m_files.Replace(m_path, m_temporary), m_path);
    m_temporary.clear();
    m_writer.reset();
}

void SafeFile::KeepBackup(const Backup& backup) {
    if (backup.path.empty()) return;
    const int result = m_files.KeepCopy(m_path, backup.path, backup.mayReplace);
    if (result == ErrorCode::Success) return;
    // When it is the file itself that cannot be read, the user must hear its name and not the copy's.
    std::unique_ptr<platform::FileReader> reader;
    Check(m_files.OpenForReading(m_path, reader), m_path);
    throw BackupFailure(std::make_shared<NeskError>(Failure(result, backup.path)), backup.path);
}

} // namespace nesk
