#pragma once

#include "base/BackupNames.h"
#include "base/FileHash.h"
#include "base/SafeFile.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

class Menu;
class MenuItem;
enum class MenuKey : std::size_t;

/// Writes a menu tree as a block file in the station's code page.
class MenuFileWriter {
public:
    explicit MenuFileWriter(Menu& menu, platform::FileSystem& files = platform::StationFiles())
        : m_menu(menu), m_files(files) {}

    /// Replaces the file `path` by the tree. Raises the run-time error of a failed step, or 5000 for a text
    /// that the code page cannot hold or that would end its line; the file is unchanged then.
    /// @param backup  where the version before is kept
    /// @param known   what the file is believed to hold. When the tree makes the same bytes, and the file
    /// does
    ///                hold them, an older backup stays, and a dated one is not made
    /// @return the hash of the new file
    FileHash Save(const std::string& path, const Backup& backup, const FileHash& known = {});

private:
    bool IsFirstOf(const Backup& backup);
    void WriteTree();
    void WriteItem(const MenuItem& item, std::size_t level);
    void WriteNumber(std::size_t level, MenuKey key, std::int32_t number);
    void WriteValue(std::size_t level, MenuKey key, std::string_view text);
    void WriteBytes(std::size_t level, MenuKey key, std::string_view bytes);
    void WriteLine(std::size_t level, std::string_view text);
    char* BeginLine(std::size_t level, std::size_t length);
    void EndLine(char* end);
    void MakeRoom(std::size_t size);
    void FlushBuffer();

    Menu& m_menu;
    platform::FileSystem& m_files;
    SafeFile* m_file = nullptr;
    std::vector<char> m_buffer;
    std::size_t m_used = 0; // of the buffer
    FileHash m_hash;
};

} // namespace nesk
