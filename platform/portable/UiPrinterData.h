#pragma once

#include "platform/PrinterSetup.h"

#include <memory>

#include <gtk/gtk.h>

/// Conversion of a printer's setup to and from the data of the toolkit's print dialog.
namespace nesk::platform::portable {

struct ObjectReleaser {
    void operator()(gpointer object) const { g_object_unref(object); }
};

/// Owner of a GObject, which it releases.
template <typename Object>
using GtkOwned = std::unique_ptr<Object, ObjectReleaser>;

/// A printer's setup in two parts: print settings and page setup.
struct PrinterData {
    GtkOwned<GtkPrintSettings> settings{gtk_print_settings_new()};
    GtkOwned<GtkPageSetup> page{gtk_page_setup_new()};
};

/// Applies orientation, paper size, paper bin, quality and zoom. Values that are not numbers or have no
/// counterpart leave the toolkit's default. The printer's name is not set, so a dialog starts with the
/// system's default printer.
PrinterData ApplyPrinterValues(const PrinterValues& values);

/// True when the toolkit has a counterpart of the paper size.
bool KnowsPaper(const PrinterValues& values);

/// Reads the chosen values.
/// @param before  the applied values. A value is kept when `chosen` equals `shown` or does not set it; codes
///                that the toolkit does not know are thus preserved
/// @param shown   the values shown at first
PrinterValues ReadPrinterValues(const PrinterData& chosen, const PrinterValues& before,
                                const PrinterData& shown);

} // namespace nesk::platform::portable
