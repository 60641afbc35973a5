#include "widgets/PictureFile.h"

#include "widgets/PictureLimits.h"

#include <memory>

namespace nesk {

using platform::ErrorCode;

namespace {

ErrorCode ReadAll(const std::string& path, std::string& bytes, platform::FileSystem& files) {
    std::unique_ptr<platform::FileReader> reader;
    if (const ErrorCode result = files.OpenForReading(path, reader); result != ErrorCode::Success)
        return result;
    for (;;) {
        const std::size_t size = bytes.size();
        constexpr std::size_t step = std::size_t{1} << 16;
        bytes.resize(size + step);
        std::size_t count = 0;
        const ErrorCode result = reader->Read(bytes.data() + size, step, count);
        bytes.resize(size + count);
        if (result != ErrorCode::Success) return result;
        if (bytes.size() > PictureLimits::LargestFile) return ErrorCode::MoreData;
        if (count == 0) return ErrorCode::Success;
    }
}

} // namespace

ErrorCode ReadPictureFile(const std::string& path, std::string& bytes, platform::FileSystem& files) {
    bytes.clear();
    const ErrorCode result = ReadAll(path, bytes, files);
    if (result != ErrorCode::Success) bytes = {};
    return result;
}

} // namespace nesk
