#include "platform/FileSystem.h"

#include "platform/ErrorCode.h"
#include "platform/NamePattern.h"
#include "platform/TemporaryName.h"
#include "platform/portable/FileHandle.h"
#include "platform/portable/FileLock.h"
#include "platform/portable/FileNames.h"
#include "platform/portable/HostError.h"
#include "platform/portable/Station.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace nesk::platform {

namespace {

using portable::ErrorFromErrno;
using portable::FileHandle;
using portable::NameFromHost;
using portable::ToHostPath;
namespace fs = std::filesystem;

std::uint32_t AttributesOf(const struct stat& status, std::string_view name) {
    std::uint32_t attributes = 0;
    if (S_ISDIR(status.st_mode)) attributes |= FileAttribute::Directory;
    if ((status.st_mode & S_IWUSR) == 0 && !S_ISDIR(status.st_mode)) attributes |= FileAttribute::ReadOnly;
    if (name.size() > 1 && name.front() == '.' && name != "..") attributes |= FileAttribute::Hidden;
    return attributes != 0 ? attributes : FileAttribute::Normal;
}

// The rights to read, write and execute. The higher bits (set-user-ID) would run a program with its owner's
// rights.
constexpr mode_t AccessRights = 0777;

// Copies the owner, the group and the access rights of a file to another, as far as the user's privileges
// allow.
// @param own      sets owner and group, where -1 keeps the current one; returns the result of chown
// @param protect  sets access rights; returns the result of chmod
template <typename Own, typename Protect>
ErrorCode TransferRights(const struct stat& from, Own own, Protect protect) {
    mode_t rights = from.st_mode & AccessRights;
    // Only root may change the owner; other users may only choose among their own groups.
    if (own(from.st_uid, from.st_gid) != 0 && own(static_cast<uid_t>(-1), from.st_gid) != 0) {
        if (errno != EPERM) return ErrorFromErrno(errno, ErrorCode::WriteFault);
        // The rights of the original group must not pass to another group, which gets only what everybody
        // has.
        rights &= ~static_cast<mode_t>(S_IRWXG) | (rights & S_IRWXO) << 3;
    }
    return protect(rights) != 0 ? ErrorFromErrno(errno, ErrorCode::WriteFault) : ErrorCode::Success;
}

// A missing file in a missing directory is "path not found", as on Windows.
ErrorCode MissingCode(const fs::path& host, int error) {
    struct stat status {};
    if (error == ENOENT && ::stat(host.parent_path().c_str(), &status) != 0) return ErrorCode::PathNotFound;
    return ErrorFromErrno(error, ErrorCode::ReadFault);
}

// The result code of a folder that cannot be searched. A missing folder and a file in its place are both
// "path not found".
ErrorCode FolderCode(int error) {
    return error == ENOENT ? ErrorCode::PathNotFound : ErrorFromErrno(error, ErrorCode::PathNotFound);
}

// True when a host path is the folder of a drive. Nearly all names are longer than one letter, so the paths
// are rarely compared.
bool IsDriveFolder(const fs::path& host) {
    const std::string& name = host.native();
    return name.size() > 2 && name[name.size() - 2] == '/' &&
           host.parent_path() == portable::StationFolder() / "drives";
}

// Finds the host file of a Windows path. Returns an error when the path cannot name a file.
ErrorCode Locate(const std::string& path, fs::path& host) {
    host = ToHostPath(path);
    if (host.empty()) return ErrorCode::PathNotFound;
    const bool drive = path.size() >= 2 && path[1] == ':';
    // File names on the host are not restricted.
    if (drive && (path[0] == 'Z' || path[0] == 'z')) return ErrorCode::Success;
    // There is no drive of that name; the path must not lead to a file on drive C: instead.
    const char lower = static_cast<char>(path[0] | 0x20);
    if (drive && (lower < 'a' || lower > 'z')) return ErrorCode::PathNotFound;
    const std::string_view names = std::string_view(path).substr(drive ? 2 : 0);
    const auto isForbidden = [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || std::strchr("<>:\"|?*", c) != nullptr;
    };
    if (std::any_of(names.begin(), names.end(), isForbidden)) return ErrorCode::InvalidName;
    struct stat status {};
    // A missing drive is neither read nor created.
    if (IsDriveFolder(host) && ::stat(host.c_str(), &status) != 0) return ErrorCode::PathNotFound;
    // Only a folder may have a trailing separator.
    if ((path.back() == '\\' || path.back() == '/') && ::stat(host.c_str(), &status) == 0 &&
        !S_ISDIR(status.st_mode))
        return ErrorCode::InvalidName;
    return ErrorCode::Success;
}

// The target of a link. Replacing a linked file then replaces its target and keeps the link.
fs::path FinalPath(const fs::path& host) {
    std::error_code error;
    fs::path real = fs::canonical(host, error);
    return error ? host : real;
}

// Flushes the entries of a folder to the disk. Errors are ignored: the file was renamed before and is
// complete under either name. Flushing fails in folders without read permission and on file systems that do
// not support it.
void FlushFolder(const fs::path& folder) {
    const FileHandle handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (handle) ::fsync(handle.Get());
}

// Reads a file up to the length that it had when it was opened.
class HostReader final : public FileReader {
public:
    HostReader(FileHandle handle, off_t length)
        : m_handle(std::move(handle)), m_left(static_cast<std::uint64_t>(length)) {}

    ErrorCode Read(char* buffer, std::size_t capacity, std::size_t& count) override {
        capacity = static_cast<std::size_t>(std::min<std::uint64_t>(capacity, m_left));
        ssize_t got = 0;
        do
            got = ::read(m_handle.Get(), buffer, capacity);
        while (got < 0 && errno == EINTR);
        count = got > 0 ? static_cast<std::size_t>(got) : 0;
        m_left -= count;
        return got < 0 ? ErrorFromErrno(errno, ErrorCode::ReadFault) : ErrorCode::Success;
    }

private:
    FileHandle m_handle;
    std::uint64_t m_left;
};

class HostWriter final : public FileWriter {
public:
    // The lock belongs to the open file description; a second descriptor keeps it after Close.
    explicit HostWriter(FileHandle handle)
        : m_handle(std::move(handle)), m_hold(::fcntl(m_handle.Get(), F_DUPFD_CLOEXEC, 0)) {}

    ErrorCode Write(std::string_view bytes) override {
        while (!bytes.empty()) {
            const ssize_t put = ::write(m_handle.Get(), bytes.data(), bytes.size());
            if (put < 0 && errno == EINTR) continue;
            if (put < 0) return ErrorFromErrno(errno, ErrorCode::WriteFault);
            bytes.remove_prefix(static_cast<std::size_t>(put));
        }
        return ErrorCode::Success;
    }

    ErrorCode SetRightsOf(const struct stat& from) {
        const int handle = m_handle.Get();
        return TransferRights(
            from, [handle](uid_t owner, gid_t group) { return ::fchown(handle, owner, group); },
            [handle](mode_t rights) { return ::fchmod(handle, rights); });
    }

    ErrorCode Flush() override {
        return ::fsync(m_handle.Get()) != 0 ? ErrorFromErrno(errno, ErrorCode::WriteFault)
                                            : ErrorCode::Success;
    }

    ErrorCode Close() override {
        return m_handle.Close() != 0 ? ErrorFromErrno(errno, ErrorCode::WriteFault) : ErrorCode::Success;
    }

private:
    FileHandle m_handle;
    FileHandle m_hold;
};

// A search for a name without wildcards, with at most one entry.
class SingleSearch final : public DirectorySearch {
public:
    ErrorCode Next(DirectoryEntry&) override { return ErrorCode::NoMoreItems; }
};

class PatternSearch final : public DirectorySearch {
public:
    PatternSearch(const fs::path& folder, std::string pattern)
        : m_pattern(std::move(pattern)), m_directory(::opendir(folder.c_str())) {}

    bool IsOpen() const { return m_directory != nullptr; }

    ErrorCode Next(DirectoryEntry& entry) override {
        for (;;) {
            errno = 0;
            const dirent* found = ::readdir(m_directory.get());
            if (found == nullptr)
                return errno != 0 ? ErrorFromErrno(errno, ErrorCode::ReadFault) : ErrorCode::NoMoreItems;
            std::string name = NameFromHost(found->d_name);
            if (!MatchesPattern(name, m_pattern)) continue;
            struct stat status {};
            // A folder needs no further query. A broken link is reported as an entry, too.
            if (found->d_type == DT_DIR)
                status.st_mode = S_IFDIR;
            else if (::fstatat(::dirfd(m_directory.get()), found->d_name, &status, 0) != 0)
                status.st_mode = S_IWUSR;
            entry.attributes = AttributesOf(status, name);
            if (IsLink(*found)) entry.attributes |= FileAttribute::Link;
            entry.name = std::move(name);
            return ErrorCode::Success;
        }
    }

private:
    // Some file systems do not report the type of an entry with its name.
    bool IsLink(const dirent& entry) const {
        if (entry.d_type != DT_UNKNOWN) return entry.d_type == DT_LNK;
        struct stat status {};
        return ::fstatat(::dirfd(m_directory.get()), entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
               S_ISLNK(status.st_mode);
    }

    std::string m_pattern;
    struct Closer {
        void operator()(DIR* directory) const { ::closedir(directory); }
    };
    std::unique_ptr<DIR, Closer> m_directory;
};

class HostFileSystem final : public FileSystem {
public:
    ErrorCode Attributes(const std::string& path, std::uint32_t& attributes) override {
        attributes = 0;
        struct stat status {};
        if (const std::string likely = portable::LikelyHostPath(path);
            !likely.empty() && ::stat(likely.c_str(), &status) == 0) {
            attributes = AttributesOf(status, std::string_view(likely).substr(likely.rfind('/') + 1));
            return ErrorCode::Success;
        }
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        if (::stat(host.c_str(), &status) != 0) return MissingCode(host, errno);
        attributes = AttributesOf(status, host.filename().string());
        return ErrorCode::Success;
    }

    ErrorCode Search(const std::string& pattern, std::unique_ptr<DirectorySearch>& search,
                     DirectoryEntry& first) override {
        search.reset();
        const std::size_t slash = pattern.find_last_of("\\/");
        const std::string name = slash == std::string::npos ? pattern : pattern.substr(slash + 1);
        if (name.find_first_of("*?") == std::string::npos) return SearchOne(pattern, search, first);
        const std::string folder = slash == std::string::npos ? "C:\\" : pattern.substr(0, slash + 1);
        fs::path host;
        if (const ErrorCode result = Locate(folder, host); result != ErrorCode::Success) return result;
        auto found = std::make_unique<PatternSearch>(host, name);
        if (!found->IsOpen()) return FolderCode(errno);
        const ErrorCode result = found->Next(first);
        if (result == ErrorCode::NoMoreItems) return ErrorCode::FileNotFound;
        if (result == ErrorCode::Success) search = std::move(found);
        return result;
    }

    ErrorCode MakeFolder(const std::string& path) override {
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        if (::mkdir(host.c_str(), 0777) == 0) return ErrorCode::Success;
        return MissingCode(host, errno) == ErrorCode::FileNotFound ? ErrorCode::PathNotFound
                                                                   : MissingCode(host, errno);
    }

    ErrorCode OpenForReading(const std::string& path, std::unique_ptr<FileReader>& reader) override {
        reader.reset();
        // Without O_NONBLOCK, opening a pipe without a writer would block the program.
        constexpr int flags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
        FileHandle handle;
        if (const std::string likely = portable::LikelyHostPath(path); !likely.empty())
            handle = FileHandle(::open(likely.c_str(), flags));
        if (!handle) {
            fs::path host;
            if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
            handle = FileHandle(::open(host.c_str(), flags));
            if (!handle) return MissingCode(host, errno);
        }
        struct stat status {};
        if (::fstat(handle.Get(), &status) != 0) return ErrorFromErrno(errno, ErrorCode::ReadFault);
        if (!S_ISREG(status.st_mode)) return ErrorCode::AccessDenied;
        reader = std::make_unique<HostReader>(std::move(handle), status.st_size);
        return ErrorCode::Success;
    }

    ErrorCode CreateNew(const std::string& path, std::unique_ptr<FileWriter>& writer) override {
        writer.reset();
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        FileHandle handle;
        if (const int error = portable::CreateLocked(host, handle); error != 0)
            return MissingCode(host, error);
        writer = std::make_unique<HostWriter>(std::move(handle));
        return ErrorCode::Success;
    }

    ErrorCode RemoveFile(const std::string& path) override {
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        return ::unlink(host.c_str()) != 0 ? MissingCode(host, errno) : ErrorCode::Success;
    }

    ErrorCode RemoveAbandoned(const std::string& path) override {
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        const int error = portable::RemoveUnlocked(host);
        return error != 0 ? MissingCode(host, error) : ErrorCode::Success;
    }

    bool IsHeld(const std::string& path) override {
        fs::path host;
        return Locate(path, host) == ErrorCode::Success && portable::IsLocked(host);
    }

    ErrorCode CopyAccessRights(const std::string& from, const std::string& to) override {
        const fs::path source = ToHostPath(from);
        const fs::path target = ToHostPath(to);
        struct stat status {};
        if (::stat(source.c_str(), &status) != 0) return MissingCode(source, errno);
        return TransferRights(
            status, [&](uid_t owner, gid_t group) { return ::chown(target.c_str(), owner, group); },
            [&](mode_t rights) { return ::chmod(target.c_str(), rights); });
    }

    void ApplyDefaultRights(const std::string& path) override {
        // The mask can only be read by setting it. A file created by another thread in between gets too few
        // rights rather than too many.
        const mode_t mask = ::umask(S_IRWXG | S_IRWXO);
        ::umask(mask);
        constexpr mode_t everybody = 0666;
        ::chmod(ToHostPath(path).c_str(), everybody & ~mask);
    }

    ErrorCode KeepCopy(const std::string& path, const std::string& copy, bool mayReplace) override {
        fs::path source;
        fs::path target;
        if (const ErrorCode result = Locate(path, source); result != ErrorCode::Success) return result;
        if (const ErrorCode result = Locate(copy, target); result != ErrorCode::Success) return result;
        source = FinalPath(source);
        struct stat status {};
        if (::stat(source.c_str(), &status) != 0) return MissingCode(source, errno);
        if (!mayReplace && ::lstat(target.c_str(), &status) == 0) return ErrorCode::AlreadyExists;
        fs::path temporary;
        FileHandle handle;
        if (const int error = CreateBeside(target, temporary, handle); error != 0)
            return MissingCode(temporary, error);
        HostWriter writer(std::move(handle));
        if (const ErrorCode result = CopyContents(source, writer); result != ErrorCode::Success) {
            ::unlink(temporary.c_str());
            return result;
        }
        const int renamed =
            mayReplace ? ::rename(temporary.c_str(), target.c_str()) : RenameToNew(temporary, target);
        const int error = errno;
        if (renamed != 0) {
            ::unlink(temporary.c_str());
            return ErrorFromErrno(error, ErrorCode::WriteFault);
        }
        FlushFolder(target.parent_path());
        return ErrorCode::Success;
    }

    ErrorCode Replace(const std::string& path, const std::string& replacement) override {
        fs::path target;
        fs::path source;
        if (const ErrorCode result = Locate(path, target); result != ErrorCode::Success) return result;
        if (const ErrorCode result = Locate(replacement, source); result != ErrorCode::Success) return result;
        target = FinalPath(target);
        struct stat status {};
        if (::stat(target.c_str(), &status) == 0) {
            if (S_ISDIR(status.st_mode)) return ErrorCode::AccessDenied;
            // A rename ignores write protection of the file, but the user who set it expects it to count.
            if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) return ErrorCode::AccessDenied;
        }
        if (::rename(source.c_str(), target.c_str()) != 0) return MissingCode(target, errno);
        FlushFolder(target.parent_path());
        return ErrorCode::Success;
    }

private:
    // Renames a file to a name that must not exist; returns -1 and errno when it exists. On file systems
    // without RENAME_NOREPLACE a hard link is used.
    static int RenameToNew(const fs::path& from, const fs::path& to) {
        if (::renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
        if (errno != EINVAL && errno != ENOSYS) return -1;
        if (::link(from.c_str(), to.c_str()) != 0) return -1;
        ::unlink(from.c_str());
        return 0;
    }

    static ErrorCode SearchOne(const std::string& path, std::unique_ptr<DirectorySearch>& search,
                               DirectoryEntry& first) {
        fs::path host;
        if (const ErrorCode result = Locate(path, host); result != ErrorCode::Success) return result;
        struct stat status {};
        if (::stat(host.c_str(), &status) != 0) return MissingCode(host, errno);
        first.name = NameFromHost(host.filename().string());
        first.attributes = AttributesOf(status, first.name);
        search = std::make_unique<SingleSearch>();
        return ErrorCode::Success;
    }

    // Creates the temporary file for a copy; returns 0 or an errno value. A file left by a killed program is
    // deleted; a file in use by another program is skipped.
    static int CreateBeside(const fs::path& target, fs::path& temporary, FileHandle& handle) {
        int error = EEXIST;
        for (int i = 1; i <= TemporaryNames && error == EEXIST; ++i) {
            temporary = TemporaryName(target.string(), i);
            error = portable::CreateLocked(temporary, handle);
            if (error == EEXIST && portable::RemoveUnlocked(temporary) == 0)
                error = portable::CreateLocked(temporary, handle);
        }
        return error;
    }

    static ErrorCode CopyContents(const fs::path& source, HostWriter& writer) {
        FileHandle in(::open(source.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
        if (!in) return MissingCode(source, errno);
        struct stat status {};
        if (::fstat(in.Get(), &status) != 0) return ErrorFromErrno(errno, ErrorCode::ReadFault);
        if (!S_ISREG(status.st_mode)) return ErrorCode::AccessDenied;
        if (const ErrorCode result = writer.SetRightsOf(status); result != ErrorCode::Success) return result;
        HostReader reader(std::move(in), status.st_size);
        std::array<char, 65536> buffer{};
        for (;;) {
            std::size_t count = 0;
            if (const ErrorCode result = reader.Read(buffer.data(), buffer.size(), count);
                result != ErrorCode::Success)
                return result;
            if (count == 0) break;
            if (const ErrorCode result = writer.Write({buffer.data(), count}); result != ErrorCode::Success)
                return result;
        }
        if (const ErrorCode result = writer.Flush(); result != ErrorCode::Success) return result;
        return writer.Close();
    }
};

} // namespace

FileSystem& StationFiles() {
    static HostFileSystem files;
    return files;
}

std::string ProgramFolder() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return portable::ToWindowsPath(error ? fs::current_path() : program.parent_path());
}

} // namespace nesk::platform
