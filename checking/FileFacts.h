#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>

namespace nesk {

/// What a path of the menu is used for, and so what has to be known about it.
enum class FileUse {
    File,    ///< a file, for example a help file
    Folder,  ///< a folder, for example that of a history
    Picture, ///< a picture
    Part     ///< the partinfo.ini of a part program
};

/// What was found at a path.
struct FileFacts {
    enum class State {
        Missing,
        Unreadable,
        NoPicture, ///< not a picture of a known format, or a damaged one
        TooLarge,  ///< a picture that is too large to be shown
        WrongKind, ///< a folder instead of a file, or a file instead of a folder
        Good
    };
    State state = State::Missing;
    std::string partName; ///< the name in a partinfo.ini; "" for none and for other uses

    bool operator==(const FileFacts&) const = default;
};

/// Looks at files. A call may take as long as the system needs: 30 seconds for a server that does not answer.
/// May be called by several threads at once.
class FileInspector {
public:
    virtual ~FileInspector() = default;

    virtual FileFacts Look(const std::string& path, FileUse use) = 0;
};

/// Looks at the files of the station.
std::shared_ptr<FileInspector> StationInspector();

/// Looks at files through a file system. Names of parts are read from the station's own files.
FileFacts LookAt(const std::string& path, FileUse use, platform::FileSystem& files);

} // namespace nesk
