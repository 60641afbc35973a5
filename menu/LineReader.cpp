#include "menu/LineReader.h"

#include "base/FileErrors.h"
#include "base/Messages.h"
#include "platform/ErrorCode.h"

#include <algorithm>
#include <cstring>

namespace nesk {

namespace {

constexpr std::size_t BlockSize = std::size_t{1} << 18;

} // namespace

LineReader::LineReader(const std::string& path, platform::FileSystem& files)
    : m_path(path)
    , m_block(BlockSize + LineScan::Padding)
    , m_at(m_block.data())
    , m_end(m_at)
    , m_searched(m_at) {
    const int result = files.OpenForReading(path, m_reader);
    if (result != platform::ErrorCode::Success) throw FileError(result, "BlockParser.Open", path);
}

bool LineReader::TakeAnyLine(Line& line) {
    const char* const end = LineScan::FindLineEnd(std::max(m_at, m_searched), m_end);
    m_searched = end;
    if (end == m_end) return false;
    const char* next = end + 1;
    if (*end == '\r') {
        // Whether a LF belongs to it is known only with the next block.
        if (next == m_end && !m_atEndOfFile) return false;
        if (next < m_end && *next == '\n') ++next;
    }
    line = LineTo(end);
    m_at = next;
    return true;
}

LineReader::Line LineReader::LineTo(const char* end) const {
    Line line{m_at, end, nullptr, false};
    while (line.first < end && IsBlank(*line.first))
        ++line.first;
    while (line.last > line.first && IsBlank(line.last[-1]))
        --line.last;
    line.equals = LineScan::FindEquals(line.first, line.last);
    return line;
}

bool LineReader::Next(Line& line) {
    while (!NextInBlock(line)) {
        if (ReadOn()) continue;
        // The last line, without an end.
        if (m_at == m_end) return false;
        line = LineTo(m_end);
        m_at = m_end;
        return true;
    }
    return true;
}

// Moves the line that is begun to the front of the block and fills the rest. False at the end of the file.
bool LineReader::ReadOn() {
    if (m_atEndOfFile) return false;
    const auto begun = static_cast<std::size_t>(m_end - m_at);
    const auto searched = static_cast<std::size_t>(std::max(m_at, m_searched) - m_at);
    if (begun > LongestLine) {
        m_at = m_end;
        throw NeskError(RuntimeError::OutOfMemory, "BlockParser.GetToken", Message::LineTooLong,
                        {std::to_string(LongestLine >> 20)});
    }
    std::memmove(m_block.data(), m_at, begun);
    if (begun + LineScan::Padding == m_block.size()) m_block.resize(begun * 2 + LineScan::Padding);
    m_at = m_block.data();
    m_end = m_at + begun;
    m_searched = m_at + searched;
    std::size_t count = 0;
    const int result =
        m_reader->Read(m_block.data() + begun, m_block.size() - LineScan::Padding - begun, count);
    if (result != platform::ErrorCode::Success) {
        // Reading can be tried again, behind the line that was cut.
        m_at = m_end = m_searched = m_block.data();
        std::memset(m_block.data(), 0, LineScan::Padding);
        throw FileError(result, "BlockParser.GetToken", m_path);
    }
    m_end += count;
    std::memset(m_block.data() + begun + count, 0, LineScan::Padding);
    m_atEndOfFile = count == 0;
    return true;
}

} // namespace nesk
