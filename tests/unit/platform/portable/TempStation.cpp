#include "unit/platform/TempStation.h"

#include "platform/portable/Station.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace nesk {

namespace fs = std::filesystem;

TempStation::TempStation() {
    std::string pattern = (fs::temp_directory_path() / "nesk-test-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    m_folder = pattern;
    AddDrive('c');
    platform::portable::UseStation(m_folder);
}

TempStation::~TempStation() {
    Leave();
    std::error_code error;
    fs::remove_all(m_folder, error);
}

fs::path TempStation::Host(const std::string& windowsPath) {
    return platform::portable::ToHostPath(windowsPath);
}

void TempStation::AddDrive(char letter) {
    fs::create_directories(m_folder / "drives" / std::string(1, static_cast<char>(letter | 0x20)));
}

void TempStation::Write(const std::string& windowsPath, const std::string& bytes) {
    const fs::path host = Host(windowsPath);
    fs::create_directories(host.parent_path());
    std::ofstream(host, std::ios::binary) << bytes;
}

void TempStation::Leave() {
    // Code that still looks for a station must not find the user's own.
    platform::portable::UseStation("/nonexistent/station");
}

void TempStation::BreakSettings() {
    fs::create_directory(m_folder / "registry.db");
}

} // namespace nesk
