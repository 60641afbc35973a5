#include "widgets/UiPictureFile.h"

#include "widgets/BitmapRuns.h"
#include "widgets/GifFile.h"
#include "widgets/PictureFile.h"
#include "widgets/PictureHeader.h"
#include "widgets/PictureLimits.h"

#include <algorithm>
#include <optional>
#include <utility>

#include <wx/imagbmp.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>

namespace nesk {

namespace {

template <typename Handler>
void Register() {
    auto* handler = new Handler;
    if (wxImage::FindHandler(handler->GetName()) == nullptr)
        wxImage::AddHandler(handler);
    else
        delete handler;
}

// Registers the picture formats. wx registers BMP itself.
void RegisterFormats() {
    Register<wxPNGHandler>();
    Register<wxJPEGHandler>();
    Register<wxGIFHandler>();
    Register<wxICOHandler>();
}

bool IsAcceptable(const std::optional<PictureSize>& size) {
    return size && PictureLimits::Allow(*size);
}

// Removes everything after the first picture of a GIF file, as far as wx decodes it. A small GIF file may
// contain any number of large pictures, and wx decodes all of them to show one. wx also reads, and even
// writes, beyond its memory when a file is truncated or contains codes that have no meaning, and takes data
// after the last pixel for more pictures. Returns false for a GIF file without a complete and valid picture.
bool KeepFirstPicture(std::string& bytes) {
    if (!bytes.starts_with("GIF8")) return true;
    constexpr char EmptyBlock = '\0';
    constexpr char EndMark = '\x3B';
    const auto picture = FirstGifPicture(bytes);
    if (!picture) return false;
    bytes.resize(picture->end);
    bytes += EmptyBlock;
    bytes += EndMark;
    return true;
}

// Decodes a picture. The image is invalid if the file is not a picture, is damaged or exceeds the limits.
// @param limit  wx halves the sides until none is longer; 0 for the natural size
wxImage Decode(std::string bytes, int limit) {
    RegisterFormats();
    const std::optional<PictureSize> size = ReadPictureSize(bytes);
    // wx writes a run of pixels that is outside the picture beyond its memory.
    if (!IsAcceptable(size) || !KeepFirstPicture(bytes) || !AreRunsInside(bytes)) return {};
    // A damaged picture is simply not shown. A message for each one would disturb the user.
    const wxLogNull silent;
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    wxImage image;
    // wx would halve the shorter side of a very long picture until nothing is left.
    const auto [shorter, longer] = std::minmax(size->width, size->height);
    if (limit > 0 && shorter * limit >= 2 * longer) {
        image.SetOption(wxIMAGE_OPTION_MAX_WIDTH, limit);
        image.SetOption(wxIMAGE_OPTION_MAX_HEIGHT, limit);
    }
    image.LoadFile(stream);
    return image;
}

// A side of a picture in its natural size.
int NaturalSide(const wxImage& image, const wxString& option, int side) {
    const int natural = image.GetOptionInt(option);
    return natural > 0 ? natural : side;
}

} // namespace

wxImage LoadPicture(const std::string& path) {
    std::string bytes;
    // A file that cannot be read has no bytes, so it is no picture.
    static_cast<void>(ReadPictureFile(path, bytes));
    return Decode(std::move(bytes), 0);
}

PictureThumbnail DecodeThumbnail(std::string bytes, int side) {
    // wx decodes a JPEG picture in a smaller size at once, which is several times as fast.
    const wxImage image = Decode(std::move(bytes), 2 * side);
    if (!image.IsOk()) return {};
    const wxSize size = image.GetSize();
    PictureThumbnail thumbnail{image, NaturalSide(image, wxIMAGE_OPTION_ORIGINAL_WIDTH, size.x),
                               NaturalSide(image, wxIMAGE_OPTION_ORIGINAL_HEIGHT, size.y)};
    if (const int longest = std::max(size.x, size.y); longest > side)
        thumbnail.image = image.Scale(std::max(1, size.x * side / longest),
                                      std::max(1, size.y * side / longest), wxIMAGE_QUALITY_BOX_AVERAGE);
    return thumbnail;
}

} // namespace nesk
