#pragma once

#include "settings/FormSelectFromList.h"

namespace nesk {

/// Picks the measuring machine that the operator interface drives.
class FormSelectMachine : public FormSelectFromList {
public:
    explicit FormSelectMachine(wxWindow* parent);

    /// Shows the dialog.
    /// @param current  key of the machine that is selected at first; "" for none
    /// @param stored   key of the machine that the settings name, which cannot be removed either; "" for none
    /// @return the machine key, as "Machines\M1"; "" when nothing was chosen
    std::string SelectMachine(const std::string& current = "", const std::string& stored = "") {
        return Choose(current, stored);
    }
};

} // namespace nesk
