#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace nesk {

/// A hash of a file's contents, used to detect changes by other programs.
class FileHash {
public:
    /// The hash of a file's current contents. A missing file and a file that cannot be read each have their
    /// own value.
    static FileHash Of(const std::string& path, platform::FileSystem& files = platform::StationFiles());

    /// Adds bytes of the file's contents.
    void Add(std::string_view bytes);

    /// False for the hash of a missing file.
    bool Exists() const { return m_state != State::Missing; }

    /// The result code of the failed open or read. Success for a file that was read and for a missing file.
    platform::ErrorCode Error() const { return m_error; }

    /// What Text returns for a missing file, and for one that could not be read.
    static constexpr std::string_view MissingText = "missing";
    static constexpr std::string_view UnreadableText = "unreadable";

    /// The hash as a text without spaces, to be stored in a file.
    std::string Text() const;

    bool operator==(const FileHash&) const = default;

private:
    enum class State { Missing, Readable, Unreadable };

    State m_state = State::Missing;
    platform::ErrorCode m_error = platform::ErrorCode::Success;
    void AddWords(const char* words);

    std::uint64_t m_size = 0;
    // Four independent sums, which a processor can compute in parallel.
    std::array<std::uint64_t, 4> m_hash{14695981039346656037u, 9650029242287828579u, 0x2545F4914F6CDD1D,
                                        0xD6E8FEB86659FD93};
    // Bytes that are not in the sums yet, padded with zeros.
    std::array<char, 32> m_rest{};
};

} // namespace nesk
