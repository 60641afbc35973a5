#pragma once

#include "platform/PrinterSetup.h"

namespace nesk::platform::common {

/// Shows the system's own printer dialog; each kind of station has its own way to it. Parameters and result
/// are those of ShowPrinterSetup, which makes the pointer busy before it calls this.
PrinterSetupResult AskForPrinterSetup(wxWindow* parent, PrinterValues& values,
                                      const PrinterSetupTexts& texts);

} // namespace nesk::platform::common
