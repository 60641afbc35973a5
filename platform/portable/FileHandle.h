#pragma once

#include <unistd.h>
#include <utility>

namespace nesk::platform::portable {

/// Owner of a host file descriptor.
class FileHandle {
public:
    explicit FileHandle(int descriptor = -1) : m_descriptor(descriptor) {}
    FileHandle(FileHandle&& other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
    FileHandle& operator=(FileHandle&& other) noexcept {
        std::swap(m_descriptor, other.m_descriptor);
        return *this;
    }
    FileHandle(const FileHandle&) = delete;
    FileHandle& operator=(const FileHandle&) = delete;
    ~FileHandle() { Close(); }

    explicit operator bool() const { return m_descriptor >= 0; }
    int Get() const { return m_descriptor; }

    /// Closes the descriptor; returns 0, or -1 with errno set. Closing twice does nothing.
    int Close() {
        const int descriptor = std::exchange(m_descriptor, -1);
        return descriptor >= 0 ? ::close(descriptor) : 0;
    }

private:
    int m_descriptor;
};

} // namespace nesk::platform::portable
