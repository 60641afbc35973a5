// The driver of the window tests, on a window with one control of each kind: what a user cannot do fails the
// test.

#include "gui/UiDriver.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <vector>

#include <wx/button.h>
#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/menu.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

namespace nesk::testing {
namespace {

class UiDriverTest : public ::testing::Test {
protected:
    UiDriverTest() {
        auto* const column = new wxBoxSizer(wxVERTICAL);
        for (wxWindow* control : Controls())
            column->Add(control);
        panel->SetSizer(column);
        auto* const menu = new wxMenu;
        item = menu->Append(wxID_ANY, "&Save\tCtrl+S");
        auto* const bar = new wxMenuBar;
        bar->Append(menu, "&File");
        frame->SetMenuBar(bar);
        for (const auto& type :
             {wxEVT_BUTTON, wxEVT_CHECKBOX, wxEVT_RADIOBUTTON, wxEVT_CHOICE, wxEVT_LISTBOX, wxEVT_MENU})
            frame->Bind(type, [this](wxCommandEvent&) { ++events; });
        ShowActive(*frame);
    }
    ~UiDriverTest() override {
        frame->Destroy();
        Settle();
    }

    std::vector<wxWindow*> Controls() const {
        return {button, label, check, first, second, choice, list, box};
    }

    wxFrame* frame = new wxFrame(nullptr, wxID_ANY, "Driver", wxDefaultPosition, wxSize(300, 400),
                                 wxDEFAULT_FRAME_STYLE, "frame");
    wxPanel* panel = new wxPanel(frame);
    wxButton* button = new wxButton(panel, wxID_ANY, "&Go", wxDefaultPosition, wxDefaultSize, 0,
                                    wxDefaultValidator, "cmdGo");
    wxStaticText* label =
        new wxStaticText(panel, wxID_ANY, "&Name", wxDefaultPosition, wxDefaultSize, 0, "lblName");
    wxCheckBox* check = new wxCheckBox(panel, wxID_ANY, "Check", wxDefaultPosition, wxDefaultSize, 0,
                                       wxDefaultValidator, "chkShow");
    wxRadioButton* first = new wxRadioButton(panel, wxID_ANY, "First", wxDefaultPosition, wxDefaultSize,
                                             wxRB_GROUP, wxDefaultValidator, "optFirst");
    wxRadioButton* second = new wxRadioButton(panel, wxID_ANY, "Second", wxDefaultPosition, wxDefaultSize, 0,
                                              wxDefaultValidator, "optSecond");
    wxChoice* choice = new wxChoice(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Lines(), 0,
                                    wxDefaultValidator, "cboDrive");
    wxListBox* list = new wxListBox(panel, wxID_ANY, wxDefaultPosition, wxDefaultSize, Lines(), 0,
                                    wxDefaultValidator, "lstMain");
    wxTextCtrl* box = new wxTextCtrl(panel, wxID_ANY, "old", wxDefaultPosition, wxDefaultSize, 0,
                                     wxDefaultValidator, "txtName");
    wxMenuItem* item = nullptr;
    int events = 0;

private:
    static wxArrayString Lines() {
        wxArrayString lines;
        lines.Add("One");
        lines.Add("Two");
        return lines;
    }
};

TEST_F(UiDriverTest, WhatCanBeUsedIsUsed) {
    Click(button);
    Click(*frame, "cmdGo");
    EXPECT_EQ(events, 2);
    Click(check);
    EXPECT_TRUE(check->GetValue());
    Click(second);
    EXPECT_TRUE(second->GetValue());
    EXPECT_FALSE(first->GetValue());
    Choose(choice, "Two");
    Choose(list, "One");
    EXPECT_TRUE(Click(item));
    EXPECT_EQ(events, 7);
    Fill(box, "new");
    EXPECT_EQ(TextOf(box), "new");
    EXPECT_EQ(TextOf(choice), "Two");
    EXPECT_EQ(TextOf(list), "One");
    EXPECT_EQ(TextOf(label), "Name");
    EXPECT_EQ(Find(*frame, "txtName"), box);
}

TEST_F(UiDriverTest, KeysAndMouseReachTheControl) {
    Focus(box);
    box->SelectAll();
    Type("Typed 1");
    EXPECT_EQ(TextOf(box), "Typed 1");
    Press('A', wxMOD_CONTROL);
    Paste("pasted");
    EXPECT_EQ(TextOf(box), "pasted");
    EXPECT_EQ(Clipboard(), "pasted");
    Focus(button);
    ClickInto(box);
    EXPECT_TRUE(box->HasFocus());
    const wxRect place = button->GetScreenRect();
    ClickPoint(place.GetPosition() + wxPoint(place.width / 2, place.height / 2));
    EXPECT_EQ(events, 1);
}

TEST_F(UiDriverTest, WhatIsDisabledFails) {
    for (wxWindow* control : Controls())
        control->Disable();
    item->Enable(false);
    EXPECT_NONFATAL_FAILURE(Click(button), "cmdGo is disabled");
    EXPECT_NONFATAL_FAILURE(Click(*frame, "cmdGo"), "cmdGo is disabled");
    EXPECT_NONFATAL_FAILURE(Click(check), "chkShow is disabled");
    EXPECT_NONFATAL_FAILURE(Click(second), "optSecond is disabled");
    EXPECT_NONFATAL_FAILURE(Choose(choice, "Two"), "cboDrive is disabled");
    EXPECT_NONFATAL_FAILURE(Choose(list, "One"), "lstMain is disabled");
    EXPECT_NONFATAL_FAILURE(Fill(box, "new"), "txtName is disabled");
    EXPECT_NONFATAL_FAILURE(Focus(box), "txtName is disabled");
    EXPECT_NONFATAL_FAILURE(ClickInto(box), "txtName is disabled");
    EXPECT_NONFATAL_FAILURE(Send(list, wxEVT_LISTBOX), "lstMain is disabled");
    EXPECT_NONFATAL_FAILURE(Send(label, wxEVT_LEFT_DCLICK), "lblName is disabled");
    EXPECT_NONFATAL_FAILURE(Click(item), "Save is disabled");
    EXPECT_EQ(events, 0);
    EXPECT_FALSE(check->GetValue());
    EXPECT_FALSE(second->GetValue());
    EXPECT_EQ(TextOf(choice), "");
    EXPECT_EQ(TextOf(box), "old");
}

TEST_F(UiDriverTest, WhatIsHiddenFails) {
    for (wxWindow* control : Controls())
        control->Hide();
    EXPECT_NONFATAL_FAILURE(Click(button), "cmdGo is hidden");
    EXPECT_NONFATAL_FAILURE(Click(check), "chkShow is hidden");
    EXPECT_NONFATAL_FAILURE(Click(second), "optSecond is hidden");
    EXPECT_NONFATAL_FAILURE(Choose(choice, "Two"), "cboDrive is hidden");
    EXPECT_NONFATAL_FAILURE(Fill(box, "new"), "txtName is hidden");
    EXPECT_NONFATAL_FAILURE(Focus(box), "txtName is hidden");
    EXPECT_NONFATAL_FAILURE(ClickDisabled(button), "cmdGo is hidden");
    EXPECT_EQ(events, 0);
    EXPECT_EQ(TextOf(box), "old");
}

TEST_F(UiDriverTest, WhatIsInAHiddenOrDisabledPartFails) {
    panel->Disable();
    EXPECT_NONFATAL_FAILURE(Click(button), "cmdGo is disabled");
    panel->Enable();
    panel->Hide();
    EXPECT_NONFATAL_FAILURE(Click(button), "cmdGo is hidden");
    panel->Show();
    frame->Hide();
    EXPECT_NONFATAL_FAILURE(Click(button), "cmdGo is hidden");
    EXPECT_EQ(events, 0);
}

TEST_F(UiDriverTest, WhatIsMissingFails) {
    wxButton* const none = nullptr;
    EXPECT_NONFATAL_FAILURE(Click(none), "the control is missing");
    EXPECT_NONFATAL_FAILURE(ClickDisabled(none), "the control is missing");
    EXPECT_NONFATAL_FAILURE(Fill(nullptr, "new"), "the control is missing");
    EXPECT_NONFATAL_FAILURE(TextOf(nullptr), "the control is missing");
    EXPECT_NONFATAL_FAILURE(Find(*frame, "cmdNone"), "no control of frame is named cmdNone");
    EXPECT_NONFATAL_FAILURE(Click(*frame, "cmdNone"), "no control of frame is named cmdNone");
    EXPECT_NONFATAL_FAILURE(Find(*frame, "Second"), "no control of frame is named Second");
    EXPECT_NONFATAL_FAILURE(Choose(list, "Three"), "lstMain has no line Three");
    EXPECT_NONFATAL_FAILURE(Click(static_cast<const wxMenuItem*>(nullptr)), "the menu item is missing");
    EXPECT_NONFATAL_FAILURE(Click(label), "lblName is no button");
    EXPECT_EQ(TextOf(list), "");
}

TEST_F(UiDriverTest, ATextThatIsOnlyReadIsNotReplaced) {
    box->SetEditable(false);
    EXPECT_NONFATAL_FAILURE(Fill(box, "new"), "txtName cannot be edited");
    EXPECT_EQ(TextOf(box), "old");
}

TEST_F(UiDriverTest, OnlyWhatIsDisabledIsClickedAsDisabled) {
    EXPECT_NONFATAL_FAILURE(ClickDisabled(button), "cmdGo is enabled");
    EXPECT_NONFATAL_FAILURE(ClickDisabled(item), "Save is enabled");
    EXPECT_EQ(events, 0);
    button->Disable();
    item->Enable(false);
    ClickDisabled(button);
    ClickDisabled(item);
    EXPECT_EQ(events, 2);
    button->Hide();
    EXPECT_NONFATAL_FAILURE(ClickDisabled(button), "cmdGo is hidden");
    EXPECT_EQ(events, 2);
}

TEST_F(UiDriverTest, AConditionIsWaitedForOnlySoLong) {
    int asked = 0;
    EXPECT_TRUE(WaitUntil([&] { return ++asked == 3; }));
    EXPECT_FALSE(WaitUntil([] { return false; }, std::chrono::milliseconds(20)));
}

} // namespace
} // namespace nesk::testing
