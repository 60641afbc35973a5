#include "menu/FileFingerprint.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"

#include <memory>
#include <vector>

namespace nesk {

FileFingerprint FileFingerprint::Of(const std::string& path) {
    FileFingerprint fingerprint;
    std::unique_ptr<platform::FileReader> reader;
    const int opened = platform::StationFiles().OpenForReading(path, reader);
    if (opened == platform::ErrorCode::FileNotFound || opened == platform::ErrorCode::PathNotFound)
        return fingerprint;
    fingerprint.m_state = opened == platform::ErrorCode::Success ? State::Readable : State::Unreadable;
    if (fingerprint.m_state == State::Unreadable) return fingerprint;
    std::vector<char> buffer(std::size_t{1} << 18);
    for (;;) {
        std::size_t count = 0;
        if (reader->Read(buffer.data(), buffer.size(), count) != platform::ErrorCode::Success) {
            fingerprint.m_state = State::Unreadable;
            return fingerprint;
        }
        if (count == 0) return fingerprint;
        fingerprint.Add({buffer.data(), count});
    }
}

// FNV-1a, which sees every byte and needs no library. It guards against accidents, not against forgery.
void FileFingerprint::Add(std::string_view bytes) {
    m_state = State::Readable;
    m_size += bytes.size();
    for (const char c : bytes) {
        m_hash ^= static_cast<unsigned char>(c);
        m_hash *= 1099511628211u;
    }
}

} // namespace nesk
