#include "menu/LineReader.h"

#include "platform/ErrorCode.h"
#include "shell/FileErrors.h"

#include <algorithm>

namespace nesk {

namespace {

constexpr std::size_t BufferSize = std::size_t{1} << 18;

bool IsLineEnd(char c) {
    return c == '\n' || c == '\r';
}

} // namespace

LineReader::LineReader(const std::string& path) : m_path(path), m_buffer(BufferSize) {
    const int result = platform::StationFiles().OpenForReading(path, m_reader);
    if (result != platform::ErrorCode::Success) throw FileError(result, "BlockParser.Open", path);
}

bool LineReader::Fill() {
    m_at = m_end = 0;
    const int result = m_reader->Read(m_buffer.data(), m_buffer.size(), m_end);
    if (result != platform::ErrorCode::Success) throw FileError(result, "BlockParser.GetToken", m_path);
    return m_end > 0;
}

bool LineReader::ReadLine(std::string& line) {
    line.clear();
    if (m_at == m_end && !Fill()) return false;
    for (;;) {
        const auto first = m_buffer.begin() + static_cast<std::ptrdiff_t>(m_at);
        const auto last = m_buffer.begin() + static_cast<std::ptrdiff_t>(m_end);
        const auto end = std::find_if(first, last, IsLineEnd);
        line.append(first, end);
        m_at = static_cast<std::size_t>(end - m_buffer.begin());
        if (m_at < m_end) break;
        if (!Fill()) return true;
    }
    const bool carriageReturn = m_buffer[m_at] == '\r';
    ++m_at;
    // The LF of a CR LF may be the first byte of the next block.
    if (carriageReturn && (m_at < m_end || Fill()) && m_buffer[m_at] == '\n') ++m_at;
    return true;
}

} // namespace nesk
