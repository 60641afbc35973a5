#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#endif

/// The inner loops of reading: what every byte of a menu file goes through.
namespace nesk::LineScan {

/// Room that must be readable behind the last byte looked at.
constexpr std::size_t Padding = 16;

/// A run of printable ASCII characters.
struct Run {
    const char* end;    ///< the first character that is none
    const char* equals; ///< the first "=" of the run; its end when it has none
};

#if defined(__SSE2__) || defined(_M_X64)

namespace Detail {

inline __m128i Load(const char* at) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
}

inline std::uint32_t Bits(__m128i lanes) {
    return static_cast<std::uint32_t>(_mm_movemask_epi8(lanes));
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

/// The run that begins at `first`. A character that is not printable must follow.
inline Run FindRun(const char* first) {
    const __m128i firstPrintable = _mm_set1_epi8(' ');
    const __m128i equalsSign = _mm_set1_epi8('=');
    const char* equals = nullptr;
    for (const char* at = first;; at += 16) {
        const __m128i bytes = Detail::Load(at);
        // Bytes from 80 are negative here, so one comparison finds them and the control characters.
        const std::uint32_t special = Detail::Bits(_mm_cmpgt_epi8(firstPrintable, bytes));
        if (equals == nullptr)
            if (const std::uint32_t found = Detail::Bits(_mm_cmpeq_epi8(bytes, equalsSign)); found != 0)
                equals = at + std::countr_zero(found);
        if (special == 0) continue;
        const char* const end = at + std::countr_zero(special);
        return {end, equals != nullptr && equals < end ? equals : end};
    }
}

/// Whether one of the first `length` characters, of which sixteen are looked at, is a small letter.
inline bool HasLowerCase(const char* first, std::size_t length) {
    const __m128i bytes = Detail::Load(first);
    const std::uint32_t small = Detail::Bits(_mm_and_si128(_mm_cmpgt_epi8(bytes, _mm_set1_epi8('a' - 1)),
                                                           _mm_cmplt_epi8(bytes, _mm_set1_epi8('z' + 1))));
    return (small & ((std::uint64_t{1} << length) - 1)) != 0;
}

#else

inline const char* SkipBlanks(const char* first) {
    while (*first == ' ' || *first == '\t')
        ++first;
    return first;
}

inline Run FindRun(const char* first) {
    const char* equals = nullptr;
    const char* end = first;
    for (; static_cast<signed char>(*end) >= ' '; ++end)
        if (equals == nullptr && *end == '=') equals = end;
    return {end, equals != nullptr ? equals : end};
}

inline bool HasLowerCase(const char* first, std::size_t length) {
    return std::any_of(first, first + length, [](char c) { return c >= 'a' && c <= 'z'; });
}

#endif

} // namespace nesk::LineScan
