#pragma once

#include "widgets/FormDialog.h"

#include <string>

namespace nesk {

class FormPicture;
class MenuItem;

/// Chooses the picture of a submenu button; the title is the submenu's caption.
class FormEditMenu : public FormDialog {
public:
    explicit FormEditMenu(wxWindow* parent);

    /// Shows the dialog for an item. On OK the item's Graphic is replaced; otherwise the item is unchanged.
    /// @return true when the dialog was confirmed
    bool Edit(MenuItem& objItem);

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
