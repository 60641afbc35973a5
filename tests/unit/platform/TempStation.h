#pragma once

#include <filesystem>
#include <string>

namespace nesk {

/// A station of a test's own, in use for as long as the object lives: empty settings, an empty drive C:.
///
/// On Windows that is the machine itself, so tests run there in a throw-away Wine prefix only: without the
/// variable NESKMANAGER_TEST_PREFIX the constructor throws. Drive C: holds the system's folders as well; what
/// lies beside them is removed at the end.
class TempStation {
public:
    TempStation();
    ~TempStation();
    TempStation(const TempStation&) = delete;
    TempStation& operator=(const TempStation&) = delete;

    /// A scratch folder of the host, removed at the end. On a station that is a folder it is that folder.
    const std::filesystem::path& Folder() const { return m_folder; }

    /// Where the host has a file of the station.
    /// @param windowsPath  for example "C:\\Data\\file.txt"
    static std::filesystem::path Host(const std::string& windowsPath);

    /// Adds an empty drive.
    void AddDrive(char letter);

    /// Writes a file, with the folders and the drive that it needs.
    void Write(const std::string& windowsPath, const std::string& bytes);

    /// Leaves the station before the end: what looks for its settings finds none.
    void Leave();

    /// Makes the settings unusable until the end.
    void BreakSettings();

private:
    std::filesystem::path m_folder;
    std::string m_drives; // those added
};

} // namespace nesk
