#pragma once

#include "checking/FileFacts.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <string>

namespace nesk::testing {

/// A file service whose answers a test decides: it can block, fail and come back.
class FakeInspector final : public FileInspector {
public:
    FileFacts Look(const std::string& path, FileUse /*use*/) override {
        std::unique_lock lock(m_mutex);
        ++m_looks;
        ++m_blocked;
        m_changed.notify_all();
        m_changed.wait(lock, [&] { return !m_blocking.contains(path.substr(0, 2)); });
        --m_blocked;
        const auto found = m_facts.find(path);
        return found != m_facts.end() ? found->second : FileFacts{FileFacts::State::Good, "Part"};
    }

    /// Sets the answer for a path; all others are good.
    void Set(const std::string& path, FileFacts facts) {
        const std::lock_guard lock(m_mutex);
        m_facts[path] = std::move(facts);
    }

    /// Lets a drive, for example "D:", not answer until it comes back.
    void Block(const std::string& drive) {
        const std::lock_guard lock(m_mutex);
        m_blocking.insert(drive);
    }
    void ComeBack(const std::string& drive) {
        const std::lock_guard lock(m_mutex);
        m_blocking.erase(drive);
        m_changed.notify_all();
    }

    /// Waits until a worker is blocked. Returns false when none is within ten seconds.
    bool WaitUntilBlocked() {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_blocked > 0; });
    }

    /// Number of looks so far.
    int Looks() {
        const std::lock_guard lock(m_mutex);
        return m_looks;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, FileFacts> m_facts;
    std::set<std::string> m_blocking;
    int m_looks = 0;
    int m_blocked = 0;
};

} // namespace nesk::testing
