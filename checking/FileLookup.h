#pragma once

#include "checking/FileFacts.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace nesk {

/// Looks files up without holding up the caller. Workers, one a drive or share, are told paths and answer
/// facts; a server that does not answer holds up its own worker alone. A worker has several threads. All
/// functions are for one thread.
class FileLookup {
public:
    /// Number of a path with its use. Numbers count from 0 and stay the same until Clear.
    using Index = std::uint32_t;
    static constexpr Index NoIndex = UINT32_MAX;

    /// What answers brought.
    struct News {
        bool isFirst = false;   ///< facts of paths of which nothing was known
        bool isChanged = false; ///< facts that differ from those before
    };

    /// @param inspector  what the workers ask
    /// @param wake       called by a worker when there are answers to take; must be safe in any thread
    explicit FileLookup(std::shared_ptr<FileInspector> inspector, std::function<void()> wake = {});

    /// Ends the workers. Waits for those that are in the middle of a quick answer; one that waits for a
    /// server is left alone and ends when the server has answered.
    ~FileLookup();
    FileLookup(const FileLookup&) = delete;
    FileLookup& operator=(const FileLookup&) = delete;

    /// The number of a path with its use. A new one is looked up, but maybe not before Begin is called.
    Index IndexOf(std::string_view path, FileUse use);

    /// Gives the workers what they have not been told yet.
    void Begin();

    /// What was found at a path; null while it is not known.
    const FileFacts* Facts(Index index) const {
        return m_paths[index].isKnown ? &m_paths[index].facts : nullptr;
    }

    /// The same for a path with its use; null also when it was never asked for.
    const FileFacts* Known(std::string_view path, FileUse use) const;

    /// The path of a number.
    std::string_view PathOf(Index index) const;

    /// Takes the answers of the workers.
    News TakeAnswers();

    /// Number of paths that are being looked up.
    std::size_t Waiting() const { return m_waiting; }

    /// Looks all paths up again. What is known stays until the answer comes.
    void Refresh();

    /// Forgets all paths.
    void Clear();

private:
    struct Path {
        const std::string* key; // of m_indexes
        FileUse use;
        bool isKnown = false;
        bool isWaiting = false;
        FileFacts facts;
    };
    struct Shared;
    struct Worker;

    static std::string KeyOf(std::string_view path, FileUse use);
    void Ask(Index index);
    void Give(const std::shared_ptr<Worker>& worker);
    std::shared_ptr<Worker> WorkerFor(const std::string& path);

    std::shared_ptr<Shared> m_shared;
    std::unordered_map<std::string, std::shared_ptr<Worker>> m_workers;
    std::vector<Path> m_paths;
    std::unordered_map<std::string, Index> m_indexes; // of the path and its use
    std::size_t m_waiting = 0;
    std::uint32_t m_generation = 0; // answers to questions from before Clear are not taken
};

} // namespace nesk
