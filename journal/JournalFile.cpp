#include "journal/JournalFile.h"

#include "journal/JournalPlaces.h"

#include <mutex>
#include <tuple>
#include <utility>

namespace nesk {

using platform::ErrorCode;

// What the background shares with the owner. It stays as long as something runs there.
struct JournalFile::Shared {
    Shared(platform::FileSystem& fileSystem, std::string filePath, std::unique_ptr<platform::FileWriter> open)
        : files(fileSystem), path(std::move(filePath)), writer(std::move(open)) {}

    platform::FileSystem& files;
    const std::string path;
    std::unique_ptr<platform::FileWriter> writer;

    std::mutex mutex; // for what follows
    int atWork = 0;   // number of functions that run in the background
    bool isFlushing = false;
    bool isRemoved = false;
    bool hasBase = false;
    ErrorCode flushed = ErrorCode::Success;

    // Nothing is at work, so this is the only user. A file that cannot be removed contains the end of the
    // journal, and a later start of the program removes it.
    void RemoveFiles() {
        std::ignore = writer->Close();
        std::ignore = files.RemoveFile(path);
        if (hasBase) std::ignore = files.RemoveFile(JournalPlaces::BaseOf(path));
        // The file is held up to here, so that no other program takes it for the journal of a dead one.
        writer.reset();
    }
};

JournalFile::JournalFile(std::shared_ptr<Shared> shared, BackgroundRunner inBackground)
    : m_shared(std::move(shared)), m_inBackground(std::move(inBackground)) {}

JournalFile::~JournalFile() = default;

ErrorCode JournalFile::Create(const std::string& path, std::string_view bytes, platform::FileSystem& files,
                              BackgroundRunner inBackground, std::unique_ptr<JournalFile>& file) {
    std::unique_ptr<platform::FileWriter> writer;
    if (const ErrorCode result = files.CreateNew(path, writer); result != ErrorCode::Success) return result;
    // Whoever may see the menu may see that it is being changed, and by whom.
    files.ApplyDefaultRights(path);
    std::unique_ptr<JournalFile> made(
        new JournalFile(std::make_shared<Shared>(files, path, std::move(writer)), std::move(inBackground)));
    if (const ErrorCode result = made->Append(bytes); result != ErrorCode::Success) {
        made->Remove({});
        return result;
    }
    file = std::move(made);
    return ErrorCode::Success;
}

const std::string& JournalFile::Path() const {
    return m_shared->path;
}

ErrorCode JournalFile::Append(std::string_view bytes) {
    const ErrorCode result = m_shared->writer->Write(bytes);
    m_isWhole = m_isWhole && result == ErrorCode::Success;
    m_isFlushed = false;
    return result;
}

// Runs a function in the background. If the journal is to be removed meanwhile, the same thread does it
// afterwards.
void JournalFile::Start(std::function<void(Shared&)> work) {
    {
        const std::lock_guard lock(m_shared->mutex);
        ++m_shared->atWork;
    }
    const auto end = [](Shared& shared) {
        const std::lock_guard lock(shared.mutex);
        if (--shared.atWork == 0 && shared.isRemoved) shared.RemoveFiles();
    };
    const bool isStarted = m_inBackground([shared = m_shared, work = std::move(work), end] {
        work(*shared);
        end(*shared);
    });
    if (isStarted) return;
    // The system has no thread left now. The next flush tries again.
    m_isFlushed = false;
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->isFlushing = false;
    }
    end(*m_shared);
}

ErrorCode JournalFile::FlushInBackground() {
    {
        const std::lock_guard lock(m_shared->mutex);
        if (m_shared->flushed != ErrorCode::Success) return m_shared->flushed;
        if (m_isFlushed || m_shared->isFlushing) return ErrorCode::Success;
        m_shared->isFlushing = true;
    }
    m_isFlushed = true;
    Start([](Shared& shared) {
        const ErrorCode result = shared.writer->Flush();
        const std::lock_guard lock(shared.mutex);
        shared.flushed = result;
        shared.isFlushing = false;
    });
    return ErrorCode::Success;
}

void JournalFile::KeepBase(const std::function<std::shared_ptr<const std::string>()>& bytes) {
    {
        const std::lock_guard lock(m_shared->mutex);
        m_shared->hasBase = true;
    }
    // Without the copy, the changes cannot be merged with those of others; they are restored all the same.
    Start([bytes](Shared& shared) {
        const std::shared_ptr<const std::string> base = bytes();
        if (!base) return;
        const std::string path = JournalPlaces::BaseOf(shared.path);
        std::ignore = shared.files.RemoveFile(path);
        std::unique_ptr<platform::FileWriter> writer;
        if (shared.files.CreateNew(path, writer) != ErrorCode::Success) return;
        shared.files.ApplyDefaultRights(path);
        if (writer->Write(*base) == ErrorCode::Success) std::ignore = writer->Flush();
        std::ignore = writer->Close();
    });
}

void JournalFile::Remove(std::string_view last) {
    if (m_isWhole && !last.empty()) std::ignore = Append(last);
    const std::lock_guard lock(m_shared->mutex);
    m_shared->isRemoved = true;
    if (m_shared->atWork == 0) m_shared->RemoveFiles();
}

} // namespace nesk
