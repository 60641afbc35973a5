#include "platform/common/UiPrinterSetup.h"

#include "platform/windows/PrinterBlocks.h"

#include <wx/window.h>

namespace nesk::platform {

PrinterSetupResult common::AskForPrinterSetup(wxWindow* parent, PrinterValues& values,
                                              const PrinterSetupTexts& texts) {
    const HWND owner = parent != nullptr ? static_cast<HWND>(parent->GetHandle()) : nullptr;
    return windows::AskForPrinter(owner, values, texts, ::PrintDlgA);
}

} // namespace nesk::platform
