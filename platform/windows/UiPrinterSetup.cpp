#include "platform/PrinterSetup.h"

#include "platform/windows/PrinterBlocks.h"

#include <wx/utils.h>
#include <wx/window.h>

namespace nesk::platform {

bool ShowPrinterSetup(wxWindow* parent, PrinterValues& values) {
    const wxBusyCursor busy;
    const HWND owner = parent != nullptr ? static_cast<HWND>(parent->GetHandle()) : nullptr;
    return windows::AskForPrinter(owner, values, ::PrintDlgA);
}

} // namespace nesk::platform
