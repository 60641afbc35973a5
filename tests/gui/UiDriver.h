#pragma once

#include <chrono>
#include <functional>
#include <string>

#include <wx/event.h>
#include <wx/gdicmn.h>
#include <wx/mousestate.h>

class wxControlWithItems;
class wxDialog;
class wxListView;
class wxMenuItem;
class wxTextCtrl;
class wxToolBar;
class wxTopLevelWindow;
class wxWindow;

// The driver of the window tests: it does with windows what a user does. What a user cannot do fails the
// test: a control that is missing, hidden or disabled takes no click and no text.

namespace nesk::testing {

// Events

/// Processes pending events until none are left.
void Settle();

/// Waits until a control stays where it is: the window manager gives a window its frame a moment after it is
/// shown.
void WaitUntilSteady(const wxWindow& control);

/// Processes events until a condition holds. Returns false if it does not hold in time.
[[nodiscard]] bool WaitUntil(const std::function<bool()>& condition,
                             std::chrono::milliseconds limit = std::chrono::seconds(5));

/// Shows a window and waits until it is active.
void ShowActive(wxTopLevelWindow& window);

// Keyboard: real key events for whatever has the focus, and what they cause

/// Types a text.
void Type(const std::string& text);

/// Presses a key.
/// @param modifiers  wxMOD_ values
void Press(int key, int modifiers = 0);

/// Presses a key and does not process its events. This is for a menu or a drag, which processes events
/// itself.
void SendKey(int key, int modifiers = 0);

/// Puts a text on the clipboard, and returns the text that is there.
void SetClipboard(const std::string& text);
std::string Clipboard();

/// Puts something on the clipboard that has no text.
void SetClipboardWithoutText();

/// Pastes a text.
void Paste(const std::string& text);

// Mouse: real mouse events at a point of the screen, and what they cause

void MoveMouse(wxPoint point);

/// @param key  key that is held down meanwhile, for example WXK_SHIFT; 0 for none
void ClickPoint(wxPoint point, int button = wxMOUSE_BTN_LEFT, int key = 0);
void DoubleClickPoint(wxPoint point);

/// Drags something from one point to another.
/// @param key     key that is held down at the end of the way; 0 for none
/// @param held    runs at the end of the way, before the button is released
/// @param isOver  whether the program has finished the drag
void DragMouse(wxPoint from, wxPoint to, int key, const std::function<void()>& held,
               const std::function<bool()>& isOver);

// Controls

/// The control with this name in a window. Without such a control the test fails, and null is returned.
wxWindow* Find(const wxWindow& in, const std::string& name);

/// Clicks a button, a check box, a radio button or a toggle button.
void Click(wxWindow* control);
void Click(const wxWindow& in, const std::string& name);

/// Clicks a button that is disabled, as if the click came through. A button that is enabled fails the test.
void ClickDisabled(wxWindow* button);

/// Chooses a menu item. Returns false if it could not be chosen, which fails the test.
bool Click(const wxMenuItem* item);

/// Chooses a menu item that is disabled, as if the choice came through. An item that is enabled fails the
/// test.
void ClickDisabled(const wxMenuItem* item);

/// Clicks a button of a tool bar. A button that is missing or disabled fails the test.
void ClickTool(wxToolBar& bar, int id);

/// Clicks into a control near its right end, with the real mouse.
void ClickInto(const wxWindow* control);

/// Clicks the middle of a control, with the real mouse.
void ClickMiddle(const wxWindow* control);

/// Clicks a row of a list that is in view, with the real mouse.
void ClickListRow(const wxListView& list, long row);

/// Selects the text of a text box by a drag from its end to its beginning. The text must fit into the box.
void SelectTextByMouse(const wxTextCtrl* box);

/// Chooses a line of a list or of a drop-down list.
void Choose(wxControlWithItems* list, const std::string& line);

/// Gives a control the focus and waits until it has it.
void Focus(wxWindow* control);

/// Replaces the text of a text box.
void Fill(wxTextCtrl* box, const std::string& text);

/// Sends a control an event that a click on it causes.
void Send(wxWindow* control, wxEventTypeTag<wxCommandEvent> type, int value = 0);
void Send(wxWindow* control, wxEventTypeTag<wxMouseEvent> type);

/// What a control shows: the content of a text box, the chosen line of a list, otherwise the label without
/// the mark of its access key. A missing control fails the test.
std::string TextOf(const wxWindow* control);

/// Returns whether a window is in the middle of its screen. Wait for it: the window manager may place a
/// window elsewhere at first.
bool IsInTheMiddle(const wxTopLevelWindow& window);

/// Returns whether a modal dialog is waiting for an answer. IsModal is not enough on every toolkit: on
/// Windows it stays true until the call that showed the dialog returns, although the dialog is already
/// answered and hidden.
bool IsOpen(const wxDialog& dialog);

} // namespace nesk::testing
