#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

// Reads numbers from the bytes of a picture file. The bytes must be there.

namespace nesk::PictureBytes {

/// Returns whether `bytes` has `count` bytes from a position on.
inline bool Holds(std::string_view bytes, std::size_t at, std::size_t count) {
    return at <= bytes.size() && bytes.size() - at >= count;
}

inline std::int64_t Byte(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

inline std::int64_t Little16(std::string_view bytes, std::size_t at) {
    return Byte(bytes, at) | Byte(bytes, at + 1) << 8;
}

inline std::int64_t Little32(std::string_view bytes, std::size_t at) {
    return Little16(bytes, at) | Little16(bytes, at + 2) << 16;
}

} // namespace nesk::PictureBytes
