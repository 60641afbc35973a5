#include "shell/modUtilities.h"

#include "base/FileErrors.h"
#include "base/Paths.h"
#include "base/modConvert.h"
#include "platform/ErrorCode.h"
#include "platform/FileSystem.h"
#include "platform/ProfileFile.h"
#include "platform/Utf8.h"
#include "settings/RegEntry.h"

#include <algorithm>
#include <memory>

namespace nesk::modUtilities {

namespace {

constexpr std::size_t IniBufferSize = 4096;

using platform::DirectoryEntry;
using platform::DirectorySearch;

// Runs a search to its end, so that no search stays open. Returns whether a matching entry was found.
template <typename Wanted>
bool SearchFinds(platform::FileSystem& files, const std::string& path, Wanted wanted) {
    std::unique_ptr<DirectorySearch> search;
    DirectoryEntry entry;
    if (files.Search(path, search, entry) != platform::ErrorCode::Success) return false;
    bool found = wanted(entry);
    while (search->Next(entry) == platform::ErrorCode::Success)
        found = found || wanted(entry);
    return found;
}

} // namespace

std::string Shortened(const std::string& text, std::size_t length) {
    if (text.size() <= length) return text;
    while (length > 0 && platform::ContinuesCharacter(text[length]))
        --length;
    return text.substr(0, length) + "...";
}

std::string Trim(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string::npos) return "";
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

void AddTrailingBackslash(std::string& path) {
    const std::string trimmed = path.substr(0, path.find_last_not_of(' ') + 1);
    if (!trimmed.ends_with('\\')) path = trimmed + "\\";
}

std::string PathJoin(const std::string& base, const std::string& relative) {
    std::string folder = Trim(base);
    std::string rest = Trim(relative);
    if (rest.size() >= 2 && rest[1] == ':') return rest;
    while (rest.starts_with('.')) {
        if (rest.starts_with(".\\")) {
            rest.erase(0, 2);
        } else if (rest.starts_with("..\\")) {
            folder = ParentFolder(folder);
            rest.erase(0, 3);
        } else {
            rest.erase(0, 1);
        }
    }
    AddTrailingBackslash(folder);
    return folder + rest;
}

std::string ParentFolder(const std::string& path) {
    return Paths::ParentFolder(path);
}

std::size_t ShareLength(std::string_view path) {
    const auto isSeparator = [](char c) { return c == '\\' || c == '/'; };
    if (path.size() < 3 || !isSeparator(path[0]) || !isSeparator(path[1]) || isSeparator(path[2])) return 0;
    const std::size_t server = path.find_first_of("\\/", 2);
    if (server == std::string_view::npos) return path.size();
    return std::min(path.find_first_of("\\/", server + 1), path.size());
}

bool FileExists(const std::string& path, platform::FileSystem& files) {
    return SearchFinds(files, path, [](const DirectoryEntry& entry) {
        return (entry.attributes & platform::FileAttribute::Directory) == 0;
    });
}

bool DirectoryExists(const std::string& path, platform::FileSystem& files) {
    if (path.empty()) return false;
    if (!SearchFinds(files, path, [](const DirectoryEntry&) { return true; })) return false;
    std::uint32_t attributes = 0;
    return files.Attributes(path, attributes) == platform::ErrorCode::Success &&
           (attributes & platform::FileAttribute::Directory) != 0;
}

std::string ExistingFolderOf(const std::string& file, const std::string& defaultFolder) {
    const std::string folder = file.substr(0, file.rfind('\\') + 1);
    return DirectoryExists(folder) ? folder : defaultFolder;
}

void MakePath(const std::string& path) {
    std::string full = path;
    AddTrailingBackslash(full);
    const std::size_t share = ShareLength(full);
    for (std::size_t at = full.find('\\', share == 0 ? 0 : share + 1); at != std::string::npos;
         at = full.find('\\', at + 1)) {
        const std::string level = full.substr(0, at);
        if (level.empty() || level.ends_with('\\') || level.ends_with(':') || DirectoryExists(level))
            continue;
        const platform::ErrorCode result = platform::StationFiles().MakeFolder(level);
        if (result != platform::ErrorCode::Success) throw FileError(result, "modUtilities.MakePath", level);
    }
}

std::string ReadIniValue(const std::string& file, const std::string& section, const std::string& key) {
    return platform::ReadProfileString(file, section, key, "", IniBufferSize);
}

std::int16_t ListField(const std::string& text, int index, std::int16_t defaultValue) {
    if (index < 0) return defaultValue;
    std::size_t from = 0;
    for (; index > 0; --index) {
        const std::size_t separator = text.find('|', from);
        if (separator == std::string::npos) return defaultValue;
        from = separator + 1;
    }
    const std::string field = text.substr(from, text.find('|', from) - from);
    if (field.empty()) return defaultValue;
    try {
        return modConvert::CInt(field);
    } catch (const NeskError&) {
        return 0;
    }
}

std::string InstallDirectory() {
    try {
        RegEntry settings;
        settings.OpenKey("Orvane\\Settings");
        return Trim(settings.GetString("InstallDirectory"));
    } catch (const NeskError&) {
        return "";
    }
}

std::string BinaryDirectory() {
    return InstallDirectory() + "\\Bin";
}

int ControlFontSize(std::uint32_t localeId, int size) {
    switch (localeId) {
    case 1028:
    case 1041:
    case 1042:
    case 2052: return size < 9 ? 9 : size;
    default: return size <= 8 ? 8 : size;
    }
}

} // namespace nesk::modUtilities
