#pragma once

#include <cstdint>
#include <string>

#include <wx/dialog.h>

class wxButton;
class wxSizer;
class wxStaticBoxSizer;
class wxStaticText;
class wxTextCtrl;

namespace nesk {

/// The base class of the program's dialogs: paddings, the row of buttons with its texts, Enter, Escape and
/// F1.
///
/// The constructor of a dialog creates its controls, puts them into one sizer and calls Finish at the end.
class FormDialog : public wxDialog {
public:
    // Controls; cmdHelp is null in a dialog without help.
    wxButton* cmdOK = nullptr;
    wxButton* cmdCancel = nullptr;
    wxButton* cmdHelp = nullptr;
    wxStaticText* lblReason = nullptr; ///< the reason why a field is invalid; hidden when there is no reason

protected:
    /// @param name       class name; also the window name
    /// @param titleId    message number of the title
    /// @param helpTopic  topic of the Help button and of F1; 0 for a dialog without help
    FormDialog(wxWindow* parent, const char* name, int titleId, std::int32_t helpTopic);

    /// Adds the content and the row of buttons to the dialog, sets the common font and the smallest size that
    /// fits, and centres the dialog on its parent.
    /// @param content  the dialog's controls without the buttons
    void Finish(wxSizer* content);

    /// Gives the dialog the smallest size again that fits, after its controls have changed. Lists begin at
    /// their preferred size as far as the screen has room, and can be made smaller.
    void FitToContent();

    /// Handles cmdOK. The implementation closes the dialog with Accept.
    virtual void OnOK() = 0;

    /// Handles cmdCancel and Escape. It also handles the close box unless OnCloseBox is overridden.
    virtual void OnCancel() { EndModal(wxID_CANCEL); }

    /// Handles the close box of the title bar.
    virtual void OnCloseBox() { OnCancel(); }

    /// Shows above the buttons why a field is invalid, until OK is pressed again. The dialog grows if
    /// necessary. An empty reason hides the line.
    void ShowReason(const std::string& reason);

    /// Closes the dialog with wxID_OK.
    void Accept() { EndModal(wxID_OK); }

    /// Creates a button with a text by number. `name` is its control name.
    static wxButton* NewButton(wxWindow* parent, const char* name, int textId);

    /// Creates a label with a text by number. Its access key selects the control that is created next.
    static wxStaticText* NewLabel(wxWindow* parent, const char* name, int textId);

    /// Creates a text box of one line.
    wxTextCtrl* NewTextBox(wxWindow* parent, const char* name);

    /// Creates a frame with a title by number. The frame is wide enough for the title. `name` is the window
    /// name of its box. Add the window from FrameWindow to a sizer, not the frame.
    wxStaticBoxSizer* NewFrame(const char* name, int textId);

    /// The window that contains only this frame.
    static wxWindow* FrameWindow(const wxStaticBoxSizer& frame);

    /// Space between controls, in pixels.
    int Gap() const { return FromDIP(8); }

private:
    void ShowHelp();

    std::int32_t m_helpTopic;
};

} // namespace nesk
