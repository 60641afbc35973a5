#pragma once

#include "platform/windows/Handle.h"

#include <string>

namespace nesk::testing {

/// A file that another process keeps open for reading while the object lives.
class HeldFile {
public:
    /// @param sharing  what other programs may do while it is open: "read", "write", "delete", separated by
    /// spaces; "" for nothing
    explicit HeldFile(const std::string& windowsPath, const std::string& sharing = "");
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    platform::windows::Handle m_process;
    platform::windows::Handle m_input;
};

} // namespace nesk::testing
