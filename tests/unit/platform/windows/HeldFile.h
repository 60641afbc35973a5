#pragma once

#include "platform/windows/Handle.h"

#include <string>

namespace nesk::testing {

/// A file that another process has open for reading, for as long as the object lives.
class HeldFile {
public:
    /// @param sharing  what others may do meanwhile: "read", "write", "delete", with blanks between; "" for
    /// nothing
    explicit HeldFile(const std::string& windowsPath, const std::string& sharing = "");
    ~HeldFile();
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    platform::windows::Handle m_process;
    platform::windows::Handle m_input;
};

} // namespace nesk::testing
