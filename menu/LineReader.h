#pragma once

#include "base/ByteSource.h"
#include "menu/LineScan.h"

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace nesk {

/// A reader that splits bytes into lines. A line ends with CR LF, LF or CR; the last line may have no line
/// end. Lines are views into a block of bytes that the reader owns.
class LineReader {
public:
    /// Longest line that is read, in bytes.
    static constexpr std::size_t MaxLineLength = std::size_t{1} << 27;

    /// A line without its line end, and without leading and trailing spaces and tabs.
    struct Line {
        const char* first;
        const char* last;   ///< one past the last character
        const char* equals; ///< the first "=" of the line; `last` when there is no "="
        bool isPlain;       ///< the line contains only printable ASCII
    };

    explicit LineReader(std::unique_ptr<ByteSource> source);

    const ByteSource& Source() const { return *m_source; }

    /// Gets the next line when the current block contains all of it. Lines returned before stay valid.
    bool NextInBlock(Line& line) {
        // Nearly all lines that this program writes end here: printable ASCII, then CR LF.
        const char* const first = LineScan::SkipBlanks(m_at);
        const char* last = LineScan::SkipPrintable(first);
        if (last[0] != '\r' || last[1] != '\n') return TakeAnyLine(line);
        m_at = last + 2;
        while (last > first && last[-1] == ' ')
            --last;
        line = {first, last, LineScan::FindEquals(first, last), true};
        return true;
    }

    /// Gets the value of the next line, without leading and trailing spaces and tabs. The current block must
    /// contain the whole line, and the line must consist of the given key, "=" directly after it, printable
    /// ASCII and CR LF. Otherwise the function returns false and does not consume the line.
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

    /// Skips the next line when it equals this text, which includes the line end. Spaces and tabs before the
    /// text are allowed. The current block must contain the whole line.
    bool SkipInBlock(const LineScan::LineStart& line) {
        const char* const first = LineScan::SkipBlanks(m_at);
        if (!LineScan::StartsWith(first, line)) return false;
        m_at = first + line.length;
        return true;
    }

    /// Gets the next line. When the current block does not contain all of it, the reader reads on, and lines
    /// returned before become invalid. Returns false at the end, and again on every further call. Raises the
    /// run-time error of a failed read, and OutOfMemory for a line longer than MaxLineLength.
    bool Next(Line& line);

private:
    static bool IsBlank(char c) { return c == ' ' || c == '\t'; }
    bool TakeAnyLine(Line& line);
    Line LineTo(const char* end) const;
    bool ReadMore();

    std::unique_ptr<ByteSource> m_source;
    std::vector<char> m_block; // zeros follow the bytes read
    const char* m_at;          // start of the bytes not yet returned
    const char* m_end;         // end of the bytes read
    const char* m_searched;    // there is no line end between m_at and this
    bool m_atEnd = false;
};

} // namespace nesk
