#pragma once

#include "base/ByteSource.h"
#include "menu/LineScan.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

/// Reads bytes line by line. A line ends with CR LF, LF or CR; the last one may have no end. Lines
/// are views into a block of bytes, which the reader holds.
class LineReader {
public:
    /// Longest line that is read, in bytes.
    static constexpr std::size_t LongestLine = std::size_t{1} << 27;

    /// A line without its end, and without the blanks and tabs around it.
    struct Line {
        const char* first;
        const char* last;   ///< behind the line
        const char* equals; ///< the first "=" of the line; `last` when it has none
        bool isPlain;       ///< it is printable ASCII alone
    };

    explicit LineReader(std::unique_ptr<ByteSource> source);

    const ByteSource& Source() const { return *m_source; }

    /// The next line, when the block at hand holds all of it. Lines given before stay valid.
    bool NextInBlock(Line& line) {
        // The lines that this program writes nearly all end here: printable ASCII, then CR LF.
        const char* const first = LineScan::SkipBlanks(m_at);
        const char* last = LineScan::SkipPrintable(first);
        if (last[0] != '\r' || last[1] != '\n') return TakeAnyLine(line);
        m_at = last + 2;
        while (last > first && last[-1] == ' ')
            --last;
        line = {first, last, LineScan::FindEquals(first, last), true};
        return true;
    }

    /// The value of the next line, without the blanks and tabs around it, when the block at hand holds all of
    /// that line and it is the given key, directly behind it "=", printable ASCII and CR LF. Otherwise no
    /// line is taken.
    bool NextValueInBlock(const LineScan::Key& key, std::string_view& value) {
        const char* first = LineScan::SkipBlanks(m_at);
        if (!LineScan::StartsWith(first, key)) return false;
        first += key.length;
        const char* last = LineScan::SkipPrintable(first);
        if (last[0] != '\r' || last[1] != '\n') return false;
        m_at = last + 2;
        while (first < last && *first == ' ')
            ++first;
        while (first < last && last[-1] == ' ')
            --last;
        value = {first, static_cast<std::size_t>(last - first)};
        return true;
    }

    /// Takes the next line when it is this text, which includes its end, behind blanks and tabs alone, and
    /// the block at hand holds all of it.
    bool SkipInBlock(const LineScan::LineStart& line) {
        const char* const first = LineScan::SkipBlanks(m_at);
        if (!LineScan::StartsWith(first, line)) return false;
        m_at = first + line.length;
        return true;
    }

    /// The next line; reads on when the block at hand does not hold all of it, and lines given before are no
    /// longer valid then. False at the end, and then on every further call. Raises the run-time
    /// error of a failed read and OutOfMemory for a line that is longer than LongestLine.
    bool Next(Line& line);

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
    bool TakeAnyLine(Line& line);
    Line LineTo(const char* end) const;
    bool ReadOn();

    std::unique_ptr<ByteSource> m_source;
    std::vector<char> m_block; // zeros follow what is read
    const char* m_at;          // what is not given yet
    const char* m_end;         // of what is read
    const char* m_searched;    // up to here, and at or behind m_at, there is no line end
    bool m_atEnd = false;
};

} // namespace nesk
