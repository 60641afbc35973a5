#pragma once

#include "settings/RegistryList.h"
#include "widgets/FormDialog.h"

#include <string>
#include <vector>

class wxListBox;
class wxStaticText;

namespace nesk {

/// Picks one entry of a list that is kept in the registry, by its display name.
class FormSelectFromList : public FormDialog {
public:
    // Controls.
    wxListBox* lstMain = nullptr;
    wxStaticText* lblEmpty = nullptr; ///< shown while the list is empty: where its entries come from
    wxButton* cmdAdd = nullptr;       ///< null, like the next, where other software makes the list
    wxButton* cmdRemove = nullptr;

protected:
    /// Reads the list; a failure is reported before the dialog is shown, which then offers nothing.
    /// @param name       class name
    /// @param titleId    message number of the title
    /// @param helpTopic  topic of the Help button
    /// @param parentKey  registry key whose subkeys are the entries
    /// @param emptyId    message number of what an empty list says where other software makes it
    /// @param addFirstId the same where it is made here
    FormSelectFromList(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic,
                       const std::string& parentKey, int emptyId, int addFirstId);

    /// Shows the dialog.
    /// @param current  key of the entry that is selected at first; "" for none
    /// @param stored   key of the entry that the settings name; "" for none. Neither can be removed.
    /// @return the registry key of the entry chosen; "" when none was
    std::string Choose(const std::string& current, const std::string& stored);

    void OnOK() override;

private:
    void UpdateButtons();
    void ShowEntries();
    void OnAdd();
    void OnRemove();
    void Guarded(void (FormSelectFromList::*act)());

    std::string m_parentKey;
    RegistryList m_entries;
    std::vector<std::string> m_inUse; // keys of the entries that must stay
    std::string m_result;
};

} // namespace nesk
