// Tests arbitrary paths. The input's first line is a folder, the second a relative path, the third a pattern.
// Every path must stay within its drive of the station.

#include "base/NeskError.h"
#include "fuzz/Fuzz.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/NamePattern.h"
#include "platform/portable/FileNames.h"
#include "platform/portable/Station.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <filesystem>
#include <memory>

namespace nesk::fuzz {

namespace {

namespace fs = std::filesystem;
using platform::portable::ToHostPath;
using platform::portable::ToWindowsPath;

bool IsLetter(char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool IsHostDrive(const std::string& path) {
    return path.size() >= 2 && path[1] == ':' && (path[0] == 'Z' || path[0] == 'z');
}

// The folder that a path must not leave.
fs::path DriveOf(const std::string& path) {
    if (IsHostDrive(path)) return "/";
    const bool named = path.size() >= 2 && path[1] == ':' && IsLetter(path[0]);
    return platform::portable::StationFolder() / "drives" /
           std::string(1, named ? static_cast<char>(path[0] | 0x20) : 'c');
}

bool LiesWithin(const fs::path& path, const fs::path& folder) {
    auto at = path.begin();
    for (const fs::path& name : folder)
        if (at == path.end() || *at++ != name) return false;
    return std::none_of(at, path.end(), [](const fs::path& name) { return name == ".." || name == "."; });
}

void CheckHostPath(const std::string& path) {
    const fs::path host = ToHostPath(path);
    Require(ToHostPath(path) == host, "the same path leads to the same place");
    if (host.empty()) return;
    Require(LiesWithin(host, DriveOf(path)), "a path stays within its drive");
    const std::string windows = ToWindowsPath(host);
    Require(windows.size() >= 3 && IsLetter(windows[0]) && windows[1] == ':' && windows[2] == '\\',
            "a Windows path begins with a drive");
    Require(ToHostPath(windows) == host, "a host path comes back");
    Require(ToWindowsPath(ToHostPath(windows)) == windows, "a Windows path comes back");
}

void CheckTexts(const std::string& path) {
    const std::string trimmed = modUtilities::Trim(path);
    Require(modUtilities::Trim(trimmed) == trimmed, "a trimmed text stays");
    Require(path.find(trimmed) != std::string::npos, "trimming takes a part of the text");
    std::string folder = path;
    modUtilities::AddTrailingBackslash(folder);
    Require(modUtilities::Trim(folder).ends_with('\\'), "a folder ends with a separator");
    std::string again = folder;
    modUtilities::AddTrailingBackslash(again);
    Require(again == folder, "a second separator is not added");
    const std::string parent = modUtilities::ParentFolder(path);
    Require(path.starts_with(parent), "the folder above is the beginning of the path");
    Require(parent.empty() || (parent.ends_with('\\') && parent.size() < path.size()),
            "the folder above is shorter and ends with a separator");
}

void CheckJoin(const std::string& base, const std::string& relative) {
    const std::string joined = modUtilities::PathJoin(base, relative);
    const std::string rest = modUtilities::Trim(relative);
    if (rest.size() >= 2 && rest[1] == ':')
        Require(joined == rest, "a path with a drive is the result itself");
    else
        Require(joined.find('\\') != std::string::npos, "a folder and a path have a separator between them");
    CheckHostPath(joined);
}

// Creates the folder of a path in the station and a file in it.
void CheckFiles(const std::string& path) {
    // A longer path is not valid on Windows, and looking up every level from the drive takes too long.
    if (path.size() > 260 || IsHostDrive(path)) return;
    platform::FileSystem& files = platform::StationFiles();
    try {
        modUtilities::MakePath(path);
    } catch (const NeskError&) {
        return;
    }
    std::string file = path;
    modUtilities::AddTrailingBackslash(file);
    file += "Datei.ini";
    std::unique_ptr<platform::FileWriter> writer;
    if (files.CreateNew(file, writer) != platform::ErrorCode::Success) return;
    writer.reset();
    Require(modUtilities::FileExists(file), "a file that was made is there");
    Require(LiesWithin(fs::canonical(ToHostPath(file)), fs::canonical(platform::portable::StationFolder())),
            "a file that was made lies in the station");
    Require(files.CreateNew(file, writer) == platform::ErrorCode::AlreadyExists, "a file is made once");
    Require(files.RemoveFile(file) == platform::ErrorCode::Success, "a file that was made can be removed");
    Require(!modUtilities::FileExists(file), "a file that was removed is gone");
}

void CheckHostName(const std::string& name) {
    using platform::portable::NameFromHost;
    using platform::portable::NameToHost;
    Require(NameToHost(NameFromHost(name)) == name, "the bytes of a host name survive");
}

void CheckPattern(const std::string& name, const std::string& pattern) {
    using platform::MatchesPattern;
    Require(MatchesPattern(name, "*") && MatchesPattern(name, "*.*"),
            "every name matches the widest pattern");
    Require(MatchesPattern(name, name), "a name matches itself");
    Require(MatchesPattern(name, name + "*") && MatchesPattern(name, "*" + name), "a star may be nothing");
    // "*.*" matches every name, with or without a dot.
    if (pattern != "*.*" && MatchesPattern(name, pattern))
        Require(MatchesPattern(name + "x", pattern + "*"), "a star takes what follows");
}

// Checks that the station contains only its drives, and the drives only names that Windows allows.
void CheckStation(const fs::path& station) {
    for (const fs::directory_entry& entry : fs::directory_iterator(station))
        Require(entry.path().filename() == "drives", "the station's folder holds its drives");
    for (const fs::directory_entry& entry : fs::directory_iterator(station / "drives"))
        Require(entry.path().filename() == "c", "no drive appears by itself");
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(station / "drives" / "c"))
        Require(entry.path().filename().string().find_first_of("<>:\"|?*\\") == std::string::npos,
                "no name holds what Windows forbids");
}

} // namespace

} // namespace nesk::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace nesk::fuzz;
    // The time to match a pattern with stars grows with the square of the name's length.
    if (size > 4096) return 0;
    std::string input = TextOf(data, size);
    const std::string folder = TakeLine(input);
    const std::string relative = TakeLine(input);
    Surroundings surroundings(1033);
    for (const std::string& path : {folder, relative}) {
        CheckTexts(path);
        CheckHostPath(path);
        CheckHostName(path);
    }
    CheckJoin(folder, relative);
    CheckPattern(relative, input);
    CheckFiles(folder);
    CheckFiles(relative);
    CheckStation(surroundings.station.Folder());
    return 0;
}
