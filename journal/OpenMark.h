#pragma once

#include "platform/FileSystem.h"

#include <memory>
#include <string>
#include <vector>

namespace nesk {

/// Tells other editors that a menu file is open here: an empty file beside it, which exists as long as this
/// object and whose name contains who has opened it, for example "menu.cfg.open-Smith on STATION3". A mark of
/// a program that was killed counts as nothing and is removed.
///
/// A menu in a folder that cannot be written has no mark.
class OpenMark {
public:
    /// @param path   Windows path of the menu file, which may be missing
    /// @param owner  who opens it; characters that a file name cannot have are replaced
    explicit OpenMark(const std::string& path, const std::string& owner,
                      platform::FileSystem& files = platform::StationFiles());
    ~OpenMark();
    OpenMark(const OpenMark&) = delete;
    OpenMark& operator=(const OpenMark&) = delete;

    /// Looks again who else has the menu file open.
    /// @return true when that has changed
    bool Refresh();

    /// Who else has the menu file open, in the order of the names: at first those who had opened it before.
    const std::vector<std::string>& Others() const { return m_others; }

private:
    void FindOthers();
    void Create(const std::string& owner);

    platform::FileSystem& m_files;
    std::string m_stem; // of the names of all marks of the file
    std::string m_path; // the mark of this object
    std::unique_ptr<platform::FileWriter> m_writer;
    std::vector<std::string> m_others;
};

} // namespace nesk
