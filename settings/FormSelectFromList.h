#pragma once

#include "settings/RegistryList.h"
#include "shell/FormDialog.h"

#include <string>

class wxListBox;

namespace nesk {

/// Picks one entry of a list that is kept in the registry, by its display name.
class FormSelectFromList : public FormDialog {
public:
    // Controls.
    wxListBox* lstMain = nullptr;

protected:
    /// Reads the list; a failure is reported before the dialog is shown, which then offers nothing.
    /// @param name       class name
    /// @param titleId    message number of the title
    /// @param helpTopic  topic of the Help button
    /// @param parentKey  registry key whose subkeys are the entries
    FormSelectFromList(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic,
                       const std::string& parentKey);

    /// Shows the dialog.
    /// @param current  key of the entry that is selected at first; "" for none
    /// @return the registry key of the entry chosen; "" when none was
    std::string Choose(const std::string& current);

    void OnOK() override;

private:
    void UpdateButtons();

    RegistryList m_entries;
    std::string m_result;
};

} // namespace nesk
