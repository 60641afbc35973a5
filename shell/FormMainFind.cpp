// The main window's commands that find and replace.

#include "shell/FormMain.h"

#include "checking/FormChangeFolder.h"
#include "checking/FormReplace.h"
#include "settings/WindowMemory.h"
#include "shell/FormFinder.h"
#include "shell/FormMenuTree.h"
#include "widgets/UiRowList.h"

#include <string>
#include <utility>
#include <vector>

namespace nesk {

namespace {

// Gives the columns of a list the widths that the user gave them before, and remembers those that the user
// changes.
class RememberedColumns {
public:
    RememberedColumns(WindowMemory& memory, std::string name, UiRowList& list)
        : m_memory(memory), m_name(std::move(name)), m_list(list) {
        for (int i = 0; i < list.GetColumnCount(); ++i)
            if (const auto width = memory.Number(NameOf(i)); width && *width > 0 && *width <= WidestColumn)
                list.SetColumnWidth(i, list.FromDIP(*width));
        m_before = list.ColumnWidths();
    }
    ~RememberedColumns() {
        const std::vector<int> after = m_list.ColumnWidths();
        for (std::size_t i = 0; i < after.size(); ++i)
            if (after[i] != m_before[i]) m_memory.SetNumber(NameOf(static_cast<int>(i)), after[i]);
    }
    RememberedColumns(const RememberedColumns&) = delete;
    RememberedColumns& operator=(const RememberedColumns&) = delete;

private:
    static constexpr int WidestColumn = 5000;

    std::string NameOf(int column) const { return m_name + "Column" + std::to_string(column + 1); }

    WindowMemory& m_memory;
    std::string m_name;
    UiRowList& m_list;
    std::vector<int> m_before;
};

} // namespace

void FormMain::Find() {
    if (FinishLabelEdit()) m_finder->Begin();
}

void FormMain::FindNext() {
    if (FinishLabelEdit()) m_finder->Next();
}

void FormMain::FindPrevious() {
    if (FinishLabelEdit()) m_finder->Previous();
}

void FormMain::ShowMatches() {
    if (FinishLabelEdit()) m_finder->ToggleFilter();
}

void FormMain::Replace() {
    if (!FinishLabelEdit()) return;
    FormReplace dialog(this, m_editor);
    const RememberedColumns columns(m_memory, "Replace", *dialog.lstChanges);
    dialog.Invoke(m_finder->Text());
}

void FormMain::ChangeFolder() {
    if (!FinishLabelEdit()) return;
    FormChangeFolder dialog(this, m_editor);
    const RememberedColumns columns(m_memory, "ChangeFolder", *dialog.lstFolders);
    dialog.Invoke();
}

} // namespace nesk
