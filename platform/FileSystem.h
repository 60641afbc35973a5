#pragma once

#include "platform/ErrorCode.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nesk::platform {

/// File attribute bits, with the numbers of Windows.
namespace FileAttribute {
constexpr std::uint32_t ReadOnly = 1;
constexpr std::uint32_t Hidden = 2;
constexpr std::uint32_t System = 4;
constexpr std::uint32_t Directory = 16;
constexpr std::uint32_t Archive = 32;
constexpr std::uint32_t Normal = 128;
/// Set only in search results: the entry is a link to another place.
constexpr std::uint32_t Link = 1024;
} // namespace FileAttribute

/// One entry found by a directory search.
struct DirectoryEntry {
    std::string name;
    std::uint32_t attributes = 0;
};

/// A directory search in progress; destroying it ends the search.
class DirectorySearch {
public:
    virtual ~DirectorySearch() = default;

    /// Moves to the next entry, in the order of the file system. NoMoreItems after the last entry. Wildcard
    /// searches report "." and "..", as on Windows.
    virtual ErrorCode Next(DirectoryEntry& entry) = 0;
};

/// A file open for sequential reading; destroying it closes the file.
class FileReader {
public:
    virtual ~FileReader() = default;

    /// Reads up to `capacity` bytes; `count` is 0 only at the end of the file.
    virtual ErrorCode Read(char* buffer, std::size_t capacity, std::size_t& count) = 0;
};

/// A new file open for writing. Destroying it closes the file and discards the result of closing. As long as
/// the object exists, RemoveAbandoned does not delete its file.
class FileWriter {
public:
    virtual ~FileWriter() = default;

    /// Writes all of `bytes`, or fails.
    virtual ErrorCode Write(std::string_view bytes) = 0;

    /// Flushes the written data to the disk.
    virtual ErrorCode Flush() = 0;

    /// Closes the file. Afterwards only the destructor may be called.
    virtual ErrorCode Close() = 0;
};

/// The station's files. Paths are Windows paths in UTF-8; names are compared without regard to case. Every
/// operation returns a result code (ErrorCode.h) and never throws.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Attributes of a file or directory.
    virtual ErrorCode Attributes(const std::string& path, std::uint32_t& attributes) = 0;

    /// Starts a search for a path whose last name may contain the wildcards "*" and "?" ("*.*" matches every
    /// name). FileNotFound when nothing matches, PathNotFound when the directory is missing.
    virtual ErrorCode Search(const std::string& pattern, std::unique_ptr<DirectorySearch>& search,
                             DirectoryEntry& first) = 0;

    /// Creates one directory level. Fails with AlreadyExists, PathNotFound, AccessDenied or InvalidName.
    virtual ErrorCode MakeFolder(const std::string& path) = 0;

    /// Opens a regular file for reading. Returns AccessDenied for a directory, a pipe or a device, and never
    /// blocks. Reads only up to the length that the file has now: another program might append to it without
    /// end.
    virtual ErrorCode OpenForReading(const std::string& path, std::unique_ptr<FileReader>& reader) = 0;

    /// Creates a file that must not exist yet. Only its owner can read and write it.
    virtual ErrorCode CreateNew(const std::string& path, std::unique_ptr<FileWriter>& writer) = 0;

    /// Deletes a file.
    virtual ErrorCode RemoveFile(const std::string& path) = 0;

    /// Deletes a file that CreateNew made and that a killed program left behind. SharingViolation when the
    /// file may still be in use; it is not deleted then.
    virtual ErrorCode RemoveAbandoned(const std::string& path) = 0;

    /// Deletes a file that CreateNew made and whose writer is gone, even if it was written just now.
    /// SharingViolation while a program has the file open; it is not deleted then.
    virtual ErrorCode RemoveUnheld(const std::string& path) { return RemoveAbandoned(path); }

    /// True when a program that still runs has the file open that it made by CreateNew. False when that
    /// cannot be found out.
    virtual bool IsHeld(const std::string& /*path*/) { return false; }

    /// Copies the access rights and the owner of `from` to `to`, as far as the user's privileges allow.
    virtual ErrorCode CopyAccessRights(const std::string& from, const std::string& to) = 0;

    /// Gives a file made by CreateNew the access rights that the user's new files usually have. If that is
    /// not possible, the file remains accessible to the user alone.
    virtual void ApplyDefaultRights(const std::string& /*path*/) {}

    /// Copies the contents of `path` to `copy` atomically: afterwards `copy` is either the whole file or
    /// unchanged. If `mayReplace` is false and `copy` exists, returns AlreadyExists.
    virtual ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) = 0;

    /// Restores a file that is missing because a program was killed while replacing it.
    virtual void RestoreInterrupted(const std::string& /*path*/) {}

    /// Atomically replaces `path`, which may be missing, with `replacement` and makes the change durable.
    /// AccessDenied when `path` is read-only.
    virtual ErrorCode Replace(const std::string& path, const std::string& replacement) = 0;
};

/// The file system of the station. Lives until the process ends.
FileSystem& StationFiles();

/// Folder that holds the running program, as a Windows path without a trailing "\".
std::string ProgramFolder();

} // namespace nesk::platform
