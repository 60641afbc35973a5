#pragma once

#include "widgets/PictureReader.h"

#include <chrono>
#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace nesk::testing {

/// Picture files in memory, whose drives can block, fail and come back.
class FakePictureFiles final : public PictureFiles {
public:
    platform::ErrorCode Stamp(const std::string& path, platform::FileStamp& stamp) override {
        std::unique_lock lock(m_mutex);
        WaitFor(lock, path);
        ++m_stamps;
        const auto found = m_files.find(path);
        if (found == m_files.end()) return platform::ErrorCode::FileNotFound;
        stamp = {found->second.bytes.size(), found->second.time};
        return platform::ErrorCode::Success;
    }

    platform::ErrorCode Read(const std::string& path, std::string& bytes) override {
        std::unique_lock lock(m_mutex);
        WaitFor(lock, path);
        m_read.push_back(path);
        m_changed.notify_all();
        if (m_throws) throw std::bad_alloc();
        const auto found = m_files.find(path);
        if (found == m_files.end()) return platform::ErrorCode::FileNotFound;
        bytes = found->second.bytes;
        return platform::ErrorCode::Success;
    }

    void Write(const std::string& path, const std::string& bytes) {
        const std::lock_guard lock(m_mutex);
        m_files[path] = {bytes, ++m_time};
    }
    void Remove(const std::string& path) {
        const std::lock_guard lock(m_mutex);
        m_files.erase(path);
    }
    void Throw(bool throws) {
        const std::lock_guard lock(m_mutex);
        m_throws = throws;
    }

    /// Lets paths that begin so not answer until they come back.
    void Block(const std::string& root) {
        const std::lock_guard lock(m_mutex);
        m_blocking.insert(root);
    }
    void ComeBack() {
        const std::lock_guard lock(m_mutex);
        m_blocking.clear();
        m_changed.notify_all();
    }

    /// Waits until so many threads are blocked. Returns false when that does not happen in ten seconds.
    [[nodiscard]] bool WaitUntilBlocked(int threads = 1) {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_blocked >= threads; });
    }
    [[nodiscard]] bool WaitUntilNoneIsBlocked() {
        std::unique_lock lock(m_mutex);
        return m_changed.wait_for(lock, std::chrono::seconds(10), [&] { return m_blocked == 0; });
    }

    int Blocked() {
        const std::lock_guard lock(m_mutex);
        return m_blocked;
    }
    int Stamps() {
        const std::lock_guard lock(m_mutex);
        return m_stamps;
    }
    /// The paths that were read, in their order.
    std::vector<std::string> PathsRead() {
        const std::lock_guard lock(m_mutex);
        return m_read;
    }

private:
    struct File {
        std::string bytes;
        std::int64_t time;
    };

    void WaitFor(std::unique_lock<std::mutex>& lock, const std::string& path) {
        const auto isBlocked = [&] {
            for (const std::string& root : m_blocking)
                if (path.starts_with(root)) return true;
            return false;
        };
        ++m_blocked;
        m_changed.notify_all();
        m_changed.wait(lock, [&] { return !isBlocked(); });
        --m_blocked;
        m_changed.notify_all();
    }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, File> m_files;
    std::set<std::string> m_blocking;
    std::vector<std::string> m_read;
    std::int64_t m_time = 0;
    int m_blocked = 0;
    int m_stamps = 0;
    bool m_throws = false;
};

} // namespace nesk::testing
