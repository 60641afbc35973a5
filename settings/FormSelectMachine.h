#pragma once

#include "settings/FormSelectFromList.h"

namespace nesk {

/// Picks the measuring machine that the operator interface drives.
class FormSelectMachine : public FormSelectFromList {
public:
    explicit FormSelectMachine(wxWindow* parent);

    /// Shows the dialog.
    /// @return the machine key, as "Machines\M1"; "" when nothing was chosen
    std::string SelectMachine() { return Choose(); }
};

} // namespace nesk
