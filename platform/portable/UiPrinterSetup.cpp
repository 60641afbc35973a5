#include "platform/common/UiPrinterSetup.h"

#include "platform/portable/UiPrinterData.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include <gtk/gtkunixprint.h>
#include <wx/window.h>

namespace nesk::platform {

namespace {

// The toolkit's translation of one of its texts.
const char* ToolkitText(const char* text) {
    return g_dgettext("gtk30", text);
}

// Information about the installed printers.
struct Printers {
    std::string wanted; // the requested printer
    bool hasWanted = false;
    std::string first;
    std::string standard; // the system's default printer
};

Printers FindPrinters(const std::string& wanted) {
    Printers printers;
    printers.wanted = wanted;
    const GtkPrinterFunc look = [](GtkPrinter* printer, gpointer data) -> gboolean {
        auto& found = *static_cast<Printers*>(data);
        const std::string name = gtk_printer_get_name(printer);
        if (found.first.empty() && gtk_printer_is_active(printer)) found.first = name;
        if (gtk_printer_is_default(printer)) found.standard = name;
        found.hasWanted = found.hasWanted || name == found.wanted;
        return FALSE;
    };
    gtk_enumerate_printers(look, &printers, nullptr, TRUE);
    return printers;
}

// Finds the widget of a dialog that has the given builder name. Returns null if no widget has that name.
GtkWidget* FindPart(GtkWidget* whole, std::string_view name) {
    const char* const own = GTK_IS_BUILDABLE(whole) ? gtk_buildable_get_name(GTK_BUILDABLE(whole)) : nullptr;
    if (own != nullptr && own == name) return whole;
    if (!GTK_IS_CONTAINER(whole)) return nullptr;
    struct Search {
        std::string_view name;
        GtkWidget* found;
    } search{name, nullptr};
    gtk_container_forall(
        GTK_CONTAINER(whole),
        [](GtkWidget* part, gpointer data) {
            auto& wanted = *static_cast<Search*>(data);
            if (wanted.found == nullptr) wanted.found = FindPart(part, wanted.name);
        },
        &search);
    return search.found;
}

// Parts of the dialog that are not used here, by their builder names. With them the dialog would be too high
// for a small screen.
constexpr std::array UnusedParts = {"box3",            // range and copies
                                    "extension_point", // the file that would be printed to
                                    "job_page",        // the time of printing
                                    // Labels and boxes for two-sided printing, pages per side and their
                                    // order, even or odd pages, kind of paper, and output tray.
                                    "label5", "duplex", "label6", "pages_per_sheet", "label7",
                                    "number_up_layout", "label8", "page_set_combo", "label11", "paper_type",
                                    "label13", "output_tray"};

// The toolkit's print dialog, used for the setup alone.
class PrintDialog {
public:
    PrintDialog(wxWindow* parent, const std::string& title)
        : m_dialog(GTK_PRINT_UNIX_DIALOG(gtk_print_unix_dialog_new(
              title.c_str(),
              parent != nullptr ? GTK_WINDOW(gtk_widget_get_toplevel(parent->GetHandle())) : nullptr))) {
        // Offer printers that accept either format; the dialog must ask for the zoom itself.
        constexpr auto capabilities =
            static_cast<GtkPrintCapabilities>(GTK_PRINT_CAPABILITY_GENERATE_PDF |
                                              GTK_PRINT_CAPABILITY_GENERATE_PS | GTK_PRINT_CAPABILITY_SCALE);
        gtk_print_unix_dialog_set_manual_capabilities(m_dialog, capabilities);
        // Paper and orientation are chosen in this dialog, too.
        gtk_print_unix_dialog_set_embed_page_setup(m_dialog, TRUE);
        // The confirming button does not print.
        GtkWidget* const confirm = gtk_dialog_get_widget_for_response(GTK_DIALOG(m_dialog), GTK_RESPONSE_OK);
        gtk_button_set_label(GTK_BUTTON(confirm), ToolkitText("_OK"));
        gtk_button_set_use_underline(GTK_BUTTON(confirm), TRUE);
        gtk_window_set_modal(GTK_WINDOW(m_dialog), TRUE);
        for (const char* name : UnusedParts)
            HidePart(name);
        // The remaining parts fit on every screen once the dialog requests no larger size.
        constexpr int width = 520;
        constexpr int height = 360;
        constexpr int previewHeight = 125;
        if (GtkWidget* const preview = FindPart(GTK_WIDGET(m_dialog), "page_layout_preview"))
            gtk_widget_set_size_request(preview, -1, previewHeight);
        gtk_window_set_default_size(GTK_WINDOW(m_dialog), width, height);
    }
    ~PrintDialog() { gtk_widget_destroy(GTK_WIDGET(m_dialog)); }
    PrintDialog(const PrintDialog&) = delete;
    PrintDialog& operator=(const PrintDialog&) = delete;

    // Adds a line below the list of printers.
    void AddNote(const char* name, const std::string& text) {
        GtkWidget* const page = FindPart(GTK_WIDGET(m_dialog), "box2");
        GtkWidget* const label = gtk_label_new(text.c_str());
        gtk_label_set_line_wrap(GTK_LABEL(label), TRUE);
        gtk_label_set_xalign(GTK_LABEL(label), 0);
        constexpr int lineLength = 60;
        gtk_label_set_max_width_chars(GTK_LABEL(label), lineLength);
        gtk_widget_set_name(label, name);
        GtkWidget* const content = gtk_dialog_get_content_area(GTK_DIALOG(m_dialog));
        gtk_container_add(GTK_CONTAINER(page != nullptr ? page : content), label);
        gtk_widget_show(label);
    }

    /// @param isPaperKnown  false when the stored paper has no counterpart here; then no paper is selected
    void Show(const portable::PrinterData& data, bool isPaperKnown) {
        gtk_print_unix_dialog_set_settings(m_dialog, data.settings.get());
        gtk_print_unix_dialog_set_page_setup(m_dialog, data.page.get());
        m_withoutPaper = !isPaperKnown;
        // The dialog stores paper and orientation but does not update its lists. The user could then not
        // choose the entry that a list shows.
        if (GtkComboBox* const list = PaperList())
            SelectPaper(*list, isPaperKnown ? gtk_page_setup_get_paper_size(data.page.get()) : nullptr);
        if (GtkWidget* const list = FindPart(GTK_WIDGET(m_dialog), "orientation_combo"))
            gtk_combo_box_set_active(GTK_COMBO_BOX(list), gtk_page_setup_get_orientation(data.page.get()));
    }

    // True when the user chose a paper in place of one that cannot be shown.
    bool HasReplacedPaper() {
        GtkComboBox* const list = PaperList();
        return m_withoutPaper && list != nullptr && gtk_combo_box_get_active(list) >= 0;
    }

    bool IsConfirmed() { return gtk_dialog_run(GTK_DIALOG(m_dialog)) == GTK_RESPONSE_OK; }

    portable::PrinterData Chosen() const {
        portable::PrinterData data;
        data.settings.reset(gtk_print_unix_dialog_get_settings(m_dialog));
        // The dialog owns its page setup.
        data.page.reset(gtk_page_setup_copy(gtk_print_unix_dialog_get_page_setup(m_dialog)));
        return data;
    }

    // The print system of the selected printer, for example "cups". The toolkit reports it only by the class
    // of the printer; a printer to a file has the base class.
    std::string Driver() const {
        GtkPrinter* const printer = gtk_print_unix_dialog_get_selected_printer(m_dialog);
        if (printer == nullptr) return "";
        constexpr std::string_view general = "GtkPrinter";
        const std::string_view name = G_OBJECT_TYPE_NAME(printer);
        if (!name.starts_with(general) || name == general) return "file";
        std::string driver(name.substr(general.size()));
        std::transform(driver.begin(), driver.end(), driver.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c; });
        return driver;
    }

private:
    // The list of papers; null when the dialog does not have it.
    GtkComboBox* PaperList() {
        GtkWidget* const list = FindPart(GTK_WIDGET(m_dialog), "paper_size_combo");
        return GTK_IS_COMBO_BOX(list) ? GTK_COMBO_BOX(list) : nullptr;
    }

    // Selects the row of a paper; no row for null or for a paper that the printer does not have.
    static void SelectPaper(GtkComboBox& list, GtkPaperSize* paper) {
        GtkTreeModel* const rows = gtk_combo_box_get_model(&list);
        GtkTreeIter row;
        // The first column of each row is its page setup. Separator rows have none.
        bool isRow = rows != nullptr && g_type_is_a(gtk_tree_model_get_column_type(rows, 0), G_TYPE_OBJECT) &&
                     gtk_tree_model_get_iter_first(rows, &row);
        for (; isRow; isRow = gtk_tree_model_iter_next(rows, &row)) {
            gpointer found = nullptr;
            gtk_tree_model_get(rows, &row, 0, &found, -1);
            if (found == nullptr) continue;
            const portable::GtkOwned<GObject> page(G_OBJECT(found));
            if (paper != nullptr && GTK_IS_PAGE_SETUP(found) &&
                gtk_paper_size_is_equal(gtk_page_setup_get_paper_size(GTK_PAGE_SETUP(found)), paper))
                return gtk_combo_box_set_active_iter(&list, &row);
        }
        gtk_combo_box_set_active(&list, -1);
    }

    // Hides a part permanently: the dialog shows some parts again when another printer is selected.
    void HidePart(std::string_view name) {
        GtkWidget* const part = FindPart(GTK_WIDGET(m_dialog), name);
        if (part == nullptr) return;
        g_signal_connect(part, "show", G_CALLBACK(gtk_widget_hide), nullptr);
        gtk_widget_hide(part);
    }

    GtkPrintUnixDialog* m_dialog;
    bool m_withoutPaper = false;
};

} // namespace

PrinterSetupResult common::AskForPrinterSetup(wxWindow* parent, PrinterValues& values,
                                              const PrinterSetupTexts& texts) {
    const portable::PrinterData shown = portable::ApplyPrinterValues(values);
    const Printers printers = FindPrinters(values.device);
    const bool isMissing = !values.device.empty() && !printers.hasWanted;
    // The dialog starts with the default printer. Without a default, no printer would be selected and the
    // dialog could not be confirmed. A machine without printers can print to a file.
    const std::string& offered = printers.standard.empty() ? printers.first : printers.standard;
    if (printers.standard.empty())
        gtk_print_settings_set_printer(shown.settings.get(), printers.first.c_str());
    PrintDialog dialog(parent, texts.title);
    if (isMissing) dialog.AddNote("lblMissing", texts.missing);
    const bool isPaperKnown = values.paperSize.empty() || portable::KnowsPaper(values);
    if (!isPaperKnown) dialog.AddNote("lblPaper", texts.paper);
    dialog.Show(shown, isPaperKnown);
    if (!dialog.IsConfirmed()) return PrinterSetupResult::Cancelled;
    // A paper chosen by the user counts, even if it is the dialog's initial one.
    if (dialog.HasReplacedPaper()) values.paperSize.clear();
    values = portable::ReadPrinterValues(dialog.Chosen(), values, shown);
    if (values.driver.empty()) values.driver = dialog.Driver();
    return isMissing && values.device == offered ? PrinterSetupResult::StandIn
                                                 : PrinterSetupResult::Confirmed;
}

} // namespace nesk::platform
