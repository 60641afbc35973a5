#pragma once

#include "platform/FileStamp.h"
#include "widgets/PictureReader.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include <wx/bitmap.h>
#include <wx/gdicmn.h>
#include <wx/image.h>

namespace nesk {

/// Small pictures for many buttons. Files are read by workers and decoded in slices of idle time; what was
/// not used for longest is dropped when there are too many.
class UiThumbnails {
public:
    /// @param side       longest side of a kept picture, in pixels
    /// @param mostBytes  how much memory the kept pictures may use; those that are wanted are always kept
    UiThumbnails(std::shared_ptr<PictureFiles> files, int side,
                 std::size_t mostBytes = std::size_t{48} << 20);

    enum class State { Waiting, Shown, Missing };

    /// Whether there is a picture for a path. Missing means that the file cannot be read, or is no picture
    /// that the program shows.
    State StateOf(const std::string& path) const;

    /// A picture in the size in which it is drawn; an empty bitmap if it cannot be shown. It stays valid
    /// until the next call of a function that is not const.
    /// @param box    room for the picture, in pixels; a larger picture is shrunk in proportion
    /// @param scale  size in which a picture that fits is drawn, in relation to its natural one
    const wxBitmap& Bitmap(const std::string& path, wxSize box, double scale);

    /// Sets which pictures are needed now, the most important first. Those that are not there are read.
    void Want(std::vector<std::string> paths);

    /// Looks whether the files of the wanted pictures have changed, unless that was done in the last two
    /// seconds.
    void CheckFiles();

    /// Takes and decodes what was read, for about the time of the slice.
    /// @return true when a picture or a state has changed
    bool Work(std::chrono::milliseconds slice);

    /// Called by Work when a file that was read before has changed, is missing or is back.
    std::function<void()> onFileChanged;

    /// True while something is being read or waits to be decoded.
    bool IsBusy() const { return m_reader.IsBusy(); }

    /// Memory of the kept pictures, in bytes.
    std::size_t Bytes() const { return m_bytes; }

private:
    struct Picture {
        State state = State::Waiting;
        std::optional<platform::FileStamp> known; // of the file that was read
        wxImage image;
        wxSize natural;
        wxBitmap bitmap; // the image as it was last drawn
        std::uint64_t used = 0;
    };

    bool Take(PictureReader::Answer&& answer);
    void Keep(Picture& picture, wxImage image);
    void DropUnused();
    static std::size_t BytesOf(const wxImage& image);
    std::vector<PictureReader::Request> Requests(bool all) const;

    PictureReader m_reader;
    int m_side;
    std::size_t m_mostBytes;
    std::unordered_map<std::string, Picture> m_pictures;
    std::vector<std::string> m_wanted;
    std::unordered_set<std::string> m_isWanted;
    std::size_t m_bytes = 0;
    std::uint64_t m_uses = 0;
    std::chrono::steady_clock::time_point m_checked;
};

} // namespace nesk
