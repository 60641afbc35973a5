#pragma once

#include "shell/MessageBoxLayout.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <wx/dialog.h>

class wxButton;
class wxSizer;
class wxStaticBitmap;
class wxTextCtrl;

namespace nesk {

/// The program's own message box. Its options and results are those of modMessageBox. Its text can be
/// selected and copied, and a long text scrolls. Ctrl+C copies the whole text when nothing is selected.
class FormMessageBox : public wxDialog {
public:
    explicit FormMessageBox(wxWindow* parent);

    /// Shows a message in front of the modal dialog that was opened last, or of the application's top window,
    /// and waits for a button. This is the hook of modMessageBox.
    static std::int16_t ShowInFront(const std::string& text, std::int16_t options, const std::string& title);

    /// Shows a message and waits for a button. It replaces the message of an earlier call.
    /// @return result code of the button; 0 when the box was closed without a button
    std::int16_t Initialize(const std::string& sText, std::int16_t iOptions, const std::string& sTitle);

    /// Shows a message with an OK button and no icon.
    void Display(const std::string& s1, const std::string& s2);

    /// Asks a question. Returns true when the user answered "Yes".
    bool YesNo(const std::string& s1, const std::string& s2);

    /// Result code of the button that was pressed; 0 before that.
    std::int16_t ReturnCode() const { return m_returnCode; }
    void SetReturnCode(std::int16_t value) { m_returnCode = value; }

    // Controls. The buttons are named cmdButton1, cmdButton2, ... from left to right.
    std::vector<wxButton*> cmdButton;
    wxStaticBitmap* picIcon = nullptr;
    wxTextCtrl* lblMsg = nullptr; ///< looks like a label

private:
    void BuildControls(const std::string& text);
    wxSizer* MakeButtons();
    void MakeText(const std::string& text);
    void CopyText();
    std::optional<std::size_t> DefaultIndex() const;
    void FocusDefault();
    void Finish(std::int16_t resultCode);
    void OnKey(wxKeyEvent& event);
    void OnCloseBox(wxCloseEvent& event);

    MessageBoxLayout m_layout;
    std::int16_t m_returnCode = 0;
};

} // namespace nesk
