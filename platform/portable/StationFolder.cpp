#include "platform/StationFolder.h"

#include "platform/ErrorCode.h"
#include "platform/portable/HostError.h"
#include "platform/portable/Station.h"

#include <cerrno>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace nesk::platform {

namespace {

namespace fs = std::filesystem;

// The example is beside the program in a build tree, and among the shared data in an installation.
constexpr const char* BesideProgram = "example-station";
constexpr const char* InstalledShare = "share/neskmanager/example";

ErrorCode ErrorFrom(const std::error_code& error) {
    return portable::ErrorFromErrno(error.value(), ErrorCode::WriteFault);
}

bool Exists(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

bool IsStation(const fs::path& folder) {
    return Exists(folder / "registry.db") || Exists(folder / "drives");
}

fs::path FindExample() {
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error).parent_path();
    if (error) return {};
    // An installed program is in lib/neskmanager or lib/MACHINE/neskmanager below the installation prefix.
    for (const fs::path& folder :
         {program / BesideProgram, program / "../.." / InstalledShare, program / "../../.." / InstalledShare})
        if (IsStation(folder)) return folder;
    return {};
}

ErrorCode CopyStation(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::copy(from, to, fs::copy_options::recursive, error);
    if (error) return ErrorFrom(error);
    // Installed files may be write-protected; the user must be able to write to the new station.
    for (fs::recursive_directory_iterator at(to, error); !error && at != fs::recursive_directory_iterator();
         at.increment(error)) {
        fs::permissions(at->path(), fs::perms::owner_write, fs::perm_options::add, error);
        if (error) break;
    }
    return error ? ErrorFrom(error) : ErrorCode::Success;
}

class PendingStation final : public NewStationFolder {
public:
    PendingStation(fs::path folder, fs::path beside)
        : m_folder(std::move(folder)), m_beside(std::move(beside)), m_former(portable::StationFolder()) {
        portable::UseStation(m_beside);
    }
    PendingStation(const PendingStation&) = delete;
    PendingStation& operator=(const PendingStation&) = delete;

    ~PendingStation() override {
        if (m_finished) return;
        portable::UseStation(m_former);
        std::error_code error;
        fs::remove_all(m_beside, error);
    }

    ErrorCode Finish() override {
        // Switching to the previous station closes the store before it is moved. The rename replaces an empty
        // folder and fails for anything else.
        portable::UseStation(m_former);
        std::error_code error;
        fs::rename(m_beside, m_folder, error);
        if (error == std::errc::directory_not_empty || error == std::errc::file_exists ||
            error == std::errc::not_a_directory)
            return ErrorCode::AlreadyExists;
        if (error) return ErrorFrom(error);
        m_finished = true;
        portable::UseStation(m_folder);
        return ErrorCode::Success;
    }

private:
    fs::path m_folder;
    fs::path m_beside;
    fs::path m_former;
    bool m_finished = false;
};

// The station whose drives contain a folder, because a folder dialog may have descended into them; otherwise
// the folder itself.
std::string EnclosingStation(const std::string& folder) {
    if (IsStation(folder)) return folder;
    for (fs::path at(folder); at.has_relative_path(); at = at.parent_path()) {
        std::error_code error;
        if (at.filename() == "drives" && fs::exists(at.parent_path() / "registry.db", error))
            return at.parent_path().string();
    }
    return folder;
}

} // namespace

bool StationIsFolder() {
    return true;
}

std::string StationFolderName() {
    return portable::StationFolder().string();
}

std::string UsualStationFolder() {
    return portable::DefaultStationFolder().string();
}

StationFolderState LookUpStationFolder(const std::string& folder) {
    std::error_code error;
    const fs::file_status status = fs::status(folder, error);
    if (error == std::errc::permission_denied) return StationFolderState::Denied;
    if (!fs::is_directory(status)) return StationFolderState::Missing;
    if (::access(folder.c_str(), R_OK | X_OK) != 0) return StationFolderState::Denied;
    return IsStation(folder) ? StationFolderState::Usable : StationFolderState::Empty;
}

ErrorCode UseStationFolder(const std::string& chosen) {
    const std::string folder = EnclosingStation(chosen);
    switch (LookUpStationFolder(folder)) {
    case StationFolderState::Usable: break;
    case StationFolderState::Denied: return ErrorCode::AccessDenied;
    case StationFolderState::Missing: return ErrorCode::PathNotFound;
    case StationFolderState::Empty:
    case StationFolderState::NotApplicable: return ErrorCode::InvalidName;
    }
    portable::UseStation(folder);
    return ErrorCode::Success;
}

bool HasExampleStation() {
    return !FindExample().empty();
}

ErrorCode BeginStationFolder(const std::string& folder, bool example,
                             std::unique_ptr<NewStationFolder>& station) {
    fs::path target(folder);
    if (!target.is_absolute() || folder.find('\0') != std::string::npos) return ErrorCode::InvalidName;
    target = target.lexically_normal();
    if (!target.has_filename()) target = target.parent_path();
    std::error_code error;
    if (Exists(target)) {
        if (!fs::is_directory(target, error)) return error ? ErrorFrom(error) : ErrorCode::FileExists;
        if (!fs::is_empty(target, error)) return error ? ErrorFrom(error) : ErrorCode::AlreadyExists;
    }
    fs::create_directories(target.parent_path(), error);
    if (error) return ErrorFrom(error);

    std::string pattern = target.string() + ".new-XXXXXX";
    if (::mkdtemp(pattern.data()) == nullptr) return portable::ErrorFromErrno(errno, ErrorCode::WriteFault);
    const fs::path beside(pattern);
    ErrorCode result = ErrorCode::Success;
    if (example) {
        result = CopyStation(FindExample(), beside);
    } else {
        fs::create_directories(beside / "drives" / "c", error);
        if (error) result = ErrorFrom(error);
    }
    if (result != ErrorCode::Success) {
        fs::remove_all(beside, error);
        return result;
    }
    station = std::make_unique<PendingStation>(target, beside);
    return ErrorCode::Success;
}

} // namespace nesk::platform
