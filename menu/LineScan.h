#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <string_view>
#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// The inner loops of reading: what every byte of a menu file goes through.
namespace nesk::LineScan {

/// Room that must be readable behind the last byte looked at.
constexpr std::size_t Padding = 64;

/// Longest text that HasLowerCase and StartsWith can look at.
constexpr std::size_t LongestStart = 16;

/// What a line may begin with, ready to be compared with.
struct LineStart {
    std::array<char, LongestStart> bytes{}; // zeros behind them
    std::size_t length = 0;

    /// Two texts one behind the other, of LongestStart characters at most.
    constexpr LineStart(std::string_view text, std::string_view behind)
        : length(text.size() + behind.size()) {
        std::copy(behind.begin(), behind.end(), std::copy(text.begin(), text.end(), bytes.begin()));
    }
};

/// A key and the "=" behind it.
struct Key : LineStart {
    explicit constexpr Key(std::string_view name) : LineStart(name, "=") {}

    constexpr std::string_view Name() const { return {bytes.data(), length - 1}; }
};

#if defined(__SSE2__) || defined(_M_X64)

namespace Detail {

inline __m128i Load(const char* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

inline std::uint32_t Bits(__m128i lanes) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(lanes));
}

// The characters at `at` that are printable ASCII. Bytes from 80 are negative here, so that one comparison
// leaves them out with the control characters.
inline std::uint64_t Printable(const char* at) {
    return Bits(_mm_cmpgt_epi8(Load(at), _mm_set1_epi8(' ' - 1)));
}

} // namespace Detail

/// The first character at or behind `first` that is no blank and no tab. There must be one.
inline const char* SkipBlanks(const char* first) {
    for (;; first += 16) {
        const __m128i bytes = Detail::Load(first);
        const __m128i blanks = _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8(' ')),
                                            _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\t')));
        if (const std::uint32_t others = ~Detail::Bits(blanks) & 0xFFFF; others != 0)
            return first + std::countr_zero(others);
    }
}

/// The first character at or behind `first` that is not printable ASCII. There must be one.
inline const char* SkipPrintable(const char* first) {
    // Nearly all lines are shorter than this step: a loop that ends now here, now there, costs more than the
    // characters that are looked at in vain.
    for (;; first += 64) {
        const std::uint64_t printable = Detail::Printable(first) | Detail::Printable(first + 16) << 16 |
                                        Detail::Printable(first + 32) << 32 |
                                        Detail::Printable(first + 48) << 48;
        if (const std::uint64_t special = ~printable; special != 0) return first + std::countr_zero(special);
    }
}

/// Whether these are the characters at `at`.
inline bool StartsWith(const char* at, const LineStart& start) {
    const std::uint32_t same =
        Detail::Bits(_mm_cmpeq_epi8(Detail::Load(at), Detail::Load(start.bytes.data())));
    return (~same & ((std::uint32_t{1} << start.length) - 1)) == 0;
}

/// The first "=" of a text; `last` when it has none.
inline const char* FindEquals(const char* first, const char* last) {
    for (; first < last; first += 16)
        if (const std::uint32_t found = Detail::Bits(_mm_cmpeq_epi8(Detail::Load(first), _mm_set1_epi8('=')));
            found != 0)
            return std::min(first + std::countr_zero(found), last);
    return last;
}

/// The first CR or LF of a text; `last` when it has none.
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

/// Whether a text, of LongestStart characters at most, has a small letter.
inline bool HasLowerCase(const char* first, std::size_t length) {
    const __m128i bytes = Detail::Load(first);
    const std::uint32_t small = Detail::Bits(_mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8('a' - 1)),
                                                           _mm_cmplt_epi8(bytes, _mm_set1_epi8('z' + 1))));
    return (small & ((std::uint32_t{1} << length) - 1)) != 0;
}

#else

inline const char* SkipBlanks(const char* first) {
    while (*first == ' ' || *first == '\t')
        ++first;
    return first;
}

inline const char* SkipPrintable(const char* first) {
    while (static_cast<signed char>(*first) >= ' ')
        ++first;
    return first;
}

inline bool StartsWith(const char* at, const LineStart& start) {
    return std::equal(at, at + start.length, start.bytes.begin());
}

inline const char* FindEquals(const char* first, const char* last) {
    return std::find(first, last, '=');
}

inline const char* FindLineEnd(const char* first, const char* last) {
    return std::find_if(first, last, [](char c) { return c == '\r' || c == '\n'; });
}

inline bool HasLowerCase(const char* first, std::size_t length) {
    return std::any_of(first, first + length, [](char c) { return c >= 'a' && c <= 'z'; });
}

#endif

} // namespace nesk::LineScan
