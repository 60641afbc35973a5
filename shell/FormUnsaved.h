#pragma once

#include "widgets/FormDialog.h"

#include <functional>
#include <string>

namespace nesk {

/// Offers unsaved changes that a killed editor left: to restore or to discard them, to look at them, or to
/// decide later.
class FormUnsaved : public FormDialog {
public:
    enum class Answer { Restore, Discard, Later };

    /// @param question  when the changes were made and how many there are
    /// @param notes     what else the user has to know; "" for nothing
    FormUnsaved(wxWindow* parent, const std::string& question, const std::string& notes);

    /// Shows the dialog. Closing it without an answer means Later: nothing is lost.
    /// @param look  shows what the changes are
    Answer Invoke(std::function<void()> look);

    // Controls.
    wxStaticText* lblQuestion = nullptr;
    wxStaticText* lblNotes = nullptr;
    wxButton* cmdLook = nullptr;
    wxButton* cmdDiscard = nullptr;

protected:
    /// Restores the changes.
    void OnOK() override { Accept(); }

private:
    wxStaticText* NewText(const char* name, const std::string& text);

    std::function<void()> m_look;
};

} // namespace nesk
