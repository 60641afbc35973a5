#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace nesk {

/// Tells whether a file still holds what it held before.
class FileHash {
public:
    /// The hash of a file's contents as they are now. A missing file has one of its own; so has one
    /// that cannot be read.
    static FileHash Of(const std::string& path, platform::FileSystem& files = platform::StationFiles());

    /// Adds bytes that the file holds.
    void Add(std::string_view bytes);

    /// False for the hash of a missing file.
    bool Exists() const { return m_state != State::Missing; }

    /// Result code (platform/ErrorCode.h) of what kept the file from being read; Success for a file that was
    /// read, and for a missing one.
    int Error() const { return m_error; }

    bool operator==(const FileHash&) const = default;

private:
    enum class State { Missing, Readable, Unreadable };

    State m_state = State::Missing;
    int m_error = platform::ErrorCode::Success;
    void AddWords(const char* words);

    std::uint64_t m_size = 0;
    // Four sums side by side, which a processor can work on at the same time.
    std::array<std::uint64_t, 4> m_hash{14695981039346656037u, 9650029242287828579u, 0x2545F4914F6CDD1D,
                                        0xD6E8FEB86659FD93};
    // Bytes that are not in the sums yet; zeros behind them.
    std::array<char, 32> m_rest{};
};

} // namespace nesk
