#include "checking/FileFacts.h"

#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"
#include "widgets/PictureHeader.h"
#include "widgets/PictureLimits.h"

#include <algorithm>
#include <optional>

namespace nesk {

namespace {

using platform::ErrorCode;
using State = FileFacts::State;

// Enough for the header of nearly every picture. More is read only when the size is not there.
constexpr std::size_t FirstPortion = std::size_t{4} << 10;

State StateOf(ErrorCode code) {
    switch (code) {
    case ErrorCode::FileNotFound:
    case ErrorCode::PathNotFound:
    case ErrorCode::InvalidName:
    case ErrorCode::BadPathName:
    case ErrorCode::DirectoryName: return State::Missing;
    default: return State::Unreadable;
    }
}

State KindState(const std::string& path, bool isFolder, platform::FileSystem& files) {
    std::uint32_t attributes = 0;
    const ErrorCode code = files.Attributes(path, attributes);
    if (code != ErrorCode::Success) return StateOf(code);
    const bool found = (attributes & platform::FileAttribute::Directory) != 0;
    return found == isFolder ? State::Good : State::WrongKind;
}

// The state of a file that cannot be opened. A folder cannot be opened either.
State NotOpened(const std::string& path, ErrorCode code, platform::FileSystem& files) {
    const State state = StateOf(code);
    if (state == State::Missing) return state;
    return KindState(path, false, files) == State::WrongKind ? State::WrongKind : state;
}

State PictureState(const std::string& path, platform::FileSystem& files) {
    std::unique_ptr<platform::FileReader> reader;
    if (const ErrorCode code = files.OpenForReading(path, reader); code != ErrorCode::Success)
        return NotOpened(path, code, files);
    std::string bytes;
    for (std::size_t portion = FirstPortion;; portion *= 4) {
        const std::size_t before = bytes.size();
        bytes.resize(before + portion);
        std::size_t count = 0;
        const ErrorCode code = reader->Read(bytes.data() + before, portion, count);
        bytes.resize(before + count);
        if (code != ErrorCode::Success) return State::Unreadable;
        if (const std::optional<PictureSize> size = ReadPictureSize(bytes))
            return PictureLimits::Allow(*size) ? State::Good : State::TooLarge;
        if (count == 0) return State::NoPicture;
        if (bytes.size() > PictureLimits::LargestFile) return State::TooLarge;
    }
}

class Inspector final : public FileInspector {
public:
    FileFacts Look(const std::string& path, FileUse use) override {
        return LookAt(path, use, platform::StationFiles());
    }
};

} // namespace

std::shared_ptr<FileInspector> StationInspector() {
    return std::make_shared<Inspector>();
}

FileFacts LookAt(const std::string& path, FileUse use, platform::FileSystem& files) {
    switch (use) {
    case FileUse::Folder: return {KindState(path, true, files), ""};
    case FileUse::File: return {KindState(path, false, files), ""};
    case FileUse::Picture: return {PictureState(path, files), ""};
    case FileUse::Part: break;
    }
    std::string name = modUtilities::ReadIniValue(path, "Part", "Name");
    // A file with a name is there and was read, so no further question is needed.
    if (!name.empty()) return {State::Good, std::move(name)};
    std::unique_ptr<platform::FileReader> reader;
    const ErrorCode code = files.OpenForReading(path, reader);
    return {code == ErrorCode::Success ? State::Good : NotOpened(path, code, files), ""};
}

} // namespace nesk
