#pragma once

#include "widgets/FormDialog.h"

#include <optional>
#include <string>

namespace nesk {

class FormPicture;
class MenuItem;

/// A dialog to choose the picture of a submenu button. Its title is the submenu's caption.
class FormEditMenu : public FormDialog {
public:
    explicit FormEditMenu(wxWindow* parent);

    /// Shows the dialog for an item.
    /// @return the picture for the item's Graphic; nothing when the user cancelled the dialog
    std::optional<std::string> Edit(const MenuItem& objItem);

    // Controls.
    FormPicture* picItemHost = nullptr;
    wxButton* cmdPicture = nullptr;
    wxButton* cmdDelete = nullptr;

protected:
    void OnOK() override;

private:
    std::string m_before; // the item's current picture
};

} // namespace nesk
