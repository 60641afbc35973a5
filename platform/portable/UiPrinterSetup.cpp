#include "platform/PrinterSetup.h"

#include "platform/portable/UiPrinterData.h"

#include <wx/cmndata.h>
#include <wx/printdlg.h>
#include <wx/utils.h>

namespace nesk::platform {

bool ShowPrinterSetup(wxWindow* parent, PrinterValues& values) {
    const wxBusyCursor busy;
    // Without a name of its own the dialog begins with no printer in particular, which is the system's
    // default.
    wxPageSetupDialogData data;
    portable::ApplyPrinterValues(values, data.GetPrintData());
    // The toolkit's print dialog would start a job when it is confirmed. This one lets the user choose
    // printer, paper and orientation, and prints nothing.
    wxPageSetupDialog dialog(parent, &data);
    if (dialog.ShowModal() != wxID_OK) return false;
    wxPrintData chosen = dialog.GetPageSetupDialogData().GetPrintData();
    // The dialog offers no quality, and the toolkit gives 300 dots an inch back for each that has a name.
    chosen.SetQuality(data.GetPrintData().GetQuality());
    values = portable::ReadPrinterValues(chosen, values);
    return true;
}

} // namespace nesk::platform
