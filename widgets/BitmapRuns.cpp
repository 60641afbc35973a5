#include "widgets/BitmapRuns.h"

#include "widgets/PictureBytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace nesk {

namespace {

using PictureBytes::Byte;
using PictureBytes::Holds;
using PictureBytes::Little16;
using PictureBytes::Little32;

// The file header, and the shortest information header that can announce runs.
constexpr std::size_t FileHeader = 14;
constexpr std::size_t InfoHeader = 40;
constexpr std::int64_t Runs8 = 1;
constexpr std::int64_t Runs4 = 2;

// The second byte after a zero.
constexpr std::int64_t EndOfRow = 0;
constexpr std::int64_t EndOfPicture = 1;
constexpr std::int64_t Move = 2;

struct Runs {
    std::int64_t width = 0;
    std::int64_t height = 0;
    bool halfBytes = false; // two pixels are in one byte
    std::size_t at = 0;     // where they begin
};

// Bytes of a number of pixels that are not repeated. Their number is even.
std::size_t Length(const Runs& runs, std::int64_t pixels) {
    const auto count = static_cast<std::size_t>(pixels);
    const std::size_t length = runs.halfBytes ? (count + 1) / 2 : count;
    return length + length % 2;
}

// Takes the same steps as wx. A row ends only when it is full or after a mark, and the mark after a full row
// is not another row.
bool AreInside(std::string_view bytes, const Runs& runs) {
    std::size_t at = runs.at;
    for (std::int64_t row = 0; row < runs.height; ++row) {
        for (std::int64_t column = 0; column < runs.width;) {
            if (!Holds(bytes, at, 2)) return false;
            const std::int64_t count = Byte(bytes, at);
            const std::int64_t mark = Byte(bytes, at + 1);
            at += 2;
            if (count == 0 && mark == EndOfPicture) return true;
            if (count == 0 && mark == EndOfRow) {
                if (column != 0) column = runs.width;
            } else if (count == 0 && mark == Move) {
                if (!Holds(bytes, at, 2)) return false;
                column += Byte(bytes, at);
                row += Byte(bytes, at + 1);
                at += 2;
            } else if (row >= runs.height) {
                return false;
            } else if (count > 0) {
                column = std::min(column + count, runs.width);
            } else {
                if (runs.width - column < mark || !Holds(bytes, at, Length(runs, mark))) return false;
                column += mark;
                at += Length(runs, mark);
            }
        }
    }
    return true;
}

} // namespace

bool AreRunsInside(std::string_view bytes) {
    if (!bytes.starts_with("BM") || !Holds(bytes, FileHeader, InfoHeader)) return true;
    const std::int64_t header = Little32(bytes, FileHeader);
    constexpr std::int64_t oldHeader = 12;
    const std::int64_t kind = Little32(bytes, FileHeader + 16);
    if (header == oldHeader || (kind != Runs8 && kind != Runs4)) return true;
    Runs runs;
    runs.width = Little32(bytes, FileHeader + 4);
    const std::int64_t height = Little32(bytes, FileHeader + 8);
    // A negative height means that the rows run from top to bottom.
    runs.height = height > INT32_MAX ? (std::int64_t{1} << 32) - height : height;
    runs.halfBytes = kind == Runs4;
    const std::int64_t bits = Little16(bytes, FileHeader + 14);
    if (bits != (runs.halfBytes ? 4 : 8) || header < static_cast<std::int64_t>(InfoHeader)) return false;
    const std::int64_t used = Little32(bytes, FileHeader + 32);
    const std::int64_t colours = used != 0 ? used : std::int64_t{1} << bits;
    const std::int64_t place = Little32(bytes, 10);
    const std::int64_t afterColours = static_cast<std::int64_t>(FileHeader) + header + 4 * colours;
    // wx takes a place beyond 2 GB for a negative number and ignores it.
    const std::int64_t at = std::max(afterColours, place > INT32_MAX ? 0 : place);
    if (at >= static_cast<std::int64_t>(bytes.size())) return false;
    runs.at = static_cast<std::size_t>(at);
    return AreInside(bytes, runs);
}

} // namespace nesk
