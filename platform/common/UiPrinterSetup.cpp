#include "platform/common/UiPrinterSetup.h"

#include <utility>

#include <wx/utils.h>

namespace nesk::platform {

namespace {

PrinterSetupFunction& Replacement() {
    static PrinterSetupFunction function;
    return function;
}

} // namespace

bool ShowPrinterSetup(wxWindow* parent, PrinterValues& values) {
    const wxBusyCursor busy;
    return Replacement() ? Replacement()(parent, values) : common::AskForPrinterSetup(parent, values);
}

PrinterSetupFunction SetPrinterSetup(PrinterSetupFunction setup) {
    return std::exchange(Replacement(), std::move(setup));
}

} // namespace nesk::platform
