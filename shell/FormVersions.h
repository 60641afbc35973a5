#pragma once

#include "versions/VersionStore.h"
#include "widgets/FormDialog.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class wxIdleEvent;

namespace nesk {

class Menu;
class MenuEditor;
class UiRowList;

/// Lists the earlier versions of the open menu, shows how they differ, and restores one of them, or entries
/// of one.
class FormVersions : public FormDialog {
public:
    /// @param editor  with an open menu
    FormVersions(wxWindow* parent, MenuEditor& editor);
    ~FormVersions() override;

    /// Shows the dialog.
    /// @return true when something was restored
    bool Invoke();

    /// True when the entries and the changes of all versions are listed.
    bool IsListed() const { return m_read == m_rows.size(); }

    // Controls.
    wxStaticText* lblVersions = nullptr;
    UiRowList* lstVersions = nullptr;
    wxStaticText* lblHint = nullptr;
    wxButton* cmdCompare = nullptr;

protected:
    /// Restores the selected version.
    void OnOK() override;

private:
    // A version, and what has been found out about it.
    struct Row {
        MenuVersion version;
        std::string entries;
        std::string changes;
    };

    static std::string TextAt(const Row& row, int column);
    void OnIdle(wxIdleEvent& event);
    void ReadNext();
    void OnSelection();
    void Compare();
    void CompareWithOpen(const Row& row);
    void CompareTwo(const Row& older, const Row& newer);
    std::unique_ptr<Menu> Read(const Row& row);

    MenuEditor& m_editor;
    std::vector<Row> m_rows;       // the newest first
    std::size_t m_read = 0;        // rows before it are filled in
    std::unique_ptr<Menu> m_newer; // the version before m_read, when it can be read
};

} // namespace nesk
