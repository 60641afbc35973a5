#include "base/ByteSource.h"

#include "base/FileErrors.h"
#include "platform/ErrorCode.h"

#include <utility>

namespace nesk {

FileSource::FileSource(std::string path, platform::FileSystem& files) : m_path(std::move(path)) {
    const platform::ErrorCode result = files.OpenForReading(m_path, m_reader);
    if (result != platform::ErrorCode::Success) throw FileError(result, "FileSource.Open", m_path);
}

std::size_t FileSource::Read(char* buffer, std::size_t capacity) {
    std::size_t count = 0;
    const platform::ErrorCode result = m_reader->Read(buffer, capacity, count);
    if (result != platform::ErrorCode::Success) throw FileError(result, "FileSource.Read", m_path);
    return count;
}

std::size_t TextSource::Read(char* buffer, std::size_t capacity) {
    const std::size_t count = m_rest.copy(buffer, capacity);
    m_rest.remove_prefix(count);
    return count;
}

} // namespace nesk
