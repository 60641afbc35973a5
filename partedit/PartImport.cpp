#include "partedit/PartImport.h"

#include "base/AddPartsMessages.h"
#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuText.h"
#include "partedit/PartReference.h"
#include "partedit/PartScanner.h"
#include "platform/NamePattern.h"
#include "platform/TextEncoding.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace nesk {

namespace {

using platform::ToUpper;

constexpr std::string_view PartPlaceholder = "%part%";

// The form of a path by which part programs are compared.
std::string PathKey(const std::string& path) {
    std::string key;
    for (const char c : ToUpper(path)) {
        const char separator = c == '/' ? '\\' : c;
        // The first two stand at the beginning of a network path.
        if (separator == '\\' && key.size() > 1 && key.back() == '\\') continue;
        key += separator;
    }
    return key;
}

std::string WithPart(std::string text, const std::string& part) {
    for (std::size_t at = text.find(PartPlaceholder); at != std::string::npos;
         at = text.find(PartPlaceholder, at + part.size()))
        text.replace(at, PartPlaceholder.size(), part);
    return text;
}

std::vector<std::string> Patterns(const std::string& text) {
    std::vector<std::string> patterns;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t end = std::min(text.find(';', at), text.size());
        if (std::string pattern = modUtilities::Trim(text.substr(at, end - at)); !pattern.empty())
            patterns.push_back(std::move(pattern));
        at = end + 1;
    }
    return patterns;
}

// Submenus by their captions without regard to case.
using Submenus = std::unordered_map<std::string, const MenuItem*>;

Submenus SubmenusOf(const MenuEntry& entry) {
    Submenus submenus;
    for (int i = 1; i <= entry.ChildCount(); ++i) {
        const MenuItem& child = entry.Children()->Item(i);
        if (!child.IsPart()) submenus.emplace(ToUpper(child.Caption()), &child);
    }
    return submenus;
}

} // namespace

PartImport::PartImport(const Menu& menu, const std::string& target, const std::vector<FoundPart>& found,
                       PartImportOptions options)
    : m_target(*menu.Find(target)), m_found(found), m_options(std::move(options)) {
    IndexMenu(menu);
    m_rows.reserve(found.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        const FoundPart& part = found[i];
        PartImportRow row;
        row.isPart = part.isPart;
        row.parent = part.parent;
        row.end = i + 1;
        row.level = part.parent == FoundPart::NoParent ? 0 : m_rows[part.parent].level + 1;
        row.name = part.name;
        if (part.isPart) {
            const auto program = m_programs.find(PathKey(PartInfoPath(part.path)));
            if (program != m_programs.end()) row.existing = program->second;
        }
        m_isChosen.push_back(row.existing == nullptr);
        m_rows.push_back(std::move(row));
    }
    // The rows below a row in the tree follow it directly in the list.
    for (std::size_t i = m_rows.size(); i-- > 0;)
        if (const std::size_t parent = m_rows[i].parent; parent != FoundPart::NoParent)
            m_rows[parent].end = std::max(m_rows[parent].end, m_rows[i].end);
    PlanTexts();
}

// Notes the part programs and the history titles of the menu.
void PartImport::IndexMenu(const Menu& menu) {
    std::vector<const MenuEntry*> waiting{&menu};
    while (!waiting.empty()) {
        const MenuEntry& entry = *waiting.back();
        waiting.pop_back();
        for (int i = entry.ChildCount(); i > 0; --i) {
            const MenuItem& item = entry.Children()->Item(i);
            waiting.push_back(&item);
            if (!item.HistoryTitle().empty()) m_titles.insert(ToUpper(item.HistoryTitle()));
            const std::string path = PartReference::IniPath(std::string(item.ProgramID()));
            if (item.IsPart() && !path.empty()) m_programs.emplace(PathKey(path), &item);
        }
    }
}

void PartImport::SetOptions(PartImportOptions options) {
    m_options = std::move(options);
    PlanTexts();
}

// Plans what the ticks do not change.
void PartImport::PlanTexts() {
    m_textProblems.assign(m_rows.size(), std::nullopt);
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        PlanRow(i);
    FindSubmenus();
    PlanTicks();
}

void PartImport::PlanRow(std::size_t index) {
    PartImportRow& row = m_rows[index];
    const FoundPart& found = m_found[index];
    const bool byFolder = !row.isPart || m_options.caption == PartImportOptions::Caption::Folder;
    row.caption = platform::InCase(byFolder ? found.name : found.partName, m_options.letters,
                                   modStringRes::LanguageID());
    if (!row.isPart && !m_options.submenus) row.caption.clear();
    std::optional<NeskError>& problem = m_textProblems[index];
    if (row.parent != FoundPart::NoParent) problem = m_textProblems[row.parent];
    try {
        MenuText::Check(row.caption, "PartImport");
        if (!row.isPart) return;
        const std::string info = PartInfoPath(found.path);
        row.fields = {};
        row.fields.programId = PartReference::Make(info);
        row.fields.graphic = PictureOf(found);
        row.fields.historyDir = WithPart(modUtilities::Trim(m_options.historyDir), found.name);
        // The path in the reference would end at the first "@".
        if (info.find('@') != std::string::npos)
            throw NeskError(5000, "PartImport", Message::AddPartsAtSign, {info});
        CheckPartFields(row.fields, {});
    } catch (const NeskError& error) {
        if (!problem) problem = error;
    }
}

std::string PartImport::PictureOf(const FoundPart& part) const {
    std::vector<std::string> patterns = Patterns(m_options.pictures);
    for (std::string& pattern : patterns)
        pattern = WithPart(std::move(pattern), part.name);
    for (const std::string& file : part.files) {
        const bool isWanted = std::any_of(patterns.begin(), patterns.end(), [&](const std::string& pattern) {
            return platform::MatchesPattern(file, pattern);
        });
        std::string path = part.path + "\\" + file;
        // The pattern "*.*" matches it too.
        if (isWanted && !platform::EqualNoCase(path, PartInfoPath(part.path))) return path;
    }
    return modUtilities::Trim(m_options.defaultPicture);
}

// Finds the submenus of the menu that have the captions of the folders.
void PartImport::FindSubmenus() {
    std::unordered_map<std::size_t, Submenus> known; // by row of a folder, or NoParent for the target
    known.emplace(FoundPart::NoParent, SubmenusOf(m_target));
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        PartImportRow& row = m_rows[i];
        if (row.isPart) continue;
        row.existing = nullptr;
        const auto siblings = known.find(row.parent);
        if (!m_options.submenus || siblings == known.end()) continue;
        const auto submenu = siblings->second.find(ToUpper(row.caption));
        if (submenu == siblings->second.end()) continue;
        row.existing = submenu->second;
        known.emplace(i, SubmenusOf(*row.existing));
    }
}

void PartImport::Tick(std::size_t row, bool isTicked) {
    Tick(std::vector<std::size_t>{row}, isTicked);
}

void PartImport::Tick(const std::vector<std::size_t>& rows, bool isTicked) {
    for (const std::size_t row : rows)
        TickRows(row, m_rows[row].end, isTicked);
    PlanTicks();
}

void PartImport::TickAll(bool isTicked) {
    TickRows(0, m_rows.size(), isTicked);
    PlanTicks();
}

void PartImport::TickRows(std::size_t first, std::size_t end, bool isTicked) {
    const auto isNew = [this](std::size_t i) { return m_rows[i].isPart && m_rows[i].existing == nullptr; };
    bool hasNew = false;
    for (std::size_t i = first; i < end; ++i)
        hasNew = hasNew || isNew(i);
    for (std::size_t i = first; i < end; ++i)
        if (!isTicked || !hasNew || isNew(i)) m_isChosen[i] = isTicked;
}

// Plans what depends on the ticks.
void PartImport::PlanTicks() {
    m_counts = {};
    m_children.clear();
    m_usedTitles.clear();
    m_titleNumbers.clear();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        PartImportRow& row = m_rows[i];
        row.problem = m_textProblems[i];
        row.isTicked = false;
        row.parts = row.tickedParts = 0;
        if (!row.isPart) continue;
        row.fields.historyTitle.clear();
        row.isTicked = m_isChosen[i] && !row.problem && MakeRoom(row, row.problem);
        if (row.isTicked && !row.fields.historyDir.empty())
            row.fields.historyTitle = UniqueTitle(row.caption);
        if (row.isTicked) ++m_counts.parts;
        if (row.existing != nullptr) ++m_counts.existing;
        if (row.problem) ++m_counts.problems;
    }
    CountFolders();
}

// Counts a part, and the new submenus that it needs, among the children of their submenus. Counts nothing
// when one of them has no room.
bool PartImport::MakeRoom(const PartImportRow& part, std::optional<NeskError>& problem) {
    std::vector<std::size_t> growing; // the submenus that get a child
    std::size_t submenu = m_options.submenus ? part.parent : FoundPart::NoParent;
    for (;;) {
        growing.push_back(submenu);
        // A submenu that exists, or that has a child already, needs no place of its own any more.
        if (submenu == FoundPart::NoParent || m_rows[submenu].existing != nullptr ||
            m_children.contains(submenu))
            break;
        submenu = m_rows[submenu].parent;
    }
    for (const std::size_t i : growing) {
        const MenuEntry* entry = EntryFor(i);
        if (ChildrenOf(i) < static_cast<std::size_t>(MenuItemCollection::MaxCount)) continue;
        const std::string caption = entry != nullptr ? std::string(entry->Caption()) : m_rows[i].caption;
        problem = NeskError(RuntimeError::Overflow, "PartImport", Message::AddPartsNoRoom,
                            {caption, std::to_string(MenuItemCollection::MaxCount)});
        return false;
    }
    for (const std::size_t i : growing)
        m_children[i] = ChildrenOf(i) + 1;
    return true;
}

// The entry that a folder's row, or NoParent, stands for; null for a new submenu.
const MenuEntry* PartImport::EntryFor(std::size_t folder) const {
    return folder == FoundPart::NoParent ? &m_target : m_rows[folder].existing;
}

std::size_t PartImport::ChildrenOf(std::size_t folder) const {
    if (const auto planned = m_children.find(folder); planned != m_children.end()) return planned->second;
    const MenuEntry* entry = EntryFor(folder);
    return static_cast<std::size_t>(entry != nullptr ? entry->ChildCount() : 0);
}

// The history of a part is found by its title.
std::string PartImport::UniqueTitle(const std::string& caption) {
    int& number = m_titleNumbers[ToUpper(caption)];
    std::string title = caption;
    while (m_titles.contains(ToUpper(title)) || !m_usedTitles.insert(ToUpper(title)).second) {
        number = std::max(number, 1) + 1;
        title = caption + " (" + std::to_string(number) + ")";
    }
    return title;
}

void PartImport::CountFolders() {
    std::vector<std::size_t> newParts(m_rows.size()), newTicked(m_rows.size());
    for (std::size_t i = m_rows.size(); i-- > 0;) {
        PartImportRow& row = m_rows[i];
        if (row.isPart) {
            row.parts = row.problem ? 0 : 1;
            row.tickedParts = row.isTicked ? 1 : 0;
            newParts[i] = row.existing == nullptr ? row.parts : 0;
            newTicked[i] = row.existing == nullptr ? row.tickedParts : 0;
        } else {
            row.isTicked = row.tickedParts > 0 && newTicked[i] == newParts[i];
            if (m_options.submenus && row.tickedParts > 0) {
                ++m_counts.submenus;
                if (row.existing == nullptr) ++m_counts.newSubmenus;
            }
        }
        if (row.parent == FoundPart::NoParent) continue;
        PartImportRow& parent = m_rows[row.parent];
        parent.parts += row.parts;
        parent.tickedParts += row.tickedParts;
        newParts[row.parent] += newParts[i];
        newTicked[row.parent] += newTicked[i];
    }
}

EntryIds PartImport::Apply(MenuEditor& editor) const {
    EntryIds added;
    std::vector<std::string> submenus(m_rows.size()); // the ids of the folders' submenus
    const PartImportRow* only = nullptr;
    for (const PartImportRow& row : m_rows)
        if (row.isPart && row.isTicked) only = &row;
    if (only == nullptr) return added;
    const bool isOne = m_counts.parts == 1;
    ChangeName name{isOne ? Message::ChangeAdd : Message::ChangeAddParts,
                    {isOne ? only->caption : std::to_string(m_counts.parts)}};
    MenuEditor::Group group(editor, std::move(name), m_counts.parts + m_counts.newSubmenus);
    const std::string target = m_target.ID();
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const PartImportRow& row = m_rows[i];
        const bool isInTarget = !m_options.submenus || row.parent == FoundPart::NoParent;
        const std::string& parent = isInTarget ? target : submenus[row.parent];
        if (row.isPart && row.isTicked) {
            added.push_back(editor.AddPart(parent, row.caption, row.fields));
        } else if (!row.isPart && m_options.submenus && row.tickedParts > 0) {
            submenus[i] =
                row.existing != nullptr ? row.existing->ID() : editor.AddSubmenu(parent, row.caption);
            if (row.existing == nullptr) added.push_back(submenus[i]);
        }
    }
    group.Commit();
    return added;
}

} // namespace nesk
