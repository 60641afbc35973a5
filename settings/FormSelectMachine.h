#pragma once

#include "settings/FormSelectFromList.h"

namespace nesk {

/// A dialog to select the measuring machine that the operator interface controls.
class FormSelectMachine : public FormSelectFromList {
public:
    explicit FormSelectMachine(wxWindow* parent);

    /// Shows the dialog.
    /// @param current  key of the machine that is selected initially; "" for no selection
    /// @param stored   key of the machine in the settings; "" for no machine. Neither machine can be removed.
    /// @return the machine key, for example "Machines\M1"; "" when no machine was selected
    std::string SelectMachine(const std::string& current = "", const std::string& stored = "") {
        return Choose(current, stored);
    }
};

} // namespace nesk
