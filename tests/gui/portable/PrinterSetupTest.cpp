#include "platform/portable/UiPrinterData.h"

#include "gui/SettingsDialogFixture.h"
#include "platform/portable/PaperSizes.h"

#include <functional>

#include <gtk/gtkunixprint.h>
#include <wx/frame.h>
#include <wx/timer.h>
#include <wx/utils.h>

namespace nesk::testing {
namespace {

using platform::PrinterSetupResult;
using platform::PrinterValues;
using platform::portable::ApplyPrinterValues;
using platform::portable::PrinterData;
using platform::portable::ReadPrinterValues;

const PrinterValues Nothing;

// The values that are read if `chosen` is chosen in a dialog that showed the values of `before`.
PrinterValues Choose(const PrinterValues& chosen, const PrinterValues& before = Nothing) {
    return ReadPrinterValues(ApplyPrinterValues(chosen), before, ApplyPrinterValues(before));
}

std::string PaperOf(const PrinterData& data) {
    return gtk_paper_size_get_name(gtk_page_setup_get_paper_size(data.page.get()));
}

void SetPaper(GtkPageSetup* page, const char* name) {
    GtkPaperSize* const paper = gtk_paper_size_new(name);
    gtk_page_setup_set_paper_size_and_default_margins(page, paper);
    gtk_paper_size_free(paper);
}

TEST(PrinterValues, AreApplied) {
    const PrinterData data = ApplyPrinterValues({"Laser", "laserdrv", "2", "8", "4", "600", "50"});
    EXPECT_EQ(gtk_page_setup_get_orientation(data.page.get()), GTK_PAGE_ORIENTATION_LANDSCAPE);
    EXPECT_EQ(PaperOf(data), "iso_a3");
    EXPECT_STREQ(gtk_print_settings_get_default_source(data.settings.get()), "manual");
    EXPECT_EQ(gtk_print_settings_get_resolution(data.settings.get()), 600);
    EXPECT_EQ(gtk_print_settings_get_scale(data.settings.get()), 50);
    EXPECT_EQ(gtk_print_settings_get_printer(data.settings.get()), nullptr)
        << "the dialog begins with the default printer";
    const PrinterData other = ApplyPrinterValues({"", "", "1", "1", "7", "-4", ""});
    EXPECT_EQ(gtk_page_setup_get_orientation(other.page.get()), GTK_PAGE_ORIENTATION_PORTRAIT);
    EXPECT_EQ(PaperOf(other), "na_letter");
    EXPECT_STREQ(gtk_print_settings_get_default_source(other.settings.get()), "auto");
    EXPECT_EQ(gtk_print_settings_get_quality(other.settings.get()), GTK_PRINT_QUALITY_HIGH);
    EXPECT_EQ(gtk_print_settings_get_scale(other.settings.get()), 100);
}

TEST(PrinterValues, WhatIsNoCodeLeavesTheDefault) {
    const PrinterData fresh;
    for (const char* text : {"", "x", "9x", " 9", "0", "48", "119", "256", "-9", "99999999999999999999"}) {
        const PrinterData data = ApplyPrinterValues({"", "", text, text, "12", "0", "0"});
        EXPECT_EQ(gtk_page_setup_get_orientation(data.page.get()), GTK_PAGE_ORIENTATION_PORTRAIT) << text;
        EXPECT_EQ(PaperOf(data), PaperOf(fresh)) << text;
        EXPECT_EQ(gtk_print_settings_get_default_source(data.settings.get()), nullptr);
        EXPECT_FALSE(gtk_print_settings_has_key(data.settings.get(), GTK_PRINT_SETTINGS_QUALITY));
        EXPECT_FALSE(gtk_print_settings_has_key(data.settings.get(), GTK_PRINT_SETTINGS_RESOLUTION));
        EXPECT_FALSE(gtk_print_settings_has_key(data.settings.get(), GTK_PRINT_SETTINGS_SCALE));
    }
}

TEST(PrinterValues, AreReadAsDecimalText) {
    const PrinterData data = ApplyPrinterValues({"", "", "2", "8", "15", "1200", "75"});
    gtk_print_settings_set_printer(data.settings.get(), "Büro");
    EXPECT_EQ(ReadPrinterValues(data, Nothing, PrinterData()),
              (PrinterValues{"Büro", "", "2", "8", "15", "1200", "75"}));
}

TEST(PrinterValues, HaveDefaultsWhereTheDialogSaysNothing) {
    const PrinterData data;
    SetPaper(data.page.get(), "iso_a4");
    EXPECT_EQ(ReadPrinterValues(data, Nothing, data), (PrinterValues{"", "", "1", "9", "7", "-3", "100"}));
}

TEST(PrinterValues, EveryPaperIsKnownToTheToolkit) {
    for (int code = 1; code <= 118; ++code) {
        const std::string name = platform::portable::PaperName(code);
        if (name.empty()) continue;
        GtkPaperSize* const paper = gtk_paper_size_new(name.c_str());
        EXPECT_FALSE(gtk_paper_size_is_custom(paper)) << name;
        gtk_paper_size_free(paper);
        const PrinterValues before{"", "", "1", "66", "", "", ""};
        const std::string read = Choose({"", "", "1", std::to_string(code), "", "", ""}, before).paperSize;
        EXPECT_EQ(platform::portable::PaperName(std::stoi(read)), name) << code;
    }
}

TEST(PrinterValues, EveryBinAndQualityComesBack) {
    for (const char* bin : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "14", "15"})
        EXPECT_EQ(Choose({"", "", "", "", bin, "", ""}).paperBin, bin);
    for (const char* quality : {"-1", "-2", "-3", "-4", "1", "300", "2400"})
        EXPECT_EQ(Choose({"", "", "", "", "", quality, ""}).quality, quality);
}

TEST(PrinterValues, WhatTheToolkitCannotNameStays) {
    for (const PrinterValues& before : {PrinterValues{"Laser", "laserdrv", "1", "118", "257", "-3", "75"},
                                        PrinterValues{"Laser", "laserdrv", "2", "55", "x", "-9", "75"}})
        EXPECT_EQ(Choose(before, before), before);
}

TEST(PrinterValues, APaperWithoutACodeIsOfTheUsersOwnSize) {
    const PrinterData data;
    GtkPaperSize* const paper = gtk_paper_size_new_custom("own", "Own", 111, 222, GTK_UNIT_MM);
    gtk_page_setup_set_paper_size(data.page.get(), paper);
    gtk_paper_size_free(paper);
    const PrinterValues before{"", "", "1", "9", "", "", ""};
    EXPECT_EQ(ReadPrinterValues(data, before, ApplyPrinterValues(before)).paperSize, "256");
}

TEST(PrinterValues, AnotherPrinterLosesTheDriver) {
    const PrinterData data;
    gtk_print_settings_set_printer(data.settings.get(), "Laser");
    EXPECT_EQ(ReadPrinterValues(data, {"Laser", "laserdrv", "", "", "", "", ""}, data).driver, "laserdrv");
    EXPECT_EQ(ReadPrinterValues(data, {"Plotter", "plotdrv", "", "", "", "", ""}, data).driver, "");
}

// The dialog of GTK on a machine that needs no printer, because the dialog can always print to a file.
class PrintDialogTest : public SettingsDialogTest {
protected:
    PrintDialogTest() { ShowActive(*m_parent); }
    ~PrintDialogTest() override { m_parent->Destroy(); }

    static GtkPrintUnixDialog* Dialog() {
        GtkPrintUnixDialog* dialog = nullptr;
        GList* const windows = gtk_window_list_toplevels();
        for (GList* node = windows; node != nullptr; node = node->next)
            if (GTK_IS_PRINT_UNIX_DIALOG(node->data)) dialog = GTK_PRINT_UNIX_DIALOG(node->data);
        g_list_free(windows);
        return dialog;
    }

    // The confirming button is enabled once a printer is selected.
    static bool CanConfirm(GtkPrintUnixDialog* dialog) {
        GtkWidget* const confirm = gtk_dialog_get_widget_for_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
        return gtk_widget_is_sensitive(confirm);
    }

    // Shows the dialog and runs an action on it as soon as it can be confirmed.
    PrinterSetupResult Show(PrinterValues& values, std::function<void(GtkPrintUnixDialog*)> act) {
        int ticks = 0;
        wxTimer timer;
        timer.Bind(wxEVT_TIMER, [&](wxTimerEvent&) {
            GtkPrintUnixDialog* const dialog = Dialog();
            if (dialog == nullptr) return;
            if (act && CanConfirm(dialog)) {
                busy = wxIsBusy();
                std::exchange(act, nullptr)(dialog);
            } else if (++ticks > 200) {
                ADD_FAILURE() << "the dialog stayed open";
                gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_CANCEL);
            }
        });
        timer.Start(50);
        const PrinterSetupResult result = platform::ShowPrinterSetup(
            m_parent, values, {"Printer setup", "Laser is missing", "Paper is kept"});
        EXPECT_EQ(Dialog(), nullptr) << "the dialog is gone";
        EXPECT_FALSE(wxIsBusy());
        return result;
    }

    bool busy = false; ///< whether the busy cursor was set while the dialog was shown

private:
    wxFrame* m_parent = new wxFrame(nullptr, wxID_ANY, "Parent");
};

// A visible part of the dialog, found by the name that GTK or this program gave it.
GtkWidget* SeenPart(GtkWidget* whole, const std::string& name) {
    if (!gtk_widget_is_visible(whole)) return nullptr;
    const char* const own = GTK_IS_BUILDABLE(whole) ? gtk_buildable_get_name(GTK_BUILDABLE(whole)) : nullptr;
    if ((own != nullptr && own == name) || gtk_widget_get_name(whole) == name) return whole;
    GtkWidget* found = nullptr;
    if (!GTK_IS_CONTAINER(whole)) return found;
    GList* const parts = gtk_container_get_children(GTK_CONTAINER(whole));
    for (GList* part = parts; part != nullptr && found == nullptr; part = part->next)
        found = SeenPart(GTK_WIDGET(part->data), name);
    g_list_free(parts);
    return found;
}

TEST_F(PrintDialogTest, ShowsTheValues) {
    PrinterValues values{"Laser", "laserdrv", "2", "8", "2", "-3", "75"};
    Show(values, [](GtkPrintUnixDialog* dialog) {
        GtkPageSetup* const page = gtk_print_unix_dialog_get_page_setup(dialog);
        EXPECT_STREQ(gtk_paper_size_get_name(gtk_page_setup_get_paper_size(page)), "iso_a3");
        EXPECT_EQ(gtk_page_setup_get_orientation(page), GTK_PAGE_ORIENTATION_LANDSCAPE);
        // The list is on a page of the dialog that is not in front, but still counts as visible.
        GtkWidget* const list = SeenPart(GTK_WIDGET(dialog), "orientation_combo");
        EXPECT_NE(list, nullptr);
        if (list != nullptr) {
            EXPECT_EQ(gtk_combo_box_get_active(GTK_COMBO_BOX(list)), GTK_PAGE_ORIENTATION_LANDSCAPE);
        }
        GtkPrintSettings* const settings = gtk_print_unix_dialog_get_settings(dialog);
        EXPECT_EQ(gtk_print_settings_get_scale(settings), 75);
        g_object_unref(settings);
        gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_CANCEL);
    });
    EXPECT_TRUE(busy);
}

// The paper of the row that the dialog's list shows; "" if it shows no row.
std::string ShownPaper(GtkPrintUnixDialog* dialog) {
    GtkWidget* const part = SeenPart(GTK_WIDGET(dialog), "paper_size_combo");
    EXPECT_NE(part, nullptr);
    if (part == nullptr) return "?";
    GtkTreeIter row;
    if (gtk_combo_box_get_active_iter(GTK_COMBO_BOX(part), &row) == FALSE) return "";
    GtkPageSetup* page = nullptr;
    gtk_tree_model_get(gtk_combo_box_get_model(GTK_COMBO_BOX(part)), &row, 0, &page, -1);
    const std::string name = gtk_paper_size_get_name(gtk_page_setup_get_paper_size(page));
    g_object_unref(page);
    return name;
}

// Chooses the row of a paper as a click does.
void ChoosePaper(GtkPrintUnixDialog* dialog, const std::string& name) {
    auto* const list = GTK_COMBO_BOX(SeenPart(GTK_WIDGET(dialog), "paper_size_combo"));
    const int rows = gtk_tree_model_iter_n_children(gtk_combo_box_get_model(list), nullptr);
    for (int row = 0; row < rows; ++row) {
        GtkTreeIter at;
        gtk_tree_model_iter_nth_child(gtk_combo_box_get_model(list), &at, nullptr, row);
        GtkPageSetup* page = nullptr;
        gtk_tree_model_get(gtk_combo_box_get_model(list), &at, 0, &page, -1);
        if (page == nullptr) continue;
        const bool isIt = gtk_paper_size_get_name(gtk_page_setup_get_paper_size(page)) == name;
        g_object_unref(page);
        if (isIt) return gtk_combo_box_set_active(list, row);
    }
    ADD_FAILURE() << name << " is not in the list";
}

TEST_F(PrintDialogTest, TheListShowsTheStoredPaperAndTakesEveryOther) {
    PrinterValues values{"", "", "1", "8", "", "", ""};
    Show(values, [](GtkPrintUnixDialog* dialog) {
        EXPECT_EQ(ShownPaper(dialog), "iso_a3");
        EXPECT_EQ(SeenPart(GTK_WIDGET(dialog), "lblPaper"), nullptr);
        ChoosePaper(dialog, "iso_a4");
        gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
    });
    EXPECT_EQ(values.paperSize, "9");
}

TEST_F(PrintDialogTest, APaperThatHasNoNameHereIsNotShownAsAnother) {
    PrinterValues values{"", "", "1", "256", "", "", ""};
    Show(values, [](GtkPrintUnixDialog* dialog) {
        EXPECT_EQ(ShownPaper(dialog), "");
        GtkWidget* const note = SeenPart(GTK_WIDGET(dialog), "lblPaper");
        EXPECT_NE(note, nullptr);
        if (note != nullptr) {
            EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(note)), "Paper is kept");
        }
        gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
    });
    EXPECT_EQ(values.paperSize, "256");
    Show(values, [](GtkPrintUnixDialog* dialog) {
        ChoosePaper(dialog, "iso_a4");
        gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
    });
    EXPECT_EQ(values.paperSize, "9");
}

TEST_F(PrintDialogTest, IsSmallAndCalledLikeItsCommand) {
    PrinterValues values;
    Show(values, [](GtkPrintUnixDialog* dialog) {
        GtkWidget* const whole = GTK_WIDGET(dialog);
        EXPECT_STREQ(gtk_window_get_title(GTK_WINDOW(dialog)), "Printer setup");
        int width = 0;
        int height = 0;
        gtk_window_get_size(GTK_WINDOW(dialog), &width, &height);
        EXPECT_LE(width, 640);
        EXPECT_LE(height, 420) << "title bar and panels of a screen of 480 need the rest";
        EXPECT_NE(SeenPart(whole, "printer_treeview"), nullptr);
        for (const char* name : {"all_pages_radio", "copies_spin", "collate_check", "extension_point",
                                 "duplex", "page_set_combo", "output_tray"})
            EXPECT_EQ(SeenPart(whole, name), nullptr) << name << " is used by nothing";
        EXPECT_EQ(SeenPart(whole, "lblMissing"), nullptr) << "no printer was stored";
        gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_CANCEL);
    });
}

TEST_F(PrintDialogTest, SaysWhichPrinterIsMissingAndThatAnotherStandsIn) {
    PrinterValues values{"Laser", "laserdrv", "2", "8", "257", "-4", "75"};
    EXPECT_EQ(Show(values,
                   [](GtkPrintUnixDialog* dialog) {
                       GtkWidget* const note = SeenPart(GTK_WIDGET(dialog), "lblMissing");
                       EXPECT_NE(note, nullptr);
                       if (note != nullptr) {
                           EXPECT_STREQ(gtk_label_get_text(GTK_LABEL(note)), "Laser is missing");
                       }
                       int height = 0;
                       gtk_window_get_size(GTK_WINDOW(dialog), nullptr, &height);
                       EXPECT_LE(height, 440);
                       gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
                   }),
              PrinterSetupResult::StandIn);
    // An existing printer is confirmed unchanged.
    EXPECT_EQ(Show(values,
                   [](GtkPrintUnixDialog* dialog) {
                       EXPECT_EQ(SeenPart(GTK_WIDGET(dialog), "lblMissing"), nullptr);
                       gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
                   }),
              PrinterSetupResult::Confirmed);
}

TEST_F(PrintDialogTest, WhatIsChosenIsReadBack) {
    PrinterValues values{"", "laserdrv", "2", "8", "257", "-4", "75"};
    std::string printer;
    EXPECT_EQ(PrinterSetupResult::Confirmed, Show(values, [&](GtkPrintUnixDialog* dialog) {
                  GtkPageSetup* const page = gtk_page_setup_new();
                  SetPaper(page, "iso_a5");
                  gtk_page_setup_set_orientation(page, GTK_PAGE_ORIENTATION_PORTRAIT);
                  gtk_print_unix_dialog_set_page_setup(dialog, page);
                  g_object_unref(page);
                  printer = gtk_printer_get_name(gtk_print_unix_dialog_get_selected_printer(dialog));
                  gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
              }));
    EXPECT_FALSE(printer.empty());
    EXPECT_NE(values.driver, "");
    EXPECT_NE(values.driver, "laserdrv") << "another printer's";
    EXPECT_EQ(values, (PrinterValues{printer, values.driver, "1", "11", "257", "-4", "75"}));
}

TEST_F(PrintDialogTest, ConfirmedUnchangedItTakesThePrinterAlone) {
    for (const char* quality : {"-4", "-1", "600"}) {
        PrinterValues values = {"", "laserdrv", "2", "55", "257", quality, "75"};
        EXPECT_EQ(PrinterSetupResult::Confirmed, Show(values, [&](GtkPrintUnixDialog* dialog) {
                      gtk_dialog_response(GTK_DIALOG(dialog), GTK_RESPONSE_OK);
                  }));
        EXPECT_NE(values.device, "");
        EXPECT_EQ(values, (PrinterValues{values.device, values.driver, "2", "55", "257", quality, "75"}));
        EXPECT_NE(values.driver, "laserdrv") << "another printer's";
    }
}

TEST_F(PrintDialogTest, EscapeCancels) {
    PrinterValues values{"Laser", "laserdrv", "2", "8", "257", "-4", "75"};
    const PrinterValues before = values;
    EXPECT_EQ(PrinterSetupResult::Cancelled, Show(values, [](GtkPrintUnixDialog*) { Press(WXK_ESCAPE); }));
    EXPECT_EQ(values, before);
}

TEST_F(PrintDialogTest, EnterConfirms) {
    PrinterValues values;
    EXPECT_EQ(PrinterSetupResult::Confirmed, Show(values, [](GtkPrintUnixDialog*) { Press(WXK_RETURN); }));
    EXPECT_EQ(values.zoom, "100");
    EXPECT_NE(values.paperSize, "");
}

} // namespace
} // namespace nesk::testing
