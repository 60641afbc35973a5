#pragma once

#include "widgets/FormDialog.h"

#include <array>
#include <string>

class wxChoice;
class wxRadioButton;
class wxStaticText;

namespace nesk {

/// A dialog to choose whether part programs are searched for in the repository or on a whole drive.
class FormSelectDrive : public FormDialog {
public:
    explicit FormSelectDrive(wxWindow* parent);

    /// Shows the dialog.
    /// @param current  path on the drive that is selected initially; "" for the first drive
    /// @return "*" for the repository, a root such as "C:\" for a drive, "" when cancelled
    std::string SelectDrive(const std::string& current = "");

    // Controls. The option buttons are named optDrive0 (repository) and optDrive1 (a drive).
    std::array<wxRadioButton*, 2> optDrive{};
    wxStaticText* lblSelectDrive = nullptr;
    wxChoice* drvSelect = nullptr;

protected:
    void OnOK() override { Accept(); }
    void OnCancel() override;

private:
    void ChooseOption(std::size_t index);
    std::string CurrentDrive() const;

    std::string m_result;
};

} // namespace nesk
