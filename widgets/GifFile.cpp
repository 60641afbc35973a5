#include "widgets/GifFile.h"

#include "widgets/GifCodes.h"

#include <algorithm>

namespace nesk {

namespace {

constexpr std::size_t HeaderLength = 13;
constexpr std::size_t DescriptionLength = 10;
constexpr char ExtensionMark = '\x21';
constexpr char GraphicsMark = '\xF9';
constexpr std::size_t GraphicsLength = 8;
constexpr char PictureMark = '\x2C';

std::size_t Byte(std::string_view bytes, std::size_t at) {
    return static_cast<unsigned char>(bytes[at]);
}

std::int64_t Number(std::string_view bytes, std::size_t at) {
    return static_cast<std::int64_t>(Byte(bytes, at) | Byte(bytes, at + 1) << 8);
}

// Length of the colour table after a byte of flags.
std::size_t ColoursLength(std::size_t flags) {
    return (flags & 0x80) != 0 ? std::size_t{6} << (flags & 7) : 0;
}

// Moves to the end of a chain of blocks. Each block begins with its length, and the last block has the length
// 0. Returns false when the file ends inside the chain.
bool SkipBlocks(std::string_view bytes, std::size_t& at) {
    while (at < bytes.size()) {
        const std::size_t length = Byte(bytes, at);
        at += 1 + length;
        if (length == 0) return true;
    }
    return false;
}

// True when an extension has the length that wx expects. wx skips a graphics extension by its usual length
// instead of reading the length.
bool HasDefinedLength(std::string_view bytes, std::size_t at) {
    if (at + 2 > bytes.size() || bytes[at + 1] != GraphicsMark) return true;
    return at + GraphicsLength <= bytes.size() && Byte(bytes, at + 2) == GraphicsLength - 4 &&
           Byte(bytes, at + GraphicsLength - 1) == 0;
}

} // namespace

std::optional<GifPicture> FirstGifPicture(std::string_view bytes) {
    if (!bytes.starts_with("GIF8") || bytes.size() < HeaderLength) return std::nullopt;
    std::size_t at = HeaderLength + ColoursLength(Byte(bytes, 10));
    while (at < bytes.size() && bytes[at] == ExtensionMark) {
        if (!HasDefinedLength(bytes, at)) return std::nullopt;
        at += 2;
        if (!SkipBlocks(bytes, at)) return std::nullopt;
    }
    if (at + DescriptionLength > bytes.size() || bytes[at] != PictureMark) return std::nullopt;
    const std::int64_t width = Number(bytes, at + 5);
    const std::int64_t height = Number(bytes, at + 7);
    if (width == 0 || height == 0) return std::nullopt;
    const std::size_t codes = at + DescriptionLength + ColoursLength(Byte(bytes, at + 9));
    const auto end = EndOfGifCodes(bytes, codes, width * height);
    if (!end) return std::nullopt;
    GifPicture picture;
    picture.size.width = std::max(Number(bytes, 6), width);
    picture.size.height = std::max(Number(bytes, 8), height);
    picture.end = *end;
    return picture;
}

} // namespace nesk
