#include "base/FileHash.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <memory>
#include <vector>

namespace nesk {

FileHash FileHash::Of(const std::string& path, platform::FileSystem& files) {
    FileHash hash;
    std::unique_ptr<platform::FileReader> reader;
    const platform::ErrorCode opened = files.OpenForReading(path, reader);
    if (opened == platform::ErrorCode::FileNotFound || opened == platform::ErrorCode::PathNotFound)
        return hash;
    hash.m_state = opened == platform::ErrorCode::Success ? State::Readable : State::Unreadable;
    hash.m_error = opened;
    if (hash.m_state == State::Unreadable) return hash;
    std::vector<char> buffer(std::size_t{1} << 18);
    for (;;) {
        std::size_t count = 0;
        hash.m_error = reader->Read(buffer.data(), buffer.size(), count);
        if (hash.m_error != platform::ErrorCode::Success) {
            hash.m_state = State::Unreadable;
            return hash;
        }
        if (count == 0) return hash;
        hash.Add({buffer.data(), count});
    }
}

// Similar to FNV-1a, but eight bytes at a time: every byte affects the hash. It detects accidental changes,
// not forgery.
void FileHash::AddWords(const char* words) {
    for (std::uint64_t& hash : m_hash) {
        std::uint64_t word = 0;
        std::memcpy(&word, words, sizeof word);
        words += sizeof word;
        // The upper half of a product depends on all input bits, the lower half does not. The rotation swaps
        // them.
        hash = std::rotl((hash ^ word) * 0x9E3779B97F4A7C15, 32);
    }
}

std::string FileHash::Text() const {
    if (m_state == State::Missing) return std::string(MissingText);
    if (m_state == State::Unreadable) return std::string(UnreadableText);
    FileHash whole = *this;
    whole.AddWords(m_rest.data());
    std::string text;
    for (const std::uint64_t number :
         {m_size, whole.m_hash[0], whole.m_hash[1], whole.m_hash[2], whole.m_hash[3]}) {
        for (int shift = 60; shift >= 0; shift -= 4)
            text += "0123456789abcdef"[number >> shift & 15U];
    }
    return text;
}

void FileHash::Add(std::string_view bytes) {
    m_state = State::Readable;
    if (bytes.empty()) return;
    const auto pending = static_cast<std::size_t>(m_size % m_rest.size());
    m_size += bytes.size();
    if (pending > 0) {
        const std::size_t count = std::min(bytes.size(), m_rest.size() - pending);
        std::memcpy(m_rest.data() + pending, bytes.data(), count);
        bytes.remove_prefix(count);
        if (pending + count < m_rest.size()) return;
        AddWords(m_rest.data());
        m_rest.fill(0);
    }
    for (; bytes.size() >= m_rest.size(); bytes.remove_prefix(m_rest.size()))
        AddWords(bytes.data());
    std::copy(bytes.begin(), bytes.end(), m_rest.begin());
}

} // namespace nesk
