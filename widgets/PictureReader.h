#pragma once

#include "platform/ErrorCode.h"
#include "platform/FileStamp.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace nesk {

/// Where a PictureReader gets files. Its functions are called by several threads at once, and a call may take
/// as long as the system needs: 30 seconds for a server that does not answer.
class PictureFiles {
public:
    virtual ~PictureFiles() = default;

    virtual platform::ErrorCode Stamp(const std::string& path, platform::FileStamp& stamp) = 0;
    virtual platform::ErrorCode Read(const std::string& path, std::string& bytes) = 0;
};

/// The files of the station.
std::shared_ptr<PictureFiles> StationPictureFiles();

/// Reads picture files without holding up the caller. Workers, one a drive or share, are told paths and
/// answer bytes; a server that does not answer holds up its own worker alone. All functions are for one
/// thread.
class PictureReader {
public:
    struct Request {
        std::string path;
        /// Stamp of the file when it was last read; its bytes are read only if the stamp has changed.
        std::optional<platform::FileStamp> known{};
    };

    struct Answer {
        std::string path;
        platform::ErrorCode result = platform::ErrorCode::Success;
        platform::FileStamp stamp;
        bool isSame = false; ///< the file has the known stamp and was not read
        std::string bytes;
    };

    explicit PictureReader(std::shared_ptr<PictureFiles> files);

    /// Tells the workers to end, and does not wait for them: one may be waiting for a server.
    ~PictureReader();
    PictureReader(const PictureReader&) = delete;
    PictureReader& operator=(const PictureReader&) = delete;

    /// Sets what is to be read now, the most important first. Requests from before that no worker has begun
    /// are dropped. A path that is being read, or whose answer was not taken yet, is not asked for again.
    void Want(const std::vector<Request>& requests);

    /// The next answer. Nothing if no answer is waiting.
    std::optional<Answer> Take();

    /// True while there is something to read or to take.
    bool IsBusy() const;

private:
    struct Shared;
    std::shared_ptr<Shared> m_shared;
};

} // namespace nesk
