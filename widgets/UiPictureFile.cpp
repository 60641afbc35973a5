#include "widgets/UiPictureFile.h"

#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "widgets/BitmapRuns.h"
#include "widgets/GifFile.h"
#include "widgets/PictureHeader.h"

#include <memory>
#include <optional>

#include <wx/imagbmp.h>
#include <wx/imaggif.h>
#include <wx/imagjpeg.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>

namespace nesk {

namespace {

// A button picture is a few hundred pixels wide. A larger picture than this would only waste memory.
constexpr std::size_t LargestFile = std::size_t{64} << 20;
constexpr std::int64_t MostPixels = 50'000'000;
// No program writes more than a dozen scans into a JPEG picture, but a small file may contain millions.
constexpr std::int64_t MostWork = 20 * MostPixels;

// The bytes of a file; empty when the file cannot be read or is too large.
std::string ReadFile(const std::string& path) {
    std::unique_ptr<platform::FileReader> reader;
    if (platform::StationFiles().OpenForReading(path, reader) != platform::ErrorCode::Success) return "";
    std::string bytes;
    for (;;) {
        const std::size_t size = bytes.size();
        constexpr std::size_t step = std::size_t{1} << 16;
        bytes.resize(size + step);
        std::size_t count = 0;
        const platform::ErrorCode result = reader->Read(bytes.data() + size, step, count);
        bytes.resize(size + count);
        if (result != platform::ErrorCode::Success || bytes.size() > LargestFile) return "";
        if (count == 0) return bytes;
    }
}

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
    return size && size->width > 0 && size->height > 0 && size->width <= MostPixels / size->height &&
           size->passes <= MostWork / (size->width * size->height);
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

} // namespace

wxImage LoadPicture(const std::string& path) {
    RegisterFormats();
    std::string bytes = ReadFile(path);
    // wx writes a run of pixels that is outside the picture beyond its memory.
    if (!IsAcceptable(ReadPictureSize(bytes)) || !KeepFirstPicture(bytes) || !AreRunsInside(bytes)) return {};
    // A damaged picture is simply not shown. A message for each one would disturb the user.
    const wxLogNull silent;
    wxMemoryInputStream stream(bytes.data(), bytes.size());
    return wxImage(stream);
}

} // namespace nesk
