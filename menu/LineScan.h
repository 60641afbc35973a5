#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

/// The inner loops of reading: every byte of a menu file goes through them. `Scalar` looks at one character
/// at a time and runs on every processor. `Sse2` looks at 16 characters and is used where the compiler may
/// use SSE2, which is the case in all builds for x86. Tests and a fuzz target compare the two.
namespace nesk::LineScan {

/// Number of bytes that must be readable after the last byte of a text.
constexpr std::size_t Padding = 64;

/// Longest text that HasLowerCase and StartsWith can handle.
constexpr std::size_t MaxStartLength = 16;

/// A text that a line may begin with, stored so that 16 bytes can be compared at once.
struct LineStart {
    std::array<char, MaxStartLength> bytes{}; // followed by zeros
    std::size_t length = 0;

    /// Joins two texts. Together they have at most MaxStartLength characters.
    constexpr LineStart(std::string_view text, std::string_view end) : length(text.size() + end.size()) {
        std::copy(end.begin(), end.end(), std::copy(text.begin(), text.end(), bytes.begin()));
    }
};

/// A key and the "=" after it.
struct Key : LineStart {
    explicit constexpr Key(std::string_view name) : LineStart(name, "=") {}

    constexpr std::string_view Name() const { return {bytes.data(), length - 1}; }
};

namespace Scalar {

/// The first character at or after `first` that is not a space or a tab. There must be such a character.
inline const char* SkipBlanks(const char* first) {
    while (*first == ' ' || *first == '\t')
        ++first;
    return first;
}

/// The first character at or after `first` that is not printable ASCII. There must be such a character.
inline const char* SkipPrintable(const char* first) {
    while (static_cast<signed char>(*first) >= ' ')
        ++first;
    return first;
}

/// True when the text at `at` begins with `start`.
inline bool StartsWith(const char* at, const LineStart& start) {
    return std::equal(at, at + start.length, start.bytes.begin());
}

/// The first "=" of a text; `last` when there is no "=".
inline const char* FindEquals(const char* first, const char* last) {
    return std::find(first, last, '=');
}

/// The first CR or LF of a text; `last` when there is no line end.
inline const char* FindLineEnd(const char* first, const char* last) {
    return std::find_if(first, last, [](char c) { return c == '\r' || c == '\n'; });
}

/// True when a text of at most MaxStartLength characters contains a lower-case letter.
inline bool HasLowerCase(const char* first, std::size_t length) {
    return std::any_of(first, first + length, [](char c) { return c >= 'a' && c <= 'z'; });
}

} // namespace Scalar

#ifdef __SSE2__

/// The functions of Scalar, 16 characters at a time.
namespace Sse2 {

namespace Detail {

inline __m128i Load(const char* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

inline std::uint32_t Bits(__m128i lanes) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(lanes));
}

// One bit for each of the 16 characters, set when the character is printable ASCII. Bytes from 0x80 are
// negative here, so one comparison excludes them and the control characters.
inline std::uint64_t Printable(const char* at) {
    return Bits(_mm_cmpgt_epi8(Load(at), _mm_set1_epi8(' ' - 1)));
}

} // namespace Detail

inline const char* SkipBlanks(const char* first) {
    for (;; first += 16) {
        const __m128i bytes = Detail::Load(first);
        const __m128i blanks = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')),
                                            _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t')));
        if (const std::uint32_t others = ~Detail::Bits(blanks) & 0xFFFF; others != 0)
            return first + std::countr_zero(others);
    }
}

inline const char* SkipPrintable(const char* first) {
    // Nearly all lines are shorter than 64 bytes. Steps of 16 would be slower: the number of steps varies
    // from line to line, and the processor mispredicts the end of the loop.
    for (;; first += 64) {
        const std::uint64_t printable = Detail::Printable(first) | Detail::Printable(first + 16) << 16 |
                                        Detail::Printable(first + 32) << 32 |
                                        Detail::Printable(first + 48) << 48;
        if (const std::uint64_t special = ~printable; special != 0) return first + std::countr_zero(special);
    }
}

inline bool StartsWith(const char* at, const LineStart& start) {
    const std::uint32_t same =
        Detail::Bits(_mm_cmpeq_epi8(Detail::Load(at), Detail::Load(start.bytes.data())));
    return (~same & ((std::uint32_t{1} << start.length) - 1)) == 0;
}

inline const char* FindEquals(const char* first, const char* last) {
    for (; first < last; first += 16)
        if (const std::uint32_t found = Detail::Bits(_mm_cmpeq_epi8(Detail::Load(first), _mm_set1_epi8('=')));
            found != 0)
            return std::min(first + std::countr_zero(found), last);
    return last;
}

inline const char* FindLineEnd(const char* first, const char* last) {
    for (; first < last; first += 16) {
        const __m128i bytes = Detail::Load(first);
        const __m128i ends = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')),
                                          _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')));
        if (const std::uint32_t found = Detail::Bits(ends); found != 0)
            return std::min(first + std::countr_zero(found), last);
    }
    return last;
}

inline bool HasLowerCase(const char* first, std::size_t length) {
    const __m128i bytes = Detail::Load(first);
    const std::uint32_t small = Detail::Bits(_mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8('a' - 1)),
                                                           _mm_cmplt_epi8(bytes, _mm_set1_epi8('z' + 1))));
    return (small & ((std::uint32_t{1} << length) - 1)) != 0;
}

} // namespace Sse2

using namespace Sse2;

#else

using namespace Scalar;

#endif

} // namespace nesk::LineScan
