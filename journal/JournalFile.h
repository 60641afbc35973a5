#pragma once

#include "journal/BackgroundRunner.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace nesk {

/// The file of a journal, with the copy of the menu file beside it. All functions are for one thread. What
/// takes long is done in the background, and nothing waits for it.
class JournalFile {
public:
    /// Creates the file and writes its first bytes. AlreadyExists when it exists.
    /// @param files  must live as long as a function runs in the background
    /// @param file   receives the file; unchanged on failure
    static platform::ErrorCode Create(const std::string& path, std::string_view bytes,
                                      platform::FileSystem& files, BackgroundRunner inBackground,
                                      std::unique_ptr<JournalFile>& file);

    /// Closes the file and leaves it where it is.
    ~JournalFile();
    JournalFile(const JournalFile&) = delete;
    JournalFile& operator=(const JournalFile&) = delete;

    const std::string& Path() const;

    /// Appends bytes, which survive the end of the program from then on. After a failure, part of them is in
    /// the file, and nothing may be appended any more.
    platform::ErrorCode Append(std::string_view bytes);

    /// Starts to flush to the disk what was written, unless nothing was written or the former flush has not
    /// ended.
    /// @return the result of the former flush
    platform::ErrorCode FlushInBackground();

    /// Starts to write the menu file to which the changes apply beside the journal.
    /// @param bytes  waits for its contents and returns them, null when there are none; called in the
    /// background
    void KeepBase(const std::function<std::shared_ptr<const std::string>()>& bytes);

    /// Removes the file and the copy, now or when nothing runs in the background any more.
    /// @param last  bytes to append first, which show that the file is not needed even if it cannot be
    /// removed
    void Remove(std::string_view last);

private:
    struct Shared;
    JournalFile(std::shared_ptr<Shared> shared, BackgroundRunner inBackground);
    void Start(std::function<void(Shared&)> work);

    std::shared_ptr<Shared> m_shared;
    BackgroundRunner m_inBackground;
    bool m_isFlushed = false; // nothing was written since the last flush began
    bool m_isWhole = true;    // no write has failed
};

} // namespace nesk
