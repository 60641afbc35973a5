#pragma once

#include "shell/MainCommands.h"

#include <wx/toolbar.h>

class wxSearchCtrl;

namespace nesk {

/// A tool bar with a button for each command of the table that asks for one. A button shows the picture of
/// its command, and as its tooltip the name and the key. The box in which a text to find is typed is at the
/// right end.
class FormToolBar : public wxToolBar {
public:
    /// @param controlName  for example "tbMain"
    FormToolBar(wxFrame* parent, const char* controlName);

    /// Enables or disables the button of a command. Does nothing for a command without a button.
    void EnableCommand(MainCommand command, bool enable);

    /// True when the bar is shown and has room for the box.
    bool ShowsFindBox() const;

    // Controls.
    wxSearchCtrl* txtFind = nullptr;
};

} // namespace nesk
