#pragma once

#include "checking/Replacement.h"
#include "widgets/FormDialog.h"

#include <array>
#include <string>
#include <vector>

class wxCheckBox;

namespace nesk {

class MenuEditor;
class UiRowList;

/// Replaces a text in many entries: shows every change before it is made, each with a tick.
class FormReplace : public FormDialog {
public:
    /// @param editor  with an open menu
    FormReplace(wxWindow* parent, MenuEditor& editor);
    ~FormReplace() override;

    /// Shows the dialog, and makes the changes when the user confirms them.
    /// @param find  the text to begin with
    /// @return true when the changes were made
    bool Invoke(const std::string& find);

    /// The changes that are listed.
    const std::vector<TextChange>& Changes() const { return m_changes; }

    // Controls.
    wxStaticText* lblFind = nullptr;
    wxTextCtrl* txtFind = nullptr;
    wxStaticText* lblReplacement = nullptr;
    wxTextCtrl* txtReplacement = nullptr;
    std::array<wxCheckBox*, TextFieldCount>
        chkField{}; ///< chkField0, chkField1, ..., in the order of TextField
    wxCheckBox* chkMatchCase = nullptr;
    wxStaticText* lblChanges = nullptr;
    UiRowList* lstChanges = nullptr;
    wxButton* cmdAll = nullptr;
    wxButton* cmdNone = nullptr;
    wxStaticText* lblCount = nullptr; ///< how many changes are ticked

protected:
    void OnOK() override;

private:
    void BuildTexts(wxSizer& content);
    void BuildList(wxSizer& content);
    void Plan();
    void TickAll(bool isChosen);
    void TickSelected();
    void ShowCount();
    std::string TextAt(std::size_t row, int column) const;

    MenuEditor& m_editor;
    std::vector<TextChange> m_changes;
};

} // namespace nesk
