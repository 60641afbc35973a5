#pragma once

#include "platform/PrinterSetup.h"

#include <memory>

#include <gtk/gtk.h>

/// The setup of a printer as the toolkit's print dialog takes and gives it.
namespace nesk::platform::portable {

struct ObjectReleaser {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// An object of the toolkit below wx, released at the end of the scope.
template <typename Object>
using GtkOwned = std::unique_ptr<Object, ObjectReleaser>;

/// A printer's setup in its two halves: how it prints and on what.
struct PrinterData {
    GtkOwned<GtkPrintSettings> settings{gtk_print_settings_new()};
    GtkOwned<GtkPageSetup> page{gtk_page_setup_new()};
};

/// Applies orientation, paper size, paper bin, quality and zoom. What is no number, or has no counterpart,
/// leaves the toolkit's default. The printer is not named: a dialog then begins with the system's default.
PrinterData ApplyPrinterValues(const PrinterValues& values);

/// Whether the toolkit has a counterpart of the paper size.
bool KnowsPaper(const PrinterValues& values);

/// What was chosen.
/// @param before  the values that were applied; one stays where `chosen` is as `shown`, or says nothing, so
///                that codes which the toolkit does not know survive
/// @param shown   what was shown at first
PrinterValues ReadPrinterValues(const PrinterData& chosen, const PrinterValues& before,
                                const PrinterData& shown);

} // namespace nesk::platform::portable
