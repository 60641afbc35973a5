#include "base/SafeFile.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "base/Paths.h"
#include "platform/ErrorCode.h"
#include "platform/TemporaryName.h"

#include <tuple>
#include <utility>

namespace nesk {

namespace {

using platform::ErrorCode;

// The error of a failed step. PathNotFound means that the folder is missing, so the message names the folder.
NeskError Failure(ErrorCode result, const std::string& path) {
    const bool folder = result == ErrorCode::PathNotFound;
    return FileError(result, "SafeFile", folder ? Paths::ParentFolder(path) : path);
}

// The error of a failed backup, with its cause.
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
    // The writer object stays alive until the file is removed, so that no other program takes the file for
    // abandoned and reuses its name.
    // The save has failed already and its error is on the way; a file that cannot be removed is removed by a
    // later save.
    if (!m_closed) std::ignore = m_writer->Close();
    std::ignore = m_files.RemoveFile(m_temporary);
}

void SafeFile::CreateTemporary() {
    ErrorCode result = ErrorCode::AlreadyExists;
    std::string name;
    for (int i = 1; i <= platform::TemporaryNames && result == ErrorCode::AlreadyExists; ++i) {
        name = platform::TemporaryName(m_path, i);
        result = m_files.CreateNew(name, m_writer);
        if (result == ErrorCode::AlreadyExists && m_files.RemoveAbandoned(name) == ErrorCode::Success)
            result = m_files.CreateNew(name, m_writer);
    }
    // The message names the user's file; the name of the temporary file would only confuse.
    Check(result, m_path);
    m_temporary = name;
}

void SafeFile::Check(ErrorCode result, const std::string& path) {
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
    const ErrorCode found = m_files.Attributes(m_path, attributes);
    if (found == ErrorCode::Success) {
        if ((attributes & (platform::FileAttribute::ReadOnly | platform::FileAttribute::Directory)) != 0)
            throw Failure(ErrorCode::AccessDenied, m_path);
        Check(m_files.CopyAccessRights(m_path, m_temporary), m_path);
        KeepBackup(backup);
    } else if (found == ErrorCode::FileNotFound) {
        // Other users may need to read it: the operator interface may run as another user.
        m_files.ApplyDefaultRights(m_temporary);
    } else {
        // An existing file whose attributes cannot be read must not be replaced.
        throw Failure(found, m_path);
    }
    Check(m_files.Replace(m_path, m_temporary), m_path);
    m_temporary.clear();
    m_writer.reset();
}

void SafeFile::KeepBackup(const Backup& backup) {
    if (backup.path.empty()) return;
    const ErrorCode result = m_files.KeepCopy(m_path, backup.path, backup.mayReplace);
    if (result == ErrorCode::Success) return;
    // If the file itself cannot be read, the message must name the file and not the copy.
    std::unique_ptr<platform::FileReader> reader;
    Check(m_files.OpenForReading(m_path, reader), m_path);
    throw BackupFailure(std::make_shared<NeskError>(Failure(result, backup.path)), backup.path);
}

} // namespace nesk
