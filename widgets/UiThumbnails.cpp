#include "widgets/UiThumbnails.h"

#include "widgets/UiPictureFile.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nesk {

using platform::ErrorCode;

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds CheckInterval{2};

} // namespace

UiThumbnails::UiThumbnails(std::shared_ptr<PictureFiles> files, int side, std::size_t mostBytes)
    : m_reader(std::move(files)), m_side(side), m_mostBytes(mostBytes), m_checked(Clock::now()) {}

UiThumbnails::State UiThumbnails::StateOf(const std::string& path) const {
    const auto found = m_pictures.find(path);
    return found != m_pictures.end() ? found->second.state : State::Waiting;
}

std::size_t UiThumbnails::BytesOf(const wxImage& image) {
    if (!image.IsOk()) return 0;
    const auto pixels =
        static_cast<std::size_t>(image.GetWidth()) * static_cast<std::size_t>(image.GetHeight());
    // The image, and about as much for the bitmap.
    return pixels * (image.HasAlpha() ? 8 : 7);
}

const wxBitmap& UiThumbnails::Bitmap(const std::string& path, wxSize box, double scale) {
    static const wxBitmap none;
    const auto found = m_pictures.find(path);
    if (found == m_pictures.end() || found->second.state != State::Shown) return none;
    Picture& picture = found->second;
    picture.used = ++m_uses;
    const double factor = std::min({scale, static_cast<double>(box.x) / picture.natural.x,
                                    static_cast<double>(box.y) / picture.natural.y});
    const auto scaled = [factor](int length) {
        return std::max(1, static_cast<int>(std::lround(length * factor)));
    };
    const wxSize size(scaled(picture.natural.x), scaled(picture.natural.y));
    if (!picture.bitmap.IsOk() || picture.bitmap.GetSize() != size)
        picture.bitmap = wxBitmap(picture.image.Scale(size.x, size.y, wxIMAGE_QUALITY_BILINEAR));
    return picture.bitmap;
}

// What is to be read: the wanted pictures that are not there, or all wanted ones that may have changed.
std::vector<PictureReader::Request> UiThumbnails::Requests(bool all) const {
    std::vector<PictureReader::Request> requests;
    for (const std::string& path : m_wanted) {
        const auto found = m_pictures.find(path);
        const bool isThere = found != m_pictures.end() && found->second.state != State::Waiting;
        if (!isThere)
            requests.push_back({path});
        else if (all)
            requests.push_back({path, found->second.known});
    }
    return requests;
}

void UiThumbnails::Want(std::vector<std::string> paths) {
    m_wanted = std::move(paths);
    m_isWanted = {m_wanted.begin(), m_wanted.end()};
    m_reader.Want(Requests(false));
}

void UiThumbnails::CheckFiles() {
    const Clock::time_point now = Clock::now();
    if (now - m_checked < CheckInterval) return;
    m_checked = now;
    m_reader.Want(Requests(true));
}

bool UiThumbnails::Work(std::chrono::milliseconds slice) {
    const Clock::time_point end = Clock::now() + slice;
    bool isChanged = false;
    do {
        std::optional<PictureReader::Answer> answer = m_reader.Take();
        if (!answer) break;
        isChanged |= Take(std::move(*answer));
    } while (Clock::now() < end);
    DropUnused();
    return isChanged;
}

bool UiThumbnails::Take(PictureReader::Answer&& answer) {
    if (answer.isSame) return false;
    Picture& picture = m_pictures[answer.path];
    const State before = picture.state;
    picture.used = ++m_uses;
    picture.known.reset();
    if (answer.result == ErrorCode::Success) {
        picture.known = answer.stamp;
        PictureThumbnail thumbnail = DecodeThumbnail(std::move(answer.bytes), m_side);
        picture.natural = wxSize(thumbnail.width, thumbnail.height);
        Keep(picture, std::move(thumbnail.image));
    } else {
        // What is too large need not be read again before it has changed.
        if (answer.result == ErrorCode::MoreData) picture.known = answer.stamp;
        Keep(picture, {});
    }
    const bool isChanged = picture.state == State::Shown || picture.state != before;
    if (isChanged && before != State::Waiting && onFileChanged) onFileChanged();
    return isChanged;
}

void UiThumbnails::Keep(Picture& picture, wxImage image) {
    m_bytes += BytesOf(image);
    m_bytes -= BytesOf(picture.image);
    picture.state = image.IsOk() ? State::Shown : State::Missing;
    picture.image = std::move(image);
    picture.bitmap = wxBitmap();
}

void UiThumbnails::DropUnused() {
    if (m_bytes <= m_mostBytes) return;
    std::vector<std::pair<std::uint64_t, std::string>> unused;
    for (const auto& [path, picture] : m_pictures)
        if (!m_isWanted.contains(path)) unused.emplace_back(picture.used, path);
    std::sort(unused.begin(), unused.end());
    for (const auto& [used, path] : unused) {
        if (m_bytes <= m_mostBytes) return;
        const auto found = m_pictures.find(path);
        m_bytes -= BytesOf(found->second.image);
        m_pictures.erase(found);
    }
}

} // namespace nesk
