#include "shell/FormReport.h"

#include "gui/GuiFixture.h"
#include "gui/NextDialog.h"
#include "gui/UiDriver.h"
#include "platform/SaveFileDialog.h"
#include "unit/platform/TempStation.h"
#include "widgets/UiUtilities.h"

#include <fstream>
#include <sstream>

#include <wx/button.h>
#include <wx/html/htmlwin.h>
#include <wx/image.h>
#include <wx/menu.h>
#include <wx/prntbase.h>
#include <wx/stattext.h>

namespace nesk::testing {
namespace {

class FormReportTest : public MainWindowTest {
protected:
    FormReportTest() {
        station.Write("C:\\Pictures\\a.bmp", "");
        wxImage image(300, 150);
        image.SetRGB(wxRect(0, 0, 300, 150), 10, 200, 30);
        image.SaveFile(TempStation::Host("C:\\Pictures\\a.bmp").string(), wxBITMAP_TYPE_BMP);
        WriteMenu("BLOCK MENU\r\nCAPTION=Main Menu\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Bracket\r\nMENUTYPE=Part Program\r\nPROGRAMID=P\r\n"
                  "GRAPHIC=C:\\Pictures\\a.bmp\r\nEND\r\n"
                  "BLOCK SUBMENU\r\nCAPTION=Plate\r\nMENUTYPE=Part Program\r\nPROGRAMID=P\r\n"
                  "GRAPHIC=C:\\Pictures\\gone.bmp\r\nEND\r\nEND\r\n");
        OpenWindow();
        Press('O', wxMOD_CONTROL);
    }

    // Opens the report, does something with it and closes it.
    void WithReport(const std::function<void(FormReport&)>& act) {
        const NextDialog<FormReport> next([&](FormReport& dialog) {
            EXPECT_TRUE(WaitUntil([&] { return dialog.IsMade(); }));
            act(dialog);
            if (IsOpen(dialog)) Click(dialog.cmdCancel);
        });
        dialogs.Answer(wxID_NONE);
        Click(window->mnuFileReport);
    }

    static std::string ReadFile(const std::string& path) {
        std::ifstream file(TempStation::Host(path), std::ios::binary);
        std::ostringstream text;
        text << file.rdbuf();
        return text.str();
    }
};

TEST_F(FormReportTest, TheReportIsShown) {
    WithReport([](FormReport& dialog) {
        const std::string text = modUtilities::FromWx(dialog.htmReport->ToText());
        for (const char* part : {"Main Menu", "Contents", "Bracket", "Plate",
                                 "Menu file: C:\\Neskroot\\menu.cfg", "Missing file: C:\\Pictures\\gone.bmp"})
            EXPECT_NE(text.find(part), std::string::npos) << part << "\n" << text;
        EXPECT_TRUE(dialog.htmReport->HasFocus());
        // The small picture, from memory.
        EXPECT_NE(modUtilities::FromWx(dialog.htmReport->GetParser()->GetSource()
                                           ? *dialog.htmReport->GetParser()->GetSource()
                                           : wxString())
                      .find("memory:report-1.png"),
                  std::string::npos);
        Press(WXK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); }));
    });
}

TEST_F(FormReportTest, TheReportIsSavedWithItsPictures) {
    platform::OpenFileRequest asked;
    const auto before = platform::SetSaveFileDialog([&](wxWindow*, const platform::OpenFileRequest& request) {
        asked = request;
        return std::string("C:\\Reports.html");
    });
    WithReport([](FormReport& dialog) {
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog)) << "it may be printed next";
        EXPECT_EQ(TextOf(dialog.lblReason), "The report was saved as C:\\Reports.html.");
    });
    platform::SetSaveFileDialog(before);
    EXPECT_EQ(asked.file, "menu-report.html");
    EXPECT_EQ(asked.folder, "C:\\Neskroot\\");
    const std::string page = ReadFile("C:\\Reports.html");
    EXPECT_EQ(page.find("<!DOCTYPE html>"), 0u);
    EXPECT_NE(page.find("data:image/png;base64,iVBORw0KGgo"), std::string::npos);
    EXPECT_EQ(page.find("memory:"), std::string::npos);
}

TEST_F(FormReportTest, AReportThatCannotBeSavedStaysOpen) {
    const auto before = platform::SetSaveFileDialog(
        [](wxWindow*, const platform::OpenFileRequest&) { return std::string("C:\\Nowhere\\report.html"); });
    WithReport([&](FormReport& dialog) {
        dialogs.Answer(wxID_OK);
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
    });
    platform::SetSaveFileDialog(before);
    ASSERT_EQ(dialogs.shown.size(), 2u);
}

TEST_F(FormReportTest, ACancelledSaveWritesNothing) {
    const auto before = platform::SetSaveFileDialog(
        [](wxWindow*, const platform::OpenFileRequest&) { return std::string(); });
    WithReport([](FormReport& dialog) {
        Click(dialog.cmdOK);
        EXPECT_TRUE(IsOpen(dialog));
    });
    platform::SetSaveFileDialog(before);
}

TEST_F(FormReportTest, ThePagesAreShownAsTheyWillBePrinted) {
    WithReport([](FormReport& dialog) {
        Click(dialog.cmdPages);
        wxPreviewFrame* pages = nullptr;
        EXPECT_TRUE(WaitUntil([&] {
            for (wxWindow* other : wxTopLevelWindows)
                if (auto* frame = dynamic_cast<wxPreviewFrame*>(other); frame != nullptr && frame->IsShown())
                    pages = frame;
            return pages != nullptr || dialog.lblReason->IsShown();
        }));
        // Without a printer the system shows no pages; the dialog then says so.
        if (pages == nullptr) return;
        EXPECT_TRUE(WaitUntil([&] { return pages->IsActive(); }));
        Press(WXK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return dialog.cmdPages->IsEnabled() && dialog.IsActive(); }));
        EXPECT_TRUE(IsOpen(dialog));
        Press(WXK_ESCAPE);
        EXPECT_TRUE(WaitUntil([&] { return !IsOpen(dialog); })) << "the keys are for the report again";
    });
}

} // namespace
} // namespace nesk::testing
