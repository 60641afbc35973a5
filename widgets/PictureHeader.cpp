#include "widgets/PictureHeader.h"

#include "widgets/GifFile.h"
#include "widgets/PictureBytes.h"

#include <algorithm>
#include <cstddef>

namespace nesk {

namespace {

using PictureBytes::Byte;
using PictureBytes::Holds;
using PictureBytes::Little16;
using PictureBytes::Little32;

using Bytes = std::string_view;

std::int64_t Big16(Bytes bytes, std::size_t at) {
    return Byte(bytes, at) << 8 | Byte(bytes, at + 1);
}

std::int64_t Big32(Bytes bytes, std::size_t at) {
    return Big16(bytes, at) << 16 | Big16(bytes, at + 2);
}

// A negative height means that the rows run from top to bottom.
std::int64_t Magnitude32(std::int64_t value) {
    return value > 0x7FFFFFFF ? 0x100000000 - value : value;
}

constexpr Bytes PngSignature = "\x89PNG\r\n\x1A\n";

std::optional<PictureSize> PngSize(Bytes bytes) {
    if (!bytes.starts_with(PngSignature) || !Holds(bytes, 16, 8)) return std::nullopt;
    return PictureSize{Big32(bytes, 16), Big32(bytes, 20), 1};
}

// Length of the oldest form of a bitmap's information header. It has 16-bit sizes.
constexpr std::int64_t OldHeader = 12;

// The information header of a BMP file, and of a picture in an ICO file. wx takes the sizes for signed
// numbers, and no picture has a negative width.
std::optional<PictureSize> BitmapHeaderSize(Bytes bytes, std::size_t at) {
    if (!Holds(bytes, at, 12)) return std::nullopt;
    const bool old = Little32(bytes, at) == OldHeader;
    const std::int64_t width = old ? Little16(bytes, at + 4) : Little32(bytes, at + 4);
    if (width > (old ? INT16_MAX : INT32_MAX)) return std::nullopt;
    if (old) return PictureSize{width, Little16(bytes, at + 6), 1};
    return PictureSize{width, Magnitude32(Little32(bytes, at + 8)), 1};
}

std::optional<PictureSize> GifSize(Bytes bytes) {
    if (!bytes.starts_with("GIF8") || !Holds(bytes, 6, 4)) return std::nullopt;
    if (const auto picture = FirstGifPicture(bytes)) return picture->size;
    return PictureSize{Little16(bytes, 6), Little16(bytes, 8), 1};
}

// Number of places where a scan may begin. These bytes cannot occur in the data of a scan; a thumbnail in the
// header may add one or two.
std::int64_t JpegScans(Bytes bytes) {
    std::int64_t count = 0;
    for (std::size_t at = bytes.find("\xFF\xDA"); at != Bytes::npos; at = bytes.find("\xFF\xDA", at + 2))
        ++count;
    return std::max<std::int64_t>(count, 1);
}

// Reads the segments of a JPEG file up to the segment that begins the frame.
std::optional<PictureSize> JpegSize(Bytes bytes) {
    if (!bytes.starts_with("\xFF\xD8")) return std::nullopt;
    std::size_t at = 2;
    while (Holds(bytes, at, 4)) {
        if (Byte(bytes, at) != 0xFF) return std::nullopt;
        const std::int64_t marker = Byte(bytes, at + 1);
        if (marker == 0xFF) {
            ++at;
            continue;
        }
        // These markers have no length, and no program writes them before the frame. A decoder would continue
        // at another position than this code.
        if (marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD9)) return std::nullopt;
        const bool frame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (frame) {
            if (!Holds(bytes, at, 9)) return std::nullopt;
            return PictureSize{Big16(bytes, at + 7), Big16(bytes, at + 5), JpegScans(bytes)};
        }
        at += 2 + static_cast<std::size_t>(Big16(bytes, at + 2));
    }
    return std::nullopt;
}

// True for a bitmap whose pixels are compressed to runs.
bool HasRuns(Bytes bytes, std::size_t at) {
    if (!Holds(bytes, at, 20) || Little32(bytes, at) == OldHeader) return false;
    const std::int64_t kind = Little32(bytes, at + 16);
    return kind == 1 || kind == 2;
}

std::optional<PictureSize> IconSize(Bytes bytes) {
    if (!bytes.starts_with(Bytes("\0\0\1\0", 4)) || !Holds(bytes, 4, 2)) return std::nullopt;
    PictureSize largest;
    const auto count = static_cast<std::size_t>(Little16(bytes, 4));
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = 6 + 16 * i;
        if (!Holds(bytes, entry, 16)) return std::nullopt;
        const auto data = static_cast<std::size_t>(Little32(bytes, entry + 12));
        if (data >= bytes.size()) return std::nullopt;
        const bool png = bytes.substr(data).starts_with(PngSignature);
        const auto size = png ? PngSize(bytes.substr(data)) : BitmapHeaderSize(bytes, data);
        if (!size) return std::nullopt;
        // The height of a bitmap in an icon includes the rows of its mask, so a height below 2 means no
        // picture.
        if (!png && size->height < 2) return std::nullopt;
        // No program writes runs into an icon. wx would decode them, and nothing has checked them.
        if (!png && HasRuns(bytes, data)) return std::nullopt;
        largest.width = std::max(largest.width, size->width);
        largest.height = std::max(largest.height, size->height);
    }
    return count > 0 ? std::optional(largest) : std::nullopt;
}

} // namespace

std::optional<PictureSize> ReadPictureSize(std::string_view bytes) {
    if (bytes.starts_with("BM")) return BitmapHeaderSize(bytes, 14);
    if (const auto size = PngSize(bytes)) return size;
    if (const auto size = GifSize(bytes)) return size;
    if (const auto size = JpegSize(bytes)) return size;
    return IconSize(bytes);
}

} // namespace nesk
