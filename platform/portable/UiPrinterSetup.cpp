#include "platform/common/UiPrinterSetup.h"

#include "platform/portable/UiPrinterData.h"

#include <algorithm>
#include <string>
#include <string_view>

#include <gtk/gtkunixprint.h>
#include <wx/window.h>

namespace nesk::platform {

namespace {

// A text of the toolkit below wx in the user's language.
const char* ToolkitText(const char* text) {
    return g_dgettext("gtk30", text);
}

// What is known of the printers there are.
struct Printers {
    bool hasDefault = false;
    std::string first;
};

Printers FindPrinters() {
    Printers printers;
    const GtkPrinterFunc look = [](GtkPrinter* printer, gpointer data) -> gboolean {
        auto& found = *static_cast<Printers*>(data);
        if (found.first.empty() && gtk_printer_is_active(printer))
            found.first = gtk_printer_get_name(printer);
        found.hasDefault = gtk_printer_is_default(printer) != FALSE;
        return gboolean{found.hasDefault};
    };
    gtk_enumerate_printers(look, &printers, nullptr, TRUE);
    return printers;
}

// The print dialog, of which nothing but the setup is wanted.
class PrintDialog {
public:
    explicit PrintDialog(wxWindow* parent)
        : m_dialog(GTK_PRINT_UNIX_DIALOG(gtk_print_unix_dialog_new(
              ToolkitText("Page Setup"),
              parent != nullptr ? GTK_WINDOW(gtk_widget_get_toplevel(parent->GetHandle())) : nullptr))) {
        // Printers are offered that take either format; the zoom is the dialog's own to ask for.
        constexpr auto capabilities =
            static_cast<GtkPrintCapabilities>(GTK_PRINT_CAPABILITY_GENERATE_PDF |
                                              GTK_PRINT_CAPABILITY_GENERATE_PS | GTK_PRINT_CAPABILITY_SCALE);
        gtk_print_unix_dialog_set_manual_capabilities(m_dialog, capabilities);
        // Paper and orientation are chosen in the same dialog.
        gtk_print_unix_dialog_set_embed_page_setup(m_dialog, TRUE);
        // Nothing is printed by the button that confirms.
        GtkWidget* const confirm = gtk_dialog_get_widget_for_response(GTK_DIALOG(m_dialog), GTK_RESPONSE_OK);
        gtk_button_set_label(GTK_BUTTON(confirm), ToolkitText("_OK"));
        gtk_button_set_use_underline(GTK_BUTTON(confirm), TRUE);
        gtk_window_set_modal(GTK_WINDOW(m_dialog), TRUE);
    }
    ~PrintDialog() { gtk_widget_destroy(GTK_WIDGET(m_dialog)); }
    PrintDialog(const PrintDialog&) = delete;
    PrintDialog& operator=(const PrintDialog&) = delete;

    void Show(const portable::PrinterData& data) {
        gtk_print_unix_dialog_set_settings(m_dialog, data.settings.get());
        gtk_print_unix_dialog_set_page_setup(m_dialog, data.page.get());
    }

    bool IsConfirmed() { return gtk_dialog_run(GTK_DIALOG(m_dialog)) == GTK_RESPONSE_OK; }

    portable::PrinterData Chosen() const {
        portable::PrinterData data;
        data.settings.reset(gtk_print_unix_dialog_get_settings(m_dialog));
        // The dialog keeps this one.
        data.page.reset(gtk_page_setup_copy(gtk_print_unix_dialog_get_page_setup(m_dialog)));
        return data;
    }

    // What drives the selected printer: "cups" for one of that print system. The toolkit has a class for each
    // of them and tells no more; a printer that is a file is of the general class.
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
    GtkPrintUnixDialog* m_dialog;
};

} // namespace

bool common::AskForPrinterSetup(wxWindow* parent, PrinterValues& values) {
    const portable::PrinterData shown = portable::ApplyPrinterValues(values);
    // The dialog begins with the default printer. Without one it would begin with none, and could not be
    // confirmed; a machine without printers can print to a file.
    if (const Printers printers = FindPrinters(); !printers.hasDefault)
        gtk_print_settings_set_printer(shown.settings.get(), printers.first.c_str());
    PrintDialog dialog(parent);
    dialog.Show(shown);
    if (!dialog.IsConfirmed()) return false;
    values = portable::ReadPrinterValues(dialog.Chosen(), values, shown);
    if (values.driver.empty()) values.driver = dialog.Driver();
    return true;
}

} // namespace nesk::platform
