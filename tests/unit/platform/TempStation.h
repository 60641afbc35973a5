#pragma once

#include "platform/portable/Station.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

namespace nesk {

/// A station folder of a test's own, in use for as long as the object lives.
class TempStation {
public:
    TempStation() {
        std::string pattern = (std::filesystem::temp_directory_path() / "nesk-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
        m_folder = pattern;
        std::filesystem::create_directories(m_folder / "drives" / "c");
        platform::portable::UseStation(m_folder);
    }

    ~TempStation() {
        // Whatever still looks for a station finds none, instead of the user's own.
        platform::portable::UseStation("/nonexistent/station");
        std::error_code error;
        std::filesystem::remove_all(m_folder, error);
    }

    TempStation(const TempStation&) = delete;
    TempStation& operator=(const TempStation&) = delete;

    const std::filesystem::path& Folder() const { return m_folder; }

    /// Writes a file, with the folders that it needs.
    /// @param windowsPath  for example "C:\\Data\\file.txt"
    void Write(const std::string& windowsPath, const std::string& bytes) const {
        const std::filesystem::path host = platform::portable::ToHostPath(windowsPath);
        std::filesystem::create_directories(host.parent_path());
        std::ofstream(host, std::ios::binary) << bytes;
    }

private:
    std::filesystem::path m_folder;
};

} // namespace nesk
