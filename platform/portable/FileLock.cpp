#include "platform/portable/FileLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace nesk::platform::portable {

namespace {

bool Lock(const FileHandle& handle) {
    return ::flock(handle.Get(), LOCK_EX | LOCK_NB) == 0;
}

bool IsUnder(const FileHandle& handle, const std::filesystem::path& file) {
    struct stat open {};
    struct stat named {};
    return ::fstat(handle.Get(), &open) == 0 && ::lstat(file.c_str(), &named) == 0 &&
           open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

} // namespace

int CreateLocked(const std::filesystem::path& file, FileHandle& handle) {
    FileHandle made(::open(file.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!made) return errno;
    // If locking fails, the file is never deleted as abandoned, so it can be used. The exception is a file
    // that is already locked: another program found it between its creation and the lock, and is about to
    // delete it.
    const bool locked = Lock(made);
    if ((!locked && errno == EWOULDBLOCK) || !IsUnder(made, file)) return EEXIST;
    handle = std::move(made);
    return 0;
}

int RemoveUnlocked(const std::filesystem::path& file) {
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    if (!handle) return errno;
    struct stat status {};
    // Another file may have taken the name since this one was opened: only the locked file may be deleted.
    if (::fstat(handle.Get(), &status) != 0 || !S_ISREG(status.st_mode) || !Lock(handle) ||
        !IsUnder(handle, file))
        return EBUSY;
    return ::unlink(file.c_str()) != 0 ? errno : 0;
}

bool IsLocked(const std::filesystem::path& file) {
    const FileHandle handle(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
    // The shared lock is refused by the creator's lock only, not by another program that asks the same.
    return handle && ::flock(handle.Get(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

} // namespace nesk::platform::portable
