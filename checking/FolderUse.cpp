#include "checking/FolderUse.h"

#include "base/Messages.h"
#include "checking/EntryWalk.h"
#include "menu/Menu.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>

namespace nesk {

namespace {

constexpr std::array Paths{TextField::Program, TextField::Picture, TextField::Preview, TextField::HelpFile,
                           TextField::HistoryDir};

constexpr std::string_view Forbidden = "<>\"|?*/";

// Length of the drive or share at the beginning of a path, without the "\" after it; 0 for a relative path.
std::size_t RootLength(std::string_view path) {
    const auto isLetter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); };
    if (path.size() >= 3 && isLetter(path[0]) && path[1] == ':' && path[2] == '\\') return 2;
    const std::size_t share = modUtilities::ShareLength(path);
    return share > 0 && path[share - 1] == '\\' ? share - 1 : share;
}

std::string_view WithoutSeparator(std::string_view path) {
    while (path.ends_with('\\'))
        path.remove_suffix(1);
    return path;
}

// The folder of a path of the menu. A history directory is a folder itself.
std::string_view FolderOf(std::string_view path, TextField field) {
    if (RootLength(path) == 0) return {};
    if (field != TextField::HistoryDir) path = path.substr(0, path.rfind('\\'));
    return WithoutSeparator(path);
}

// Length of a path up to, but without, the "\\" after so many others.
std::size_t LengthOfLevels(std::string_view path, std::ptrdiff_t others) {
    std::size_t at = path.find('\\');
    for (; others > 0 && at != std::string_view::npos; --others)
        at = path.find('\\', at + 1);
    return std::min(at, path.size());
}

// A text that sorts a folder directly before the folders below it.
std::string SortKey(std::string_view folder) {
    std::string key = platform::ToUpper(folder);
    std::replace(key.begin(), key.end(), '\\', '\x01');
    return key;
}

} // namespace

FolderUse::FolderUse(const Menu& menu) {
    // Most entries share a few folders, so each spelling is looked at once.
    std::vector<std::string_view> spellings;
    std::unordered_map<std::string_view, std::size_t> counts;
    ForEachEntry(menu, [&](const MenuEntry& entry) {
        for (const TextField field : Paths) {
            const std::string_view folder = FolderOf(FieldText(entry, field), field);
            if (folder.empty()) continue;
            if (++counts[folder] == 1) spellings.push_back(folder);
        }
    });
    std::map<std::string, Folder> folders;
    for (const std::string_view spelling : spellings) {
        const std::size_t root = RootLength(spelling);
        for (std::string_view at = spelling; root > 0 && at.size() > root;
             at = WithoutSeparator(at.substr(0, at.rfind('\\')))) {
            Folder& folder = folders[SortKey(at)];
            if (folder.path.empty()) folder.path = at;
            folder.paths += counts[spelling];
        }
    }
    m_folders.reserve(folders.size());
    for (auto& [key, folder] : folders)
        m_folders.push_back(std::move(folder));
}

bool FolderUse::IsWithin(std::string_view path, std::string_view folder) {
    folder = WithoutSeparator(folder);
    const std::string upper = platform::ToUpper(path);
    const std::string start = platform::ToUpper(folder);
    return !start.empty() && upper.starts_with(start) &&
           (upper.size() == start.size() || upper[start.size()] == '\\');
}

std::vector<TextChange> FolderUse::PathsIn(const Menu& menu, const std::string& folder) {
    std::vector<TextChange> paths;
    ForEachEntry(menu, [&](const MenuEntry& entry) {
        for (const TextField field : Paths)
            if (const std::string path(FieldText(entry, field)); !path.empty() && IsWithin(path, folder))
                paths.push_back({&entry, field, path, path});
    });
    return paths;
}

std::string FolderUse::Moved(std::string_view path, std::string_view folder, std::string_view place) {
    const std::string_view from = WithoutSeparator(folder);
    // Counted in levels: another case of a letter may have another length in bytes.
    const auto levels = std::count(from.begin(), from.end(), '\\');
    return std::string(WithoutSeparator(place)).append(path.substr(LengthOfLevels(path, levels)));
}

std::vector<TextChange> FolderUse::Plan(const Menu& menu, const std::string& folder,
                                        const std::string& place) {
    std::vector<TextChange> changes = PathsIn(menu, folder);
    for (TextChange& change : changes)
        change.after = Moved(change.before, folder, place);
    std::erase_if(changes, [](const TextChange& change) { return change.after == change.before; });
    return changes;
}

int FolderUse::WhyNot(const std::string& folder, const std::string& place) {
    const std::string_view to = WithoutSeparator(place);
    if (to.empty()) return Message::FolderNoPlace;
    const std::string_view rooted = place.ends_with('\\') ? std::string_view(place) : to;
    if (RootLength(std::string(rooted) + "\\") == 0) return Message::FolderNotFull;
    if (to.find_first_of(Forbidden) != std::string_view::npos || to.find(':', 2) != std::string_view::npos ||
        to.find('@') != std::string_view::npos)
        return Message::FolderBadCharacter;
    if (to == WithoutSeparator(folder)) return Message::FolderSamePlace;
    return 0;
}

} // namespace nesk
