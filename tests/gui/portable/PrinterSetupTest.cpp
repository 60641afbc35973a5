#include "platform/portable/UiPrinterData.h"

#include "gui/SettingsDialogFixture.h"

#include <wx/cmndata.h>
#include <wx/frame.h>
#include <wx/modalhook.h>
#include <wx/printdlg.h>

namespace nesk::testing {
namespace {

using platform::PrinterValues;
using platform::portable::ApplyPrinterValues;
using platform::portable::ReadPrinterValues;

const PrinterValues Nothing;

// What comes back when the values are applied and read again without a change.
PrinterValues Kept(const PrinterValues& values) {
    wxPrintData data;
    ApplyPrinterValues(values, data);
    return ReadPrinterValues(data, values);
}

TEST(PrinterValues, AreApplied) {
    wxPrintData data;
    ApplyPrinterValues({"Laser", "laserdrv", "2", "9", "4", "600", "50"}, data);
    EXPECT_EQ(data.GetOrientation(), wxLANDSCAPE);
    EXPECT_EQ(data.GetPaperId(), wxPAPER_A4);
    EXPECT_EQ(data.GetBin(), wxPRINTBIN_MANUAL);
    EXPECT_EQ(data.GetQuality(), 600);
    EXPECT_EQ(data.GetPrinterName(), "") << "the dialog begins with the default printer";
    ApplyPrinterValues({"", "", "1", "1", "7", "-4", ""}, data);
    EXPECT_EQ(data.GetOrientation(), wxPORTRAIT);
    EXPECT_EQ(data.GetPaperId(), wxPAPER_LETTER);
    EXPECT_EQ(data.GetBin(), wxPRINTBIN_AUTO);
    EXPECT_EQ(data.GetQuality(), wxPRINT_QUALITY_HIGH);
}

TEST(PrinterValues, WhatIsNoCodeLeavesTheDefault) {
    const wxPrintData fresh;
    for (const char* text : {"", "x", "9x", " 9", "0", "48", "119", "256", "-9", "99999999999999999999"}) {
        wxPrintData data;
        ApplyPrinterValues({"", "", text, text, "12", "0", text}, data);
        EXPECT_EQ(data.GetOrientation(), wxPORTRAIT) << text;
        EXPECT_EQ(data.GetPaperId(), fresh.GetPaperId()) << text;
        EXPECT_EQ(data.GetBin(), fresh.GetBin());
        EXPECT_EQ(data.GetQuality(), fresh.GetQuality());
    }
}

TEST(PrinterValues, AreReadAsDecimalText) {
    wxPrintData data;
    data.SetPrinterName(wxString::FromUTF8("Büro"));
    data.SetOrientation(wxLANDSCAPE);
    data.SetPaperId(wxPAPER_A3);
    data.SetBin(wxPRINTBIN_FORMSOURCE);
    data.SetQuality(1200);
    EXPECT_EQ(ReadPrinterValues(data, Nothing), (PrinterValues{"Büro", "", "2", "8", "15", "1200", "100"}));
    data.SetQuality(wxPRINT_QUALITY_DRAFT);
    EXPECT_EQ(ReadPrinterValues(data, Nothing).quality, "-1");
    data.SetQuality(wxPRINT_QUALITY_LOW);
    EXPECT_EQ(ReadPrinterValues(data, Nothing).quality, "-2");
    data.SetQuality(wxPRINT_QUALITY_MEDIUM);
    EXPECT_EQ(ReadPrinterValues(data, Nothing).quality, "-3");
}

TEST(PrinterValues, EveryPaperCodeComesBack) {
    wxPrintData data;
    int codes = 0;
    for (int code = 1; code <= 118; ++code) {
        if (code == 48 || code == 49) continue; // not assigned
        const std::string text = std::to_string(code);
        data.SetPaperId(wxPAPER_NONE);
        ApplyPrinterValues({"", "", "", text, "", "", ""}, data);
        EXPECT_NE(data.GetPaperId(), wxPAPER_NONE) << code;
        EXPECT_EQ(ReadPrinterValues(data, Nothing).paperSize, text);
        ++codes;
    }
    EXPECT_EQ(codes, 116);
    // One from the front and the end of each group that is numbered through.
    const std::pair<const char*, wxPaperSize> known[] = {
        {"2", wxPAPER_LETTERSMALL}, {"4", wxPAPER_LEDGER},
        {"5", wxPAPER_LEGAL},       {"7", wxPAPER_EXECUTIVE},
        {"11", wxPAPER_A5},         {"23", wxPAPER_ENV_14},
        {"24", wxPAPER_CSHEET},     {"26", wxPAPER_ESHEET},
        {"27", wxPAPER_ENV_DL},     {"42", wxPAPER_ISO_B4},
        {"47", wxPAPER_ENV_INVITE}, {"50", wxPAPER_LETTER_EXTRA},
        {"66", wxPAPER_A2},         {"70", wxPAPER_A6},
        {"88", wxPAPER_B6_JIS},     {"118", wxPAPER_PENV_10_ROTATED},
    };
    for (const auto& [text, paper] : known) {
        ApplyPrinterValues({"", "", "", text, "", "", ""}, data);
        EXPECT_EQ(data.GetPaperId(), paper) << text;
    }
}

TEST(PrinterValues, EveryBinAndQualityComesBack) {
    for (const char* bin : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "14", "15"})
        EXPECT_EQ(Kept({"", "", "", "", bin, "", ""}).paperBin, bin);
    for (const char* quality : {"-1", "-2", "-3", "-4", "1", "300", "2400"})
        EXPECT_EQ(Kept({"", "", "", "", "", quality, ""}).quality, quality);
}

TEST(PrinterValues, WhatTheToolkitCannotNameStays) {
    wxPrintData data;
    data.SetPaperId(wxPAPER_NONE);
    const PrinterValues before = {"Laser", "laserdrv", "1", "256", "257", "-3", "75"};
    ApplyPrinterValues(before, data);
    EXPECT_EQ(ReadPrinterValues(data, before), before);
    EXPECT_EQ(ReadPrinterValues(data, Nothing).paperBin, "7");
}

TEST(PrinterValues, AnotherPrinterLosesTheDriver) {
    wxPrintData data;
    data.SetPrinterName("Laser");
    EXPECT_EQ(ReadPrinterValues(data, {"Laser", "laserdrv", "", "", "", "", ""}).driver, "laserdrv");
    EXPECT_EQ(ReadPrinterValues(data, {"Plotter", "plotdrv", "", "", "", "", ""}).driver, "");
}

// The printer dialog, answered without being shown.
class PrinterScript : public wxModalDialogHook {
public:
    explicit PrinterScript(int answer) : m_answer(answer) { Register(); }
    ~PrinterScript() override { Unregister(); }

    wxPrintData before;
    bool busy = false;
    int shown = 0;

protected:
    int Enter(wxDialog* dialog) override {
        auto* setup = dynamic_cast<wxPageSetupDialogBase*>(dialog);
        if (setup == nullptr) return wxID_NONE;
        ++shown;
        busy = wxIsBusy();
        wxPrintData& data = setup->GetPageSetupDialogData().GetPrintData();
        before = data;
        data.SetPrinterName("Laser 2");
        data.SetOrientation(wxPORTRAIT);
        data.SetPaperId(wxPAPER_A5);
        return m_answer;
    }

private:
    int m_answer;
};

TEST(PrinterSetup, ConfirmedValuesAreReadBack) {
    PrinterScript script(wxID_OK);
    PrinterValues values = {"Laser 1", "laserdrv", "2", "8", "2", "-3", "75"};
    EXPECT_TRUE(platform::ShowPrinterSetup(nullptr, values));
    EXPECT_EQ(script.shown, 1);
    EXPECT_TRUE(script.busy);
    EXPECT_FALSE(wxIsBusy());
    EXPECT_EQ(script.before.GetOrientation(), wxLANDSCAPE);
    EXPECT_EQ(script.before.GetPaperId(), wxPAPER_A3);
    EXPECT_EQ(script.before.GetBin(), wxPRINTBIN_LOWER);
    EXPECT_EQ(script.before.GetQuality(), wxPRINT_QUALITY_MEDIUM);
    EXPECT_EQ(values, (PrinterValues{"Laser 2", "", "1", "11", "2", "-3", "75"}));
}

TEST(PrinterSetup, CancelKeepsTheValues) {
    PrinterScript script(wxID_CANCEL);
    const PrinterValues before = {"Laser 1", "laserdrv", "2", "8", "2", "-3", ""};
    PrinterValues values = before;
    EXPECT_FALSE(platform::ShowPrinterSetup(nullptr, values));
    EXPECT_EQ(script.shown, 1);
    EXPECT_FALSE(wxIsBusy());
    EXPECT_EQ(values, before);
}

// The system's own dialog, which knows no printer of this machine.
class SystemPrinterDialogTest : public SettingsDialogTest {
protected:
    SystemPrinterDialogTest() {
        m_parent->Show();
        m_parent->Raise();
        EXPECT_TRUE(WaitUntil([&] { return m_parent->IsActive(); }));
    }
    ~SystemPrinterDialogTest() override { m_parent->Destroy(); }

    // Shows the dialog and presses a key until it is gone.
    bool Show(PrinterValues& values, int key, int modifiers) {
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            if (!m_parent->IsActive()) PressKey(key, modifiers);
        });
        timer.Start(400);
        return platform::ShowPrinterSetup(m_parent, values);
    }

private:
    wxFrame* m_parent = new wxFrame(nullptr, wxID_ANY, "Parent");
};

TEST_F(SystemPrinterDialogTest, ConfirmedUnchangedItKeepsTheValues) {
    for (const char* quality : {"-4", "-1", "600"}) {
        const PrinterValues before = {"Laser", "laserdrv", "2", "8", "257", quality, "75"};
        PrinterValues values = before;
        EXPECT_TRUE(Show(values, 'A', wxMOD_ALT));
        EXPECT_EQ(values, before) << values.quality;
    }
}

TEST_F(SystemPrinterDialogTest, EscapeCancels) {
    PrinterValues values;
    EXPECT_FALSE(Show(values, WXK_ESCAPE, 0));
    EXPECT_EQ(values, Nothing);
}

} // namespace
} // namespace nesk::testing
