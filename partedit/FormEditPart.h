#pragma once

#include "menu/PartFields.h"
#include "widgets/FormDialog.h"
#include "widgets/UiShownText.h"

#include <string>

class wxStaticBoxSizer;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

class FormPicture;
class FormReadOnlyText;
class MenuItem;

/// Edits one part-program button: its program, pictures, help and history. It works on copies; whether what
/// they name exists is not checked. A text that the menu file cannot hold is reported when the dialog is
/// confirmed, and the dialog stays open.
class FormEditPart : public FormDialog {
public:
    /// @param screenWidth  in pixels. Up to 640 the menu picture has no frame of its own and is chosen by
    ///                     cmdMenuPicture.
    FormEditPart(wxWindow* parent, int screenWidth);

    /// Shows the dialog for a button.
    /// @param caption  the button's caption, for the title
    /// @param fields   what the dialog starts with; replaced by what was entered when it is confirmed
    /// @return true when the dialog was confirmed
    bool Edit(const std::string& caption, PartFields& fields);

    /// The same for an item, which gets the fields when the dialog is confirmed. Null is not shown and not
    /// confirmed.
    bool Edit(MenuItem* item);

    // Controls.
    wxStaticText* lblPartName = nullptr;
    wxTextCtrl* txtPartName = nullptr;
    wxButton* cmdSelectPart = nullptr;
    wxStaticText* lblDescription = nullptr;
    wxStaticText* lblProblem = nullptr; ///< what is wrong with the part; "" when nothing is
    wxButton* cmdSlideShow = nullptr;
    wxWindow* Frame1 = nullptr;
    FormPicture* picItemHost = nullptr;
    wxButton* cmdMenuSelect = nullptr;
    wxButton* cmdMenuDelete = nullptr;
    wxButton* cmdMenuPicture = nullptr;
    FormPicture* picCompact = nullptr; ///< the menu picture on a small screen; only shows it
    wxWindow* Frame2 = nullptr;
    FormPicture* picPreviewHost = nullptr;
    wxButton* cmdPreviewSelect = nullptr;
    wxButton* cmdPreviewDelete = nullptr;
    wxWindow* Frame3 = nullptr;
    // The boxes show what the dialogs of the two buttons are about.
    wxButton* cmdHelpFile = nullptr;
    FormReadOnlyText* txtHelpFile = nullptr;
    FormReadOnlyText* txtHelpTopic = nullptr;
    wxButton* cmdHistory = nullptr;
    FormReadOnlyText* txtHistoryDir = nullptr;
    FormReadOnlyText* txtHistoryTitle = nullptr;

protected:
    void OnOK() override;

private:
    wxSizer* MakeProgramRows();
    wxWindow* MakeMenuPictureFrame();
    wxSizer* MakeCompactPicture();
    wxWindow* MakePreviewFrame();
    wxWindow* MakeHelpFrame();
    void BindControls();
    std::string Program() const;
    PartFields Entered() const;
    void RefreshDescription();
    void ShowHelpAndHistory();
    void SelectPart();
    void EditPartInformation();
    void ChooseFromLibrary();

    const bool m_compact; // the layout for a small screen
    std::string m_caption;
    PartFields m_fields; // what has no control of its own: help and history
    PartFields m_before; // what the dialog was opened with
    ShownText m_program;
};

} // namespace nesk
