#pragma once

#include "settings/FormSelectFromList.h"

namespace nesk {

/// A dialog to select the user that the operator interface runs as.
class FormSelectUser : public FormSelectFromList {
public:
    explicit FormSelectUser(wxWindow* parent);

    /// Shows the dialog.
    /// @param current  key of the user that is selected initially; "" for no selection
    /// @param stored   key of the user in the settings; "" for no user. Neither user can be removed.
    /// @return the user key, for example "Users\U1"; "" when no user was selected
    std::string SelectUser(const std::string& current = "", const std::string& stored = "") {
        return Choose(current, stored);
    }
};

} // namespace nesk
