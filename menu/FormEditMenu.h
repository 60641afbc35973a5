#pragma once

#include "widgets/FormDialog.h"

#include <optional>
#include <string>

namespace nesk {

class FormPicture;
class MenuItem;

/// Chooses the picture of a submenu button; the title is the submenu's caption.
class FormEditMenu : public FormDialog {
public:
    explicit FormEditMenu(wxWindow* parent);

    /// Shows the dialog for an item.
    /// @return the picture for the item's Graphic; nothing when the dialog was cancelled
    std::optional<std::string> Edit(const MenuItem& objItem);

    // Controls.
    FormPicture* picItemHost = nullptr;
    wxButton* cmdPicture = nullptr;
    wxButton* cmdDelete = nullptr;

protected:
    void OnOK() override;

private:
    std::string m_before; // the picture that the item has
};

} // namespace nesk
