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

/// A dialog to edit a part-program button: its program, pictures, help and history. It works on copies, and
/// does not check whether the files and folders exist. A text that the menu file cannot store is reported
/// when the user confirms the dialog, and the dialog stays open.
class FormEditPart : public FormDialog {
public:
    /// @param screenWidth  in pixels. Up to 640, the menu picture has no frame of its own and is chosen by
    ///                     cmdMenuPicture.
    FormEditPart(wxWindow* parent, int screenWidth);

    /// Shows the dialog for a button.
    /// @param caption  the button's caption, for the title
    /// @param fields   the initial values; replaced by the input when the user confirms the dialog
    /// @return true when the user confirmed the dialog
    bool Edit(const std::string& caption, PartFields& fields);

    /// Shows the dialog for an item and sets the item's fields when the user confirms the dialog. For null,
    /// shows nothing and returns false.
    bool Edit(MenuItem* item);

    // Controls.
    wxStaticText* lblPartName = nullptr;
    wxTextCtrl* txtPartName = nullptr;
    wxButton* cmdSelectPart = nullptr;
    wxStaticText* lblDescription = nullptr;
    wxStaticText* lblProblem = nullptr; ///< the problem with the part; "" when there is no problem
    wxButton* cmdSlideShow = nullptr;
    wxWindow* Frame1 = nullptr;
    FormPicture* picItemHost = nullptr;
    wxButton* cmdMenuSelect = nullptr;
    wxButton* cmdMenuDelete = nullptr;
    wxButton* cmdMenuPicture = nullptr;
    FormPicture* picCompact = nullptr; ///< the menu picture on a small screen; cannot be changed here
    wxWindow* Frame2 = nullptr;
    FormPicture* picPreviewHost = nullptr;
    wxButton* cmdPreviewSelect = nullptr;
    wxButton* cmdPreviewDelete = nullptr;
    wxWindow* Frame3 = nullptr;
    // The boxes show the values that the dialogs of the two buttons edit.
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

    const bool m_compact; // true for the layout for a small screen
    std::string m_caption;
    PartFields m_fields; // help and history, which have no editable controls here
    PartFields m_before; // the initial values
    ShownText m_program;
};

} // namespace nesk
