#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nesk::platform {

/// File attribute bits, as Windows numbers them.
namespace FileAttribute {
constexpr std::uint32_t ReadOnly = 1;
constexpr std::uint32_t Hidden = 2;
constexpr std::uint32_t System = 4;
constexpr std::uint32_t Directory = 16;
constexpr std::uint32_t Archive = 32;
constexpr std::uint32_t Normal = 128;
/// Of the entries of a search alone: it leads to another place.
constexpr std::uint32_t Link = 1024;
} // namespace FileAttribute

/// One entry that a directory search found.
struct DirectoryEntry {
    std::string name;
    std::uint32_t attributes = 0;
};

/// A directory search that is under way; destroying it ends the search.
class DirectorySearch {
public:
    virtual ~DirectorySearch() = default;

    /// Moves to the next entry, in the order of the file system. NoMoreItems past the end. "." and ".." are
    /// reported by wildcard searches as Windows does.
    virtual int Next(DirectoryEntry& entry) = 0;
};

/// A file open for sequential reading; destroying it closes the file.
class FileReader {
public:
    virtual ~FileReader() = default;

    /// Reads up to `capacity` bytes; `count` is 0 only at the end of the file.
    virtual int Read(char* buffer, std::size_t capacity, std::size_t& count) = 0;
};

/// A new file open for writing. Destroying it closes the file; the result of that close is lost. As long as
/// the object lives, its file is no abandoned one.
class FileWriter {
public:
    virtual ~FileWriter() = default;

    /// Writes all of `bytes`, or fails.
    virtual int Write(std::string_view bytes) = 0;

    /// Forces what was written to the disk.
    virtual int Flush() = 0;

    /// Closes the file. Nothing but the destructor may be called afterwards.
    virtual int Close() = 0;
};

/// The station's files. Paths are Windows paths in UTF-8, names match without regard to case. Every operation
/// answers with a result code (ErrorCode.h) and never throws.
class FileSystem {
public:
    virtual ~FileSystem() = default;

    /// Attributes of a file or directory.
    virtual int Attributes(const std::string& path, std::uint32_t& attributes) = 0;

    /// Starts a search for a path whose last name may hold the wildcards "*" and "?" ("*.*" is every name).
    /// FileNotFound when nothing matches, PathNotFound when the directory is missing.
    virtual int Search(const std::string& pattern, std::unique_ptr<DirectorySearch>& search,
                       DirectoryEntry& first) = 0;

    /// Creates one directory level. AlreadyExists, PathNotFound, AccessDenied, InvalidName.
    virtual int MakeFolder(const std::string& path) = 0;

    /// Opens a regular file for reading. A directory, a pipe or a device is AccessDenied and never blocks.
    /// What is added to the file from now on is not read: another program might never stop adding.
    virtual int OpenForReading(const std::string& path, std::unique_ptr<FileReader>& reader) = 0;

    /// Creates a file that must not exist yet, readable and writable by its owner alone.
    virtual int CreateNew(const std::string& path, std::unique_ptr<FileWriter>& writer) = 0;

    /// Deletes a file.
    virtual int RemoveFile(const std::string& path) = 0;

    /// Deletes a file that CreateNew made and that nobody works on any more, because the program that did was
    /// killed. SharingViolation when it may still be in use; the file stays then.
    virtual int RemoveAbandoned(const std::string& path) = 0;

    /// Gives `to` the access rights and the owner of `from`, as far as the user may.
    virtual int CopyAccessRights(const std::string& from, const std::string& to) = 0;

    /// Gives a file that CreateNew made the access rights that a new file of the user's usually has. Where
    /// that cannot be done, it stays the user's alone.
    virtual void GiveUsualRights(const std::string& /*path*/) {}

    /// Makes `copy` hold the contents of `path` in one step: afterwards `copy` is the whole file or what it
    /// was before. With `mayReplace` false an existing `copy` is AlreadyExists.
    virtual int KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) = 0;

    /// Puts a file back that is missing because a program was killed while it replaced it.
    virtual void RestoreInterrupted(const std::string& /*path*/) {}

    /// Puts `replacement` in the place of `path`, which may be missing, in one step, and makes the change
    /// durable. AccessDenied when `path` is read-only.
    virtual int Replace(const std::string& path, const std::string& replacement) = 0;
};

/// The file system of the station. Lives until the process ends.
FileSystem& StationFiles();

/// Folder that holds the running program, as a Windows path without a trailing "\".
std::string ProgramFolder();

} // namespace nesk::platform
