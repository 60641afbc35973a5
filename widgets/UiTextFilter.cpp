#include "widgets/UiTextFilter.h"

#include "widgets/UiUtilities.h"

#include <algorithm>
#include <memory>
#include <utility>

#include <wx/textctrl.h>
#include <wx/utils.h>

namespace nesk {

using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

struct Contents {
    wxString text;
    long start = 0;
    long end = 0;
};

Contents ContentsOf(const wxTextCtrl& box) {
    Contents contents;
    contents.text = box.GetValue();
    box.GetSelection(&contents.start, &contents.end);
    return contents;
}

} // namespace

void ApplyTextFilter(wxTextCtrl& box, TextFilter filter) {
    const auto before = std::make_shared<Contents>();
    box.Bind(wxEVT_KEY_DOWN, [&box, before](wxKeyEvent& event) {
        event.Skip();
        *before = ContentsOf(box);
    });
    const auto refuse = [&box, before, beep = filter.beep] {
        if (beep) wxBell();
        // Some systems delete the selection before the key event arrives.
        const wxString now = box.GetValue();
        if (now == before->text) return;
        box.CallAfter([&box, now, back = *before] {
            if (box.GetValue() != now) return;
            box.ChangeValue(back.text);
            box.SetSelection(back.start, back.end);
        });
    };
    box.Bind(wxEVT_CHAR, [&box, refuse, accepts = std::move(filter.accepts)](wxKeyEvent& event) {
        const auto character = static_cast<char32_t>(event.GetUnicodeKey());
        // Keys without a character and shortcuts enter no text.
        if (character < 32 || event.ControlDown() || event.AltDown()) return event.Skip();
        const Contents now = ContentsOf(box);
        if (accepts(character, FromWx(now.text), static_cast<std::size_t>(now.start),
                    static_cast<std::size_t>(now.end)))
            event.Skip();
        else
            refuse();
    });
    // Text can also come from the clipboard, from dragging and from input methods.
    box.Bind(wxEVT_TEXT, [&box, beep = filter.beep, clean = std::move(filter.clean)](wxCommandEvent& event) {
        event.Skip();
        const Contents now = ContentsOf(box);
        const wxString rest = ToWx(clean(FromWx(now.text)));
        if (rest == now.text) return;
        const long removed = static_cast<long>(now.text.length() - rest.length());
        box.ChangeValue(rest);
        box.SetInsertionPoint(std::max(0L, now.end - removed));
        if (beep) wxBell();
    });
}

void SelectAllOnFocus(wxTextCtrl& box) {
    box.Bind(wxEVT_SET_FOCUS, [&box](wxFocusEvent& event) {
        event.Skip();
        modUtilities::SelectAllText(box, true);
    });
    // A click that sets the focus also moves the caret when the mouse button is released.
    const auto gainsFocus = std::make_shared<bool>(false);
    box.Bind(wxEVT_LEFT_DOWN, [&box, gainsFocus](wxMouseEvent& event) {
        event.Skip();
        *gainsFocus = !box.HasFocus();
    });
    box.Bind(wxEVT_LEFT_UP, [&box, gainsFocus](wxMouseEvent& event) {
        event.Skip();
        if (!std::exchange(*gainsFocus, false)) return;
        box.CallAfter([&box] {
            // A selection made by dragging is kept.
            if (box.HasFocus() && box.GetStringSelection().empty()) modUtilities::SelectAllText(box, true);
        });
    });
}

} // namespace nesk
