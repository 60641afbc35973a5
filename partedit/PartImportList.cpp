#include "partedit/PartImportList.h"

#include "base/AddPartsMessages.h"
#include "menu/MenuItem.h"
#include "shell/modStringRes.h"
#include "shell/modUtilities.h"

#include <algorithm>
#include <memory>

namespace nesk {

namespace {

using modStringRes::FormatResString;
using modStringRes::LoadResString;

constexpr std::size_t IndentOfLevel = 4;
// The list would be empty to the right of a deeper level.
constexpr std::size_t DeepestIndent = 10;

// A black triangle that points down or right, as trees have it.
constexpr const char* OpenMark = "\xE2\x96\xBE ";
constexpr const char* ClosedMark = "\xE2\x96\xB8 ";

std::string FileName(std::string_view path) {
    return std::string(path.substr(path.rfind('\\') + 1));
}

std::string ExistingText(const PartImportRow& row) {
    if (row.existing == nullptr) return "";
    if (!row.isPart) return row.tickedParts > 0 ? LoadResString(Message::AddPartsSubmenuUsed) : "";
    return FormatResString(Message::AddPartsIn, std::string(row.existing->ParentMenu()->Caption()));
}

std::string NoteText(const PartImportRow& row) {
    if (row.problem) return modUtilities::MessageText(*row.problem);
    const std::string& title = row.fields.historyTitle;
    // Else the title is the caption.
    return title.empty() || title == row.caption ? "" : FormatResString(Message::AddPartsHistoryTitle, title);
}

} // namespace

void PartImportList::Show(const PartImport* plan) {
    m_plan = plan;
    m_isClosed.assign(plan != nullptr ? plan->Rows().size() : 0, false);
    m_typeAhead.Reset();
    FindLines();
}

void PartImportList::FindLines() {
    m_lines.clear();
    while (m_names.ChildCount() > 0)
        m_names.Take(m_names.ChildCount() - 1);
    m_names.SetExpanded(true);
    if (m_plan == nullptr) return;
    const std::vector<PartImportRow>& rows = m_plan->Rows();
    for (std::size_t i = 0; i < rows.size(); i = m_isClosed[i] ? rows[i].end : i + 1) {
        m_lines.push_back(i);
        m_names.Insert(m_names.ChildCount(), std::make_unique<platform::TreeNode>(rows[i].name, 0, ""));
    }
}

std::string PartImportList::Text(std::size_t line, int column) const {
    const PartImportRow& row = m_plan->Rows()[m_lines[line]];
    switch (column) {
    case FolderColumn: {
        const std::string indent(IndentOfLevel * std::min(row.level, DeepestIndent), ' ');
        if (row.isPart) return indent + row.name;
        return indent + (m_isClosed[m_lines[line]] ? ClosedMark : OpenMark) + row.name + " " +
               FormatResString(Message::AddPartsFolderCount, row.tickedParts, row.parts);
    }
    case CaptionColumn: return row.caption;
    case PictureColumn: return FileName(row.fields.graphic);
    case ExistingColumn: return ExistingText(row);
    default: return NoteText(row);
    }
}

bool PartImportList::Toggle(std::size_t line) {
    const std::size_t row = m_lines[line];
    if (m_plan->Rows()[row].isPart) return false;
    m_isClosed[row] = !m_isClosed[row];
    FindLines();
    return true;
}

std::size_t PartImportList::Left(std::size_t line) {
    const std::size_t row = m_lines[line];
    const PartImportRow& shown = m_plan->Rows()[row];
    if (!shown.isPart && !m_isClosed[row]) {
        Toggle(line);
        return line;
    }
    const auto parent = std::lower_bound(m_lines.begin(), m_lines.end(), shown.parent);
    return parent != m_lines.end() ? static_cast<std::size_t>(parent - m_lines.begin()) : line;
}

std::size_t PartImportList::Right(std::size_t line) {
    const std::size_t row = m_lines[line];
    if (m_plan->Rows()[row].isPart) return line;
    if (!m_isClosed[row]) return line + 1; // each folder contains something
    Toggle(line);
    return line;
}

std::size_t PartImportList::Type(std::string_view characters, std::size_t line,
                                 platform::TypeAhead::Clock::time_point now) {
    platform::TreeNode* const current = line < m_names.ChildCount() ? &m_names.Child(line) : nullptr;
    const platform::TreeNode* const found = m_typeAhead.Type(characters, m_names, current, now);
    return found != nullptr && found->Parent() != nullptr ? found->Index() : line;
}

std::string PartImportCountText(const PartImport& plan) {
    const PartImport::Counts& counts = plan.Count();
    std::string text = plan.Options().submenus ? FormatResString(Message::AddPartsCount, counts.parts,
                                                                 counts.submenus, counts.newSubmenus)
                                               : FormatResString(Message::AddPartsCountFlat, counts.parts);
    if (counts.existing > 0)
        text.append(1, ' ').append(FormatResString(Message::AddPartsCountExisting, counts.existing));
    if (counts.problems > 0)
        text.append(1, ' ').append(FormatResString(Message::AddPartsCountProblems, counts.problems));
    return text;
}

} // namespace nesk
