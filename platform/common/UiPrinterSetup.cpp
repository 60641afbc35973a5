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

PrinterSetupResult ShowPrinterSetup(wxWindow* parent, PrinterValues& values, const PrinterSetupTexts& texts) {
    const wxBusyCursor busy;
    return Replacement() ? Replacement()(parent, values, texts)
                         : common::AskForPrinterSetup(parent, values, texts);
}

PrinterSetupFunction SetPrinterSetup(PrinterSetupFunction setup) {
    return std::exchange(Replacement(), std::move(setup));
}

} // namespace nesk::platform
