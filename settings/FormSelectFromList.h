#pragma once

#include "settings/RegistryList.h"
#include "widgets/FormDialog.h"

#include <string>
#include <vector>

class wxListBox;
class wxStaticText;

namespace nesk {

/// A dialog to select an entry of a list in the registry by its display name.
class FormSelectFromList : public FormDialog {
public:
    // Controls.
    wxListBox* lstMain = nullptr;
    wxStaticText* lblEmpty = nullptr; ///< shown while the list is empty: says where its entries come from
    wxButton* cmdAdd = nullptr;       ///< null, like cmdRemove, when other software maintains the list
    wxButton* cmdRemove = nullptr;

protected:
    /// Reads the list. A failure is reported before the dialog is shown, and the dialog's list is then empty.
    /// @param name       class name
    /// @param titleId    message number of the title
    /// @param helpTopic  topic of the Help button
    /// @param parentKey  registry key whose subkeys are the entries
    /// @param emptyId    message number of the text for an empty list when other software maintains the list
    /// @param addFirstId message number of the text for an empty list when this program maintains the list
    FormSelectFromList(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic,
                       const std::string& parentKey, int emptyId, int addFirstId);

    /// Shows the dialog.
    /// @param current  key of the entry that is selected initially; "" for no selection
    /// @param stored   key of the entry in the settings; "" for no entry. Neither entry can be removed.
    /// @return the registry key of the selected entry; "" when no entry was selected
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
    std::vector<std::string> m_inUse; // keys of the entries that must not be removed
    std::string m_result;
};

} // namespace nesk
