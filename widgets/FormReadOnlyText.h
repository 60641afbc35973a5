#pragma once

#include <wx/textctrl.h>

namespace nesk {

/// A box that shows a text which is chosen elsewhere. It looks as what cannot be edited does, and yet Tab
/// leads to it everywhere, so that the keyboard alone reaches a text that is longer than its box. The whole
/// text is in the tooltip as well.
class FormReadOnlyText : public wxTextCtrl {
public:
    /// @param name   control name, as "txtMachine"
    /// @param width  in device-independent pixels
    FormReadOnlyText(wxWindow* parent, const char* name, int width);

    /// Shows the end of a text that is longer than the box from now on: of a path it says most.
    void KeepEndInView();

    // On Windows the toolkit leaves such boxes out.
    bool AcceptsFocusFromKeyboard() const override { return AcceptsFocus(); }
};

} // namespace nesk
