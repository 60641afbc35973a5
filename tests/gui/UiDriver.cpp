#include "gui/UiDriver.h"

#include "gui/MouseDrag.h"
#include "widgets/UiUtilities.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <vector>

#include <wx/app.h>
#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/clipbrd.h>
#include <wx/ctrlsub.h>
#include <wx/dataobj.h>
#include <wx/dialog.h>
#include <wx/display.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/listctrl.h>
#include <wx/menu.h>
#include <wx/radiobut.h>
#include <wx/textctrl.h>
#include <wx/tglbtn.h>
#include <wx/timer.h>
#include <wx/toolbar.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

namespace nesk::testing {

using modUtilities::FromWx;
using modUtilities::ToWx;

namespace {

// Why a user cannot use a control; "" if nothing is in the way.
std::string Obstacle(const wxWindow* control) {
    if (control == nullptr) return "the control is missing";
    const std::string name = FromWx(control->GetName());
    if (!control->IsShownOnScreen()) return name + " is hidden";
    if (!control->IsEnabled()) return name + " is disabled";
    return "";
}

// Returns whether a user can use a control. Otherwise the test fails.
bool CanUse(const wxWindow* control) {
    const std::string obstacle = Obstacle(control);
    if (!obstacle.empty()) ADD_FAILURE() << obstacle;
    return obstacle.empty();
}

// Returns whether a control can be seen and is disabled. Otherwise the test fails.
bool IsDisabled(const wxWindow* control) {
    const std::string obstacle = Obstacle(control);
    if (control != nullptr && control->IsShownOnScreen() && !control->IsEnabled()) return true;
    ADD_FAILURE() << (obstacle.empty() ? FromWx(control->GetName()) + " is enabled" : obstacle);
    return false;
}

std::string NameOf(const wxMenuItem* item) {
    return item != nullptr ? FromWx(item->GetItemLabelText()) : "the menu item";
}

// The window whose menu bar has an item. Without such a window the test fails, and null is returned.
wxFrame* FrameOf(const wxMenuItem* item) {
    auto* const frame = item != nullptr && item->GetMenu() != nullptr
                            ? dynamic_cast<wxFrame*>(item->GetMenu()->GetWindow())
                            : nullptr;
    if (frame == nullptr) ADD_FAILURE() << NameOf(item) << " is missing";
    return frame;
}

void SendCommand(wxWindow& control, wxEventTypeTag<wxCommandEvent> type, int value) {
    wxCommandEvent event(type, control.GetId());
    event.SetEventObject(&control);
    event.SetInt(value);
    control.ProcessWindowEvent(event);
    Settle();
}

// Simulates something and processes what comes of it.
void Simulate(const std::function<void(wxUIActionSimulator&)>& act) {
    {
        // Its end sends what is still buffered.
        wxUIActionSimulator simulator;
        act(simulator);
    }
    // A simulated event goes through the system: the X server and the window manager, or the input queue of
    // Windows. Nothing says when it has arrived, or whether it causes another event, so there is no condition
    // to wait for.
    constexpr int rounds = 5;
    constexpr int milliseconds = 10;
    for (int i = 0; i < rounds; ++i) {
        wxMilliSleep(milliseconds);
        Settle();
    }
}

} // namespace

void Settle() {
    constexpr int rounds = 20;
    for (int i = 0; i < rounds; ++i) {
        wxEventLoopBase* const loop = wxEventLoopBase::GetActive();
        while (loop->Pending())
            loop->Dispatch();
        wxTheApp->ProcessPendingEvents();
        loop->ProcessIdle();
    }
}

bool WaitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) return false;
        wxMilliSleep(5);
        Settle();
    }
    return true;
}

void WaitUntilSteady(const wxWindow& control) {
    constexpr int pause = 50;
    EXPECT_TRUE(WaitUntil([&] {
        const wxRect before = control.GetScreenRect();
        wxMilliSleep(pause);
        Settle();
        return before == control.GetScreenRect();
    }));
}

void ShowActive(wxTopLevelWindow& window) {
    window.Show();
    window.Raise();
    EXPECT_TRUE(WaitUntil([&] { return window.IsActive(); }))
        << FromWx(window.GetName()) << " does not become active";
    Settle();
}

void Type(const std::string& text) {
    // Some parts that take keys, such as a label in a tree, are no windows of wxWidgets.
    const wxWindow* const focus = wxWindow::FindFocus();
    if (focus != nullptr && !CanUse(focus)) return;
    Simulate([&](wxUIActionSimulator& simulator) { simulator.Text(text.c_str()); });
}

void Press(int key, int modifiers) {
    Simulate([&](wxUIActionSimulator& simulator) { simulator.Char(key, modifiers); });
}

void SendKey(int key, int modifiers) {
    wxUIActionSimulator simulator;
    simulator.Char(key, modifiers);
}

void SetClipboard(const std::string& text) {
    const wxClipboardLocker locker;
    EXPECT_FALSE(!locker) << "the clipboard is in use";
    wxTheClipboard->SetData(new wxTextDataObject(ToWx(text)));
}

void SetClipboardWithoutText() {
    const wxClipboardLocker locker;
    EXPECT_FALSE(!locker) << "the clipboard is in use";
    auto* const data = new wxCustomDataObject(wxDataFormat("application/x-neskmanager-test"));
    data->SetData(1, "x");
    wxTheClipboard->SetData(data);
}

std::string Clipboard() {
    const wxClipboardLocker locker;
    EXPECT_FALSE(!locker) << "the clipboard is in use";
    wxTextDataObject text;
    wxTheClipboard->GetData(text);
    return FromWx(text.GetText());
}

void Paste(const std::string& text) {
    SetClipboard(text);
    Press('V', wxMOD_CONTROL);
}

void MoveMouse(wxPoint point) {
    Simulate([&](wxUIActionSimulator& simulator) { simulator.MouseMove(point); });
}

void ClickPoint(wxPoint point, int button, int key) {
    MoveMouse(point);
    Simulate([&](wxUIActionSimulator& simulator) {
        if (key != 0) simulator.KeyDown(key);
        simulator.MouseClick(button);
        if (key != 0) simulator.KeyUp(key);
    });
}

void DoubleClickPoint(wxPoint point) {
    MoveMouse(point);
    Simulate([&](wxUIActionSimulator& simulator) { simulator.MouseDblClick(); });
}

void DragMouse(wxPoint from, wxPoint to, int key, const std::function<void()>& held,
               const std::function<bool()>& isOver) {
    MouseDrag drag(from);
    drag.To(to);
    if (key != 0) drag.Hold(key).To(to);
    if (held) drag.Do(held);
    drag.Make(isOver);
}

wxWindow* Find(const wxWindow& in, const std::string& name) {
    wxWindow* const found = wxWindow::FindWindowByName(ToWx(name), &in);
    // Where no name matches, wxWidgets looks for a label.
    if (found != nullptr && FromWx(found->GetName()) == name) return found;
    ADD_FAILURE() << "no control of " << FromWx(in.GetName()) << " is named " << name;
    return nullptr;
}

void Click(wxWindow* control) {
    if (!CanUse(control)) return;
    if (auto* const check = dynamic_cast<wxCheckBox*>(control)) {
        check->SetValue(!check->GetValue());
        SendCommand(*check, wxEVT_CHECKBOX, check->GetValue() ? 1 : 0);
    } else if (auto* const radio = dynamic_cast<wxRadioButton*>(control)) {
        radio->SetValue(true);
        SendCommand(*radio, wxEVT_RADIOBUTTON, 1);
    } else if (auto* const toggle = dynamic_cast<wxToggleButton*>(control)) {
        toggle->SetValue(!toggle->GetValue());
        SendCommand(*toggle, wxEVT_TOGGLEBUTTON, toggle->GetValue() ? 1 : 0);
    } else if (dynamic_cast<wxAnyButton*>(control) != nullptr) {
        SendCommand(*control, wxEVT_BUTTON, 0);
    } else {
        ADD_FAILURE() << FromWx(control->GetName()) << " is no button";
    }
}

void Click(const wxWindow& in, const std::string& name) {
    if (wxWindow* const control = Find(in, name)) Click(control);
}

void ClickDisabled(wxWindow* button) {
    if (IsDisabled(button)) SendCommand(*button, wxEVT_BUTTON, 0);
}

bool Click(const wxMenuItem* item) {
    wxFrame* const frame = FrameOf(item);
    if (frame == nullptr) return false;
    const bool enabled = item->IsEnabled();
    if (enabled)
        frame->ProcessCommand(item->GetId());
    else
        ADD_FAILURE() << NameOf(item) << " is disabled";
    Settle();
    return enabled;
}

void ClickDisabled(const wxMenuItem* item) {
    wxFrame* const frame = FrameOf(item);
    if (frame == nullptr) return;
    if (item->IsEnabled()) {
        ADD_FAILURE() << NameOf(item) << " is enabled";
        return;
    }
    // The frame itself would not pass the choice of a disabled item on.
    wxCommandEvent event(wxEVT_MENU, item->GetId());
    frame->ProcessWindowEvent(event);
    Settle();
}

void ClickTool(wxToolBar& bar, int id) {
    if (!CanUse(&bar)) return;
    if (bar.FindById(id) != nullptr && bar.GetToolEnabled(id))
        bar.OnLeftClick(id, false);
    else
        ADD_FAILURE() << "the tool bar has no enabled button " << id;
    Settle();
}

void ClickInto(const wxWindow* control) {
    if (!CanUse(control)) return;
    const wxRect place = control->GetScreenRect();
    ClickPoint(wxPoint(place.x + place.width - 10, place.y + place.height / 2));
}

void ClickMiddle(const wxWindow* control) {
    if (!CanUse(control)) return;
    const wxRect place = control->GetScreenRect();
    ClickPoint(wxPoint(place.x + place.width / 2, place.y + place.height / 2));
}

void ClickListRow(const wxListView& list, long row) {
    if (!CanUse(&list)) return;
    wxRect place;
    ASSERT_TRUE(list.GetItemRect(row, place, wxLIST_RECT_LABEL));
    const wxPoint middle(place.x + place.width / 2, place.y + place.height / 2);
    ASSERT_TRUE(list.GetClientRect().Contains(middle)) << "the row is out of view";
    ClickPoint(list.ClientToScreen(middle));
}

void SelectTextByMouse(const wxTextCtrl* box) {
    if (!CanUse(box)) return;
    const wxRect place = box->GetScreenRect();
    const int middle = place.y + place.height / 2;
    MouseDrag(wxPoint(place.x + place.width - 10, middle)).To(wxPoint(place.x + 1, middle)).Make([box] {
        return box->GetStringSelection() == box->GetValue();
    });
}

void Choose(wxControlWithItems* list, const std::string& line) {
    if (!CanUse(list)) return;
    const int at = list->FindString(ToWx(line), true);
    if (at == wxNOT_FOUND) {
        ADD_FAILURE() << FromWx(list->GetName()) << " has no line " << line;
        return;
    }
    list->SetSelection(at);
    SendCommand(*list, dynamic_cast<wxListBox*>(list) != nullptr ? wxEVT_LISTBOX : wxEVT_CHOICE, at);
}

void Focus(wxWindow* control) {
    if (!CanUse(control)) return;
    control->SetFocus();
    EXPECT_TRUE(WaitUntil([control] { return control->HasFocus(); }))
        << FromWx(control->GetName()) << " does not get the focus";
    Settle();
}

void Fill(wxTextCtrl* box, const std::string& text) {
    if (!CanUse(box)) return;
    if (box->IsEditable())
        box->SetValue(ToWx(text));
    else
        ADD_FAILURE() << FromWx(box->GetName()) << " cannot be edited";
}

void Send(wxWindow* control, wxEventTypeTag<wxCommandEvent> type, int value) {
    if (CanUse(control)) SendCommand(*control, type, value);
}

void Send(wxWindow* control, wxEventTypeTag<wxMouseEvent> type) {
    if (!CanUse(control)) return;
    wxMouseEvent event(type);
    event.SetEventObject(control);
    control->ProcessWindowEvent(event);
    Settle();
}

std::string TextOf(const wxWindow* control) {
    if (control == nullptr) {
        ADD_FAILURE() << "the control is missing";
        return "";
    }
    if (const auto* const box = dynamic_cast<const wxTextCtrl*>(control)) return FromWx(box->GetValue());
    if (const auto* const list = dynamic_cast<const wxControlWithItems*>(control))
        return FromWx(list->GetStringSelection());
    const auto* const labelled = dynamic_cast<const wxControl*>(control);
    return FromWx(labelled != nullptr ? labelled->GetLabelText() : control->GetLabel());
}

bool IsInTheMiddle(const wxTopLevelWindow& window) {
    constexpr int tolerance = 40; // pixels
    const wxRect screen = wxDisplay(&window).GetClientArea();
    const wxRect place = window.GetScreenRect();
    return std::abs(place.x + place.width / 2 - screen.x - screen.width / 2) < tolerance &&
           std::abs(place.y + place.height / 2 - screen.y - screen.height / 2) < tolerance;
}

bool IsOpen(const wxDialog& dialog) {
    return dialog.IsModal() && dialog.IsShown();
}

} // namespace nesk::testing
