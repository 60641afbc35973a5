#pragma once

#include <filesystem>
#include <string>

namespace nesk {

/// A temporary station for one test, in use while the object lives: empty settings and an empty drive C:.
///
/// On Windows the station is the machine itself, so tests run there only in a throw-away Wine prefix: without
/// the variable NESKMANAGER_TEST_PREFIX the constructor throws. Drive C: also contains the system's folders.
/// Everything else on it is removed at the end.
class TempStation {
public:
    TempStation();
    ~TempStation();
    TempStation(const TempStation&) = delete;
    TempStation& operator=(const TempStation&) = delete;

    /// A scratch folder of the host, removed at the end. If the station is a folder, it is that folder.
    const std::filesystem::path& Folder() const { return m_folder; }

    /// Path of a station's file on the host.
    /// @param windowsPath  for example "C:\\Data\\file.txt"
    static std::filesystem::path Host(const std::string& windowsPath);

    /// Adds an empty drive.
    void AddDrive(char letter);

    /// Writes a file and creates the folders and the drive that it needs.
    void Write(const std::string& windowsPath, const std::string& bytes);

    /// Stops using the station before the end: its settings are no longer found.
    void Leave();

    /// Makes the settings unusable until the end.
    void BreakSettings();

private:
    std::filesystem::path m_folder;
    std::string m_drives; // the added ones
};

} // namespace nesk
