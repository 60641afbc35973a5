#include "widgets/FormReadOnlyText.h"

#include "gui/SettingsDialogFixture.h"

#include <gtk/gtk.h>

#include <wx/frame.h>
#include <wx/panel.h>

namespace nesk::testing {
namespace {

class FormReadOnlyTextTest : public SettingsDialogTest {
protected:
    ~FormReadOnlyTextTest() override { m_frame->Destroy(); }

    // Number of pixels of the text that are hidden to the left of the box.
    int HiddenAtLeft(const wxString& text, bool keepEnd) {
        auto* box = new FormReadOnlyText(m_panel, "txtPath", 100);
        if (keepEnd) box->KeepEndInView();
        box->SetValue(text);
        box->SetSize(10, 10, 100, 30);
        m_frame->Show();
        EXPECT_TRUE(WaitUntil([&] { return gtk_widget_get_allocated_width(box->GetHandle()) == 100; }));
        int x = 0;
        gtk_entry_get_layout_offsets(GTK_ENTRY(box->GetHandle()), &x, nullptr);
        box->Destroy();
        return x < 0 ? -x : 0;
    }

private:
    wxFrame* m_frame = new wxFrame(nullptr, wxID_ANY, "Frame", wxDefaultPosition, wxSize(300, 200));
    wxPanel* m_panel = new wxPanel(m_frame);
};

TEST_F(FormReadOnlyTextTest, TheEndOfALongPathIsSeen) {
    const wxString path = "C:\\Documents\\Fixtures\\Gear boxes\\Housing\\clamping.chm";
    EXPECT_EQ(HiddenAtLeft(path, false), 0) << "a name is read from its beginning";
    EXPECT_GT(HiddenAtLeft(path, true), 100);
    EXPECT_EQ(HiddenAtLeft("C:\\a", true), 0);
}

} // namespace
} // namespace nesk::testing
