#include "partedit/PartSearch.h"

#include "platform/BackgroundThread.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <utility>

namespace nesk {

namespace {

// Longer than the search of one folder usually takes.
constexpr std::chrono::milliseconds LongestWait{200};

} // namespace

// What both threads use.
struct PartSearch::Shared {
    std::atomic<bool> isStopped = false;
    std::atomic<std::size_t> foldersRead = 0;
    std::atomic<std::size_t> parts = 0;

    std::mutex mutex;
    std::condition_variable ended;
    bool hasEnded = false;            // guarded by the mutex
    std::optional<FoundParts> result; // likewise
};

PartSearch::PartSearch(const std::string& folder) : m_shared(std::make_shared<Shared>()) {
    if (!platform::RunInBackground([folder, shared = m_shared] { Run(folder, *shared); })) {
        // The system has no room for another thread.
        m_shared->result.emplace().isComplete = false;
        m_shared->hasEnded = true;
    }
}

PartSearch::~PartSearch() {
    Stop();
    std::unique_lock lock(m_shared->mutex);
    m_shared->ended.wait_for(lock, LongestWait, [this] { return m_shared->hasEnded; });
}

void PartSearch::Run(const std::string& folder, Shared& shared) {
    FoundParts found;
    try {
        found = FindParts(folder, [&](const PartSearchProgress& progress) {
            shared.foldersRead = progress.foldersRead;
            shared.parts = progress.parts;
            return !shared.isStopped;
        });
    } catch (const std::exception&) {
        found = {};
        found.isComplete = false; // there was not enough memory for it
    }
    const std::lock_guard lock(shared.mutex);
    shared.result = std::move(found);
    shared.hasEnded = true;
    shared.ended.notify_all();
}

void PartSearch::Stop() {
    m_shared->isStopped = true;
}

PartSearchProgress PartSearch::Progress() const {
    return {m_shared->foldersRead, m_shared->parts};
}

std::optional<FoundParts> PartSearch::Take() {
    const std::lock_guard lock(m_shared->mutex);
    return std::exchange(m_shared->result, std::nullopt);
}

} // namespace nesk
