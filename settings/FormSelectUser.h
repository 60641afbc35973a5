#pragma once

#include "settings/FormSelectFromList.h"

namespace nesk {

/// Picks the user as which the operator interface runs.
class FormSelectUser : public FormSelectFromList {
public:
    explicit FormSelectUser(wxWindow* parent);

    /// Shows the dialog.
    /// @param current  key of the user that is selected at first; "" for none
    /// @param stored   key of the user that the settings name, which cannot be removed either; "" for none
    /// @return the user key, as "Users\U1"; "" when nothing was chosen
    std::string SelectUser(const std::string& current = "", const std::string& stored = "") {
        return Choose(current, stored);
    }
};

} // namespace nesk
