#include "settings/PrinterChoice.h"

#include "base/Messages.h"
#include "shell/FieldMessage.h"
#include "shell/modMessageBox.h"
#include "shell/modStringRes.h"

namespace nesk::PrinterChoice {

using modStringRes::FormatResString;
using modStringRes::LoadResString;
using platform::PrinterSetupResult;
using platform::PrinterValues;

namespace {

// The caption of the command without the dots at its end is the title of the dialog.
std::string Title() {
    std::string title = FieldMessage::PlainLabel(LoadResString(Message::PrinterLabel));
    title.erase(title.find_last_not_of('.') + 1);
    return title;
}

} // namespace

std::string Shown(const PrinterValues& values) {
    return values.device.empty() ? LoadResString(Message::PrinterNoPrinter)
                                 : FormatResString(Message::Printer, values.device);
}

platform::PrinterSetupTexts Texts(const PrinterValues& values) {
    return {Title(), FormatResString(Message::PrinterMissing, values.device),
            LoadResString(Message::PrinterPaper)};
}

void Take(PrinterValues& values, const PrinterValues& chosen, PrinterSetupResult result) {
    if (result == PrinterSetupResult::Cancelled) return;
    const PrinterValues before = values;
    values = chosen;
    if (result != PrinterSetupResult::StandIn) return;
    using namespace modMessageBox;
    const std::string question =
        FormatResString(Message::PrinterReplaceQuestion, before.device, chosen.device);
    if (ShowMessage(question, Option::YesNo + Option::Question + Option::SecondDefault, Title()) ==
        Result::Yes)
        return;
    values.device = before.device;
    values.driver = before.driver;
}

} // namespace nesk::PrinterChoice
