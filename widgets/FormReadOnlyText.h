#pragma once

#include <wx/textctrl.h>

namespace nesk {

/// A read-only text box. It looks like a control that cannot be edited. On all systems it can be reached with
/// Tab, so that the keyboard is enough to read a text that is longer than the box. The tooltip also shows the
/// whole text.
class FormReadOnlyText : public wxTextCtrl {
public:
    /// @param name   control name, for example "txtMachine"
    /// @param width  in device-independent pixels
    FormReadOnlyText(wxWindow* parent, const char* name, int width);

    /// From now on shows the end of a text that is longer than the box, because the end is the most useful
    /// part of a path.
    void KeepEndInView();

    // On Windows, wx excludes read-only boxes from the Tab order.
    bool AcceptsFocusFromKeyboard() const override { return AcceptsFocus(); }
};

} // namespace nesk
