#include "shell/FormStatusBar.h"

#include "gui/UiDriver.h"

#include <gtest/gtest.h>

#include <wx/frame.h>

namespace nesk::testing {
namespace {

class FormStatusBarTest : public ::testing::Test {
protected:
    FormStatusBarTest() {
        m_frame->SetStatusBar(bar);
        m_frame->SetClientSize(600, 100);
        m_frame->Show();
        m_frame->SendSizeEvent();
    }
    ~FormStatusBarTest() override { m_frame->Destroy(); }

    int WidthOf(FormStatusBar::Panel panel) const {
        wxRect place;
        EXPECT_TRUE(bar->GetFieldRect(panel, place));
        return place.width;
    }

private:
    wxFrame* m_frame = new wxFrame(nullptr, wxID_ANY, "Status");

protected:
    FormStatusBar* bar = new FormStatusBar(m_frame, "sbMain");
};

TEST_F(FormStatusBarTest, ThePathHasTheRoomThatItNeeds) {
    for (const int points : {10, 20}) {
        wxFont font = bar->GetFont();
        font.SetPointSize(points);
        bar->SetFont(font);
        bar->ShowPath("C:\\Neskroot\\menu.cfg");
        const int needed = bar->GetTextExtent("C:\\Neskroot\\menu.cfg").x;
        EXPECT_GE(WidthOf(FormStatusBar::PathPanel), needed) << points;
        EXPECT_LE(WidthOf(FormStatusBar::PathPanel), needed + 40) << points;
        EXPECT_GE(WidthOf(FormStatusBar::HelpPanel), 600 - needed - 80) << "the rest is for the explanation";
    }
}

TEST_F(FormStatusBarTest, ALongPathLeavesRoomForTheExplanation) {
    bar->ShowPath(wxString("C:\\") + wxString('x', 400));
    EXPECT_LE(WidthOf(FormStatusBar::PathPanel), 500);
    EXPECT_GE(WidthOf(FormStatusBar::PathPanel), 400);
    bar->GetParent()->SetClientSize(1000, 100);
    EXPECT_TRUE(WaitUntil([&] { return bar->GetClientSize().x >= 900; }));
    EXPECT_GE(WidthOf(FormStatusBar::PathPanel), 700) << "it grows with the bar";
}

} // namespace
} // namespace nesk::testing
