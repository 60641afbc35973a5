#pragma once

#include "base/FileHash.h"
#include "journal/BackgroundRunner.h"
#include "platform/FileSystem.h"

#include <functional>
#include <future>
#include <memory>
#include <string>

namespace nesk {

/// The contents of a menu file as it was opened or saved, to be kept beside its unsaved changes. It is read
/// at once, in the background: when the first change is made, others may have written another version.
class BaseCopy {
public:
    /// Starts to read the file.
    /// @param hash   of the version that is wanted; other contents are not kept
    /// @param files  must live as long as something runs in the background
    void Read(const std::string& path, const FileHash& hash, platform::FileSystem& files,
              const BackgroundRunner& inBackground);

    /// Forgets the contents.
    void Clear() { m_bytes = {}; }

    /// A function that waits for the contents and returns them; null when there are none. It can be called in
    /// any thread, after this object is gone too.
    std::function<std::shared_ptr<const std::string>()> Bytes() const;

private:
    std::shared_future<std::shared_ptr<const std::string>> m_bytes;
};

} // namespace nesk
