#pragma once

#include "menu/LineScan.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nesk::testing {

/// A text in a buffer of exactly the size that LineScan needs, so that the sanitizers detect reads past it.
/// The zeros after the text end every search.
class PaddedText {
public:
    explicit PaddedText(std::string_view text)
        : m_bytes(text.size() + LineScan::Padding), m_size(text.size()) {
        std::copy(text.begin(), text.end(), m_bytes.begin());
    }

    const char* At(std::size_t offset) const { return m_bytes.data() + offset; }
    const char* End() const { return At(m_size); }
    std::size_t Size() const { return m_size; }

private:
    std::vector<char> m_bytes;
    std::size_t m_size;
};

/// Compares the functions that the reader uses with the scalar ones, starting at one offset of a text.
/// @return the name of the first function whose result differs; "" if all agree
inline std::string LineScanDifference(const PaddedText& text, std::size_t from) {
    using namespace LineScan;
    const char* const first = text.At(from);
    const char* const last = text.End();
    if (LineScan::SkipBlanks(first) != Scalar::SkipBlanks(first)) return "SkipBlanks";
    if (LineScan::SkipPrintable(first) != Scalar::SkipPrintable(first)) return "SkipPrintable";
    // Search up to the end of the text, and up to an earlier end after which more matches may follow.
    for (const char* const end : {last, first + (last - first) / 2}) {
        if (LineScan::FindEquals(first, end) != Scalar::FindEquals(first, end)) return "FindEquals";
        if (LineScan::FindLineEnd(first, end) != Scalar::FindLineEnd(first, end)) return "FindLineEnd";
    }
    const std::size_t most = std::min(MaxStartLength, text.Size() - from);
    for (std::size_t length = 0; length <= most; ++length) {
        if (LineScan::HasLowerCase(first, length) != Scalar::HasLowerCase(first, length))
            return "HasLowerCase";
        // Compare with the text at this offset, and with a copy whose last character differs.
        std::string start(first, length);
        for (int change = 0; change < 2; ++change) {
            const LineStart line(start, "");
            const bool same = Scalar::StartsWith(first, line);
            if (LineScan::StartsWith(first, line) != same) return "StartsWith";
            if (same != (change == 0 || length == 0)) return "Scalar::StartsWith";
            if (length > 0) start.back() = static_cast<char>(start.back() + 1);
        }
    }
    return "";
}

} // namespace nesk::testing
