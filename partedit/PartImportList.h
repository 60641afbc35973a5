#pragma once

#include "partedit/PartImport.h"
#include "platform/TreeNode.h"
#include "platform/TypeAhead.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// The lines in which a plan is shown: a tree as a list with indents, in which folders can be closed, and
/// which is searched by typing. Lines count from 0.
class PartImportList {
public:
    /// The columns of a line.
    enum Column { FolderColumn, CaptionColumn, PictureColumn, ExistingColumn, NoteColumn, ColumnCount };

    /// Shows a plan with all folders open; null for none.
    /// @param plan  must outlive the object, or the next call
    void Show(const PartImport* plan);

    /// Number of lines.
    std::size_t Count() const { return m_lines.size(); }

    /// The row of the plan that a line shows.
    std::size_t RowOf(std::size_t line) const { return m_lines[line]; }

    /// The text in a column.
    std::string Text(std::size_t line, int column) const;

    /// Closes the folder in a line and returns the line. For a part or a closed folder, returns the line of
    /// the folder that contains it.
    std::size_t Left(std::size_t line);

    /// Opens the folder in a line and returns the line. For an open folder, returns the line after it.
    std::size_t Right(std::size_t line);

    /// Opens or closes the folder in a line. Returns false for a part.
    bool Toggle(std::size_t line);

    /// True while a search is being typed; a space then belongs to it.
    bool IsTyping(platform::TypeAhead::Clock::time_point now) const { return m_typeAhead.IsTyping(now); }

    /// Searches for typed characters as TypeAhead does, in the names of the folders and parts.
    /// @param line  the current line
    /// @return the line found; `line` when none matches
    std::size_t Type(std::string_view characters, std::size_t line,
                     platform::TypeAhead::Clock::time_point now);

private:
    void FindLines();

    const PartImport* m_plan = nullptr;
    std::vector<bool> m_isClosed;     // by row
    std::vector<std::size_t> m_lines; // the rows that are shown
    platform::TypeAhead m_typeAhead;
    platform::TreeNode m_names{"", 0, ""}; // one child a line, for the search
};

/// What a plan amounts to, for example "Parts to add: 3. Submenus: 1, of them new: 1."
std::string PartImportCountText(const PartImport& plan);

} // namespace nesk
