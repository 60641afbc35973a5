#include "menu/LineReader.h"

#include "base/Messages.h"
#include "base/NeskError.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace nesk {

namespace {

constexpr std::size_t BlockSize = std::size_t{1} << 18;

} // namespace

LineReader::LineReader(std::unique_ptr<ByteSource> source)
    : m_source(std::move(source))
    , m_block(BlockSize + LineScan::Padding)
    , m_at(m_block.data())
    , m_end(m_at)
    , m_searched(m_at) {}

bool LineReader::TakeAnyLine(Line& line) {
    const char* const end = LineScan::FindLineEnd(std::max(m_at, m_searched), m_end);
    m_searched = end;
    if (end == m_end) return false;
    const char* next = end + 1;
    if (*end == '\r') {
        // Only the next block shows whether an LF follows.
        if (next == m_end && !m_atEnd) return false;
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
        if (ReadMore()) continue;
        // The last line may have no line end.
        if (m_at == m_end) return false;
        line = LineTo(m_end);
        m_at = m_end;
        return true;
    }
    return true;
}

// Moves the incomplete line to the front of the block and fills the rest of the block. Returns false at the
// end of the file.
bool LineReader::ReadMore() {
    if (m_atEnd) return false;
    const auto unread = static_cast<std::size_t>(m_end - m_at);
    const auto searched = static_cast<std::size_t>(std::max(m_at, m_searched) - m_at);
    if (unread > MaxLineLength) {
        m_at = m_end;
        throw NeskError(RuntimeError::OutOfMemory, "BlockParser.GetToken", Message::LineTooLong,
                        {std::to_string(MaxLineLength >> 20)});
    }
    std::memmove(m_block.data(), m_at, unread);
    if (unread + LineScan::Padding == m_block.size()) m_block.resize(unread * 2 + LineScan::Padding);
    m_at = m_block.data();
    m_end = m_at + unread;
    m_searched = m_at + searched;
    std::size_t count = 0;
    try {
        count = m_source->Read(m_block.data() + unread, m_block.size() - LineScan::Padding - unread);
    } catch (const NeskError&) {
        // Reading can be retried. It then continues after the incomplete line, which is dropped.
        m_at = m_end = m_searched = m_block.data();
        std::memset(m_block.data(), 0, LineScan::Padding);
        throw;
    }
    m_end += count;
    std::memset(m_block.data() + unread + count, 0, LineScan::Padding);
    m_atEnd = count == 0;
    return true;
}

} // namespace nesk
