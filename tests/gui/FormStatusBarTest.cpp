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

TEST_F(FormStatusBarTest, TheNumbersHaveTheRoomThatTheyNeed) {
    bar->ShowPath("C:\\Neskroot\\menu.cfg");
    const int helpBefore = WidthOf(FormStatusBar::HelpPanel);
    const wxString numbers = "11 submenus, 28 parts; 2 selected";
    bar->ShowCounts(numbers);
    const int needed = bar->GetTextExtent(numbers).x;
    EXPECT_EQ(bar->GetStatusText(FormStatusBar::CountsPanel), numbers);
    EXPECT_GE(WidthOf(FormStatusBar::CountsPanel), needed);
    EXPECT_LE(WidthOf(FormStatusBar::CountsPanel), needed + 80);
    Settle();
    bar->Refresh();
    bar->Update();
    EXPECT_FALSE(bar->GetField(FormStatusBar::CountsPanel).IsEllipsized());
    EXPECT_GE(WidthOf(FormStatusBar::PathPanel), bar->GetTextExtent("C:\\Neskroot\\menu.cfg").x);
    bar->ShowCounts("");
    EXPECT_EQ(WidthOf(FormStatusBar::HelpPanel), helpBefore) << "no numbers take no room";
}

TEST_F(FormStatusBarTest, ANarrowBarIsSharedByPathAndNumbers) {
    bar->GetParent()->SetClientSize(250, 100);
    ASSERT_TRUE(WaitUntil([&] { return bar->GetClientSize().x <= 260; }));
    bar->ShowPath(wxString("C:\\") + wxString('x', 400));
    bar->ShowCounts(wxString('9', 400));
    EXPECT_GE(WidthOf(FormStatusBar::PathPanel), 80);
    EXPECT_GE(WidthOf(FormStatusBar::CountsPanel), 80);
}

} // namespace
} // namespace nesk::testing
