#include "partedit/FoundParts.h"

#include "base/FileErrors.h"
#include "partedit/FolderList.h"
#include "partedit/PartScanner.h"
#include "platform/Collation.h"
#include "platform/TextEncoding.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <deque>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace nesk {

namespace {

using Children = std::vector<std::vector<std::size_t>>;

void SortFiles(std::vector<std::string>& files) {
    std::vector<std::pair<std::string, std::string>> keyed;
    keyed.reserve(files.size());
    for (std::string& name : files) {
        std::string key = platform::ToUpper(name);
        keyed.emplace_back(std::move(key), std::move(name));
    }
    std::sort(keyed.begin(), keyed.end());
    std::transform(keyed.begin(), keyed.end(), files.begin(),
                   [](auto& name) { return std::move(name.second); });
}

// Collects what a scan finds. The node of a folder is a pointer to its index.
class Collector final : public PartScanVisitor {
public:
    explicit Collector(const std::function<bool(const PartSearchProgress&)>& onProgress)
        : m_onProgress(onProgress) {}

    Node OnFolder(Node parent, const std::string& path, const std::string& name) override {
        result.found.push_back({IndexOf(parent), false, name, path, {}, {}});
        m_nodes.push_back(result.found.size() - 1);
        return &m_nodes.back();
    }
    void OnPart(Node parent, const std::string& path, const std::string& name,
                const std::string& partName) override {
        FoundPart part{IndexOf(parent), true, name, path, partName, {}};
        if (const auto files = m_files.extract(path)) part.files = std::move(files.mapped());
        SortFiles(part.files);
        result.found.push_back(std::move(part));
    }
    void OnPartFiles(const std::string& path, std::vector<std::string>& files) override {
        m_files.emplace(path, std::move(files));
        ++m_parts;
    }
    void OnUnreadable(const std::string& path, platform::ErrorCode code, std::uint32_t) override {
        result.unreadable.push_back(FileError(code, "FindParts", path));
    }
    bool OnProgress(std::size_t foldersRead) override {
        m_foldersRead = foldersRead;
        return m_onProgress({m_foldersBefore + foldersRead, m_parts});
    }

    // Called after each scan, when another one follows.
    void EndFolder() { m_foldersBefore += std::exchange(m_foldersRead, 0); }

    FoundParts result;

private:
    static std::size_t IndexOf(Node node) {
        return node != nullptr ? *static_cast<std::size_t*>(node) : FoundPart::NoParent;
    }

    const std::function<bool(const PartSearchProgress&)>& m_onProgress;
    std::unordered_map<std::string, std::vector<std::string>> m_files; // of the parts that OnPart will report
    std::deque<std::size_t> m_nodes;                                   // its elements keep their addresses
    std::size_t m_parts = 0;
    std::size_t m_foldersRead = 0;   // by the present scan
    std::size_t m_foldersBefore = 0; // by those before it
};

// True for each part and for each folder with a part below it.
std::vector<bool> LeadsToParts(const std::vector<FoundPart>& found) {
    std::vector<bool> leads(found.size());
    for (std::size_t i = found.size(); i-- > 0;) {
        if (found[i].isPart) leads[i] = true;
        if (leads[i] && found[i].parent != FoundPart::NoParent) leads[found[i].parent] = true;
    }
    return leads;
}

// Sorts siblings: folders before parts, each by name.
void SortSiblings(std::vector<std::size_t>& siblings, const std::vector<FoundPart>& found) {
    std::vector<std::string> names;
    names.reserve(siblings.size());
    for (const std::size_t i : siblings)
        names.push_back(found[i].name);
    std::vector<std::size_t> sorted;
    sorted.reserve(siblings.size());
    for (const std::size_t position : platform::SortedOrder(names))
        sorted.push_back(siblings[position]);
    std::stable_partition(sorted.begin(), sorted.end(), [&](std::size_t i) { return !found[i].isPart; });
    siblings = std::move(sorted);
}

// Brings what was found into the order in which it is shown.
std::vector<FoundPart> InOrder(std::vector<FoundPart> found) {
    const std::vector<bool> leads = LeadsToParts(found);
    Children children(found.size() + 1); // those of the folder that was searched come last
    const auto childrenOf = [&](std::size_t parent) -> std::vector<std::size_t>& {
        return children[std::min(parent, found.size())];
    };
    for (std::size_t i = 0; i < found.size(); ++i)
        if (leads[i]) childrenOf(found[i].parent).push_back(i);
    for (std::vector<std::size_t>& siblings : children)
        if (siblings.size() > 1) SortSiblings(siblings, found);
    std::vector<FoundPart> ordered;
    ordered.reserve(found.size());
    // What is still to be placed, the next one last: an index and the new index of its parent.
    std::vector<std::pair<std::size_t, std::size_t>> waiting;
    const auto wait = [&](const std::vector<std::size_t>& siblings, std::size_t parent) {
        for (auto i = siblings.rbegin(); i != siblings.rend(); ++i)
            waiting.emplace_back(*i, parent);
    };
    wait(children.back(), FoundPart::NoParent);
    while (!waiting.empty()) {
        const auto [from, parent] = waiting.back();
        waiting.pop_back();
        ordered.push_back(std::move(found[from]));
        ordered.back().parent = parent;
        wait(children[from], ordered.size() - 1);
    }
    return ordered;
}

// No name can contain it.
constexpr char FolderSeparator = '|';

std::vector<std::string> SplitFolders(std::string_view paths) {
    std::vector<std::string> parts;
    for (std::size_t from = 0; from <= paths.size();) {
        const std::size_t to = std::min(paths.find(FolderSeparator, from), paths.size());
        parts.emplace_back(paths.substr(from, to - from));
        from = to + 1;
    }
    return parts;
}

std::string FolderOf(const std::string& path) {
    std::string folder = modUtilities::Trim(path);
    const auto cutSeparators = [&] {
        while (folder.ends_with('\\') && !folder.ends_with(":\\"))
            folder.pop_back();
    };
    cutSeparators();
    const std::size_t separator = folder.rfind('\\');
    if (separator != std::string::npos &&
        platform::EqualNoCase(PartInfoPath(folder.substr(0, separator)), folder)) {
        folder.erase(separator + 1);
        cutSeparators();
    }
    return folder;
}

std::string NameOf(const std::string& folder) {
    const std::string path = folder.ends_with('\\') ? folder.substr(0, folder.size() - 1) : folder;
    return path.substr(path.rfind('\\') + 1);
}

// Reads a folder that is a part program, as a scan of one folder. Returns false for any other folder.
bool ReadPart(const std::string& folder, Collector& collector) {
    std::optional<PartFolder> part = ReadPartFolder(folder);
    if (!part) return false;
    collector.OnPartFiles(folder, part->files);
    collector.OnPart(nullptr, folder, NameOf(folder), part->partName);
    collector.result.isComplete = collector.OnProgress(1);
    return true;
}

// True when a folder is the same as another one, or is in it.
bool IsIn(const std::string& folder, const std::string& other) {
    const std::string above = other.ends_with('\\') ? other : other + '\\';
    return platform::ToUpper(folder + '\\').starts_with(platform::ToUpper(above));
}

// Leaves out folders whose parts are found in another one.
std::vector<std::string> Outermost(const std::vector<std::string>& folders) {
    std::vector<std::string> outermost;
    for (const std::string& folder : folders) {
        const auto holds = [&](const std::string& other) { return IsIn(folder, other); };
        if (std::any_of(outermost.begin(), outermost.end(), holds)) continue;
        std::erase_if(outermost, [&](const std::string& other) { return IsIn(other, folder); });
        outermost.push_back(folder);
    }
    return outermost;
}

void FindInSeveral(const std::vector<std::string>& folders, Collector& collector) {
    for (const std::string& folder : Outermost(folders)) {
        if (!modUtilities::DirectoryExists(folder)) {
            collector.OnUnreadable(folder, platform::ErrorCode::PathNotFound, 0);
        } else {
            if (!ReadPart(folder, collector))
                collector.result.isComplete =
                    ScanParts(folder, collector.OnFolder(nullptr, folder, NameOf(folder)), collector);
            if (!collector.result.isComplete) break;
            collector.EndFolder();
        }
    }
}

} // namespace

std::string PartSearchFolder(const std::string& paths) {
    std::vector<std::string> folders;
    for (const std::string& path : SplitFolders(paths))
        if (std::string folder = FolderOf(path); !folder.empty()) folders.push_back(std::move(folder));
    return JoinedPartFolders(folders);
}

std::string JoinedPartFolders(const std::vector<std::string>& paths) {
    std::string joined;
    for (const std::string& path : paths)
        joined.append(joined.empty() ? "" : std::string(1, FolderSeparator)).append(path);
    return joined;
}

FoundParts FindParts(const std::string& folder,
                     const std::function<bool(const PartSearchProgress&)>& onProgress) {
    const std::string root = PartSearchFolder(folder);
    Collector collector(onProgress);
    if (const std::vector<std::string> folders = SplitFolders(root); folders.size() > 1) {
        FindInSeveral(folders, collector);
        collector.result.found = InOrder(std::move(collector.result.found));
        return std::move(collector.result);
    }
    collector.result.folderExists = modUtilities::DirectoryExists(root);
    // Without a folder, the pattern "*.*" alone would read another folder.
    if (!collector.result.folderExists) return std::move(collector.result);
    if (!ReadPart(root, collector)) {
        collector.result.isComplete = ScanParts(root, nullptr, collector);
        collector.result.found = InOrder(std::move(collector.result.found));
    }
    return std::move(collector.result);
}

} // namespace nesk
