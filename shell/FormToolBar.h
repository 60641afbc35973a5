#pragma once

#include "shell/MainCommands.h"

#include <wx/toolbar.h>

namespace nesk {

/// A tool bar with a button for each command of the table that asks for one. A button shows the picture of
/// its command, and as its tooltip the name and the key. A control that is added later (AddControl and
/// Realize) is at the right end.
class FormToolBar : public wxToolBar {
public:
    /// @param name  control name, for example "tbMain"
    FormToolBar(wxFrame* parent, const char* name);

    /// Enables or disables the button of a command. Does nothing for a command without a button.
    void EnableCommand(MainCommand command, bool enable);
};

} // namespace nesk
