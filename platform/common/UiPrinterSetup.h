#pragma once

#include "platform/PrinterSetup.h"

namespace nesk::platform::common {

/// Shows the system's printer dialog; each system has its own implementation. Parameters and result are those
/// of ShowPrinterSetup, which shows the busy pointer before this call.
PrinterSetupResult AskForPrinterSetup(wxWindow* parent, PrinterValues& values,
                                      const PrinterSetupTexts& texts);

} // namespace nesk::platform::common
