#include "journal/OpenMark.h"

#include "platform/ErrorCode.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace nesk {

namespace {

using platform::ErrorCode;

// More editors of one user on one computer are not told apart.
constexpr int MostNumber = 9;

// The owner as a part of a file name. Names may be long, and a path has a limit.
std::string NameOf(const std::string& owner) {
    constexpr std::size_t longest = 80;
    std::string name = modUtilities::Shortened(owner, longest);
    for (char& c : name)
        if (static_cast<unsigned char>(c) < ' ' ||
            std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos)
            c = '_';
    return name;
}

// The name without the number that tells marks of the same owner apart.
std::string WithoutNumber(const std::string& name) {
    const std::size_t length = name.size();
    constexpr std::size_t numberLength = 4; // " (2)"
    const bool isNumbered = length > numberLength && name.back() == ')' && name[length - 3] == '(' &&
                            name[length - 4] == ' ' && name[length - 2] >= '2' && name[length - 2] <= '9';
    return isNumbered ? name.substr(0, length - numberLength) : name;
}

} // namespace

OpenMark::OpenMark(const std::string& path, const std::string& owner, platform::FileSystem& files)
    : m_files(files), m_stem(path + ".open-") {
    FindOthers();
    Create(owner);
}

OpenMark::~OpenMark() {
    if (!m_writer) return;
    m_writer.reset();
    // A mark that stays is removed by the next editor.
    std::ignore = m_files.RemoveFile(m_path);
}

bool OpenMark::Refresh() {
    const std::vector<std::string> before = std::exchange(m_others, {});
    FindOthers();
    return m_others != before;
}

void OpenMark::FindOthers() {
    std::unique_ptr<platform::DirectorySearch> search;
    platform::DirectoryEntry entry;
    const std::string folder = modUtilities::ParentFolder(m_stem);
    const std::string prefix = m_stem.substr(m_stem.rfind('\\') + 1);
    std::vector<std::string> names;
    for (ErrorCode result = m_files.Search(m_stem + "*", search, entry); result == ErrorCode::Success;
         result = search->Next(entry))
        if (entry.name.size() > prefix.size()) names.push_back(entry.name.substr(prefix.size()));
    search.reset(); // marks are removed only after the search
    for (const std::string& name : names)
        if (m_stem + name != m_path && m_files.RemoveUnheld(m_stem + name) == ErrorCode::SharingViolation)
            m_others.push_back(WithoutNumber(name));
    std::sort(m_others.begin(), m_others.end());
}

void OpenMark::Create(const std::string& owner) {
    const std::string name = NameOf(owner);
    for (int number = 1; number <= MostNumber; ++number) {
        m_path = m_stem + name;
        if (number > 1) m_path.append(" (").append(std::to_string(number)).append(")");
        const ErrorCode result = m_files.CreateNew(m_path, m_writer);
        if (result == ErrorCode::AlreadyExists) continue;
        // Editors of other users must be able to see that it is in use.
        if (result == ErrorCode::Success) m_files.ApplyDefaultRights(m_path);
        return;
    }
}

} // namespace nesk
