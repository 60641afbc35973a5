#include "widgets/UiTextKeys.h"

#include <wx/event.h>

namespace nesk {

namespace {

TextKey ControlKey(int key, bool withShift) {
    switch (key) {
    case 'A':
    case 'C':
    case 'X': return withShift ? TextKey::Command : TextKey::Text;
    case 'V': return withShift ? TextKey::Nothing : TextKey::Text; // with Shift it pastes entries elsewhere
    case WXK_LEFT:
    case WXK_RIGHT:
    case WXK_HOME:
    case WXK_END:
    case WXK_BACK:
    case WXK_DELETE:
    case WXK_INSERT:
    case WXK_NUMPAD_LEFT:
    case WXK_NUMPAD_RIGHT:
    case WXK_NUMPAD_HOME:
    case WXK_NUMPAD_END:
    case WXK_NUMPAD_DELETE:
    case WXK_NUMPAD_INSERT: return TextKey::Text;
    case 'Z': return withShift ? TextKey::Redo : TextKey::Undo;
    case 'Y': return withShift ? TextKey::Nothing : TextKey::Redo;
    case 'D':
    case 'M':
    case WXK_UP:
    case WXK_DOWN:
    case WXK_NUMPAD_UP:
    case WXK_NUMPAD_DOWN: return TextKey::Nothing;
    default: return TextKey::Command;
    }
}

} // namespace

TextKey TextKeyOf(const wxKeyEvent& event) {
    const int key = event.GetKeyCode();
    const int modifiers = event.GetModifiers() & ~wxMOD_SHIFT;
    if (modifiers == 0) {
        if (key == WXK_F2) return TextKey::Nothing; // would rename the selected entry
        return key >= WXK_F1 && key <= WXK_F24 ? TextKey::Command : TextKey::Text;
    }
    // AltGr types characters and reports both Ctrl and Alt.
    if (modifiers == (wxMOD_CONTROL | wxMOD_ALT)) return TextKey::Text;
    if (modifiers != wxMOD_CONTROL) return TextKey::Command;
    return ControlKey(key, event.ShiftDown());
}

} // namespace nesk
