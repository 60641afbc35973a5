#pragma once

#include "platform/Languages.h"
#include "widgets/FormDialog.h"

#include <vector>

class wxListBox;
class wxStaticText;

namespace nesk {

/// A dialog to choose the language that the program speaks from its next start.
class FormLanguage : public FormDialog {
public:
    explicit FormLanguage(wxWindow* parent);

    /// Shows the dialog.
    /// @return true when a language was stored
    bool Invoke();

    // Controls.
    wxStaticText* lblLanguage = nullptr;
    wxListBox* lstLanguage = nullptr;
    wxStaticText* lblNote = nullptr;
    wxStaticText* lblCodePage = nullptr; ///< shown for a language of another code page

protected:
    void OnOK() override;

private:
    const platform::Language* Selected() const;
    void ShowCodePage();

    std::vector<const platform::Language*> m_languages;
};

} // namespace nesk
