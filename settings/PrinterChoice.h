#pragma once

#include "platform/PrinterSetup.h"

#include <string>

/// The printer rules of the options dialog.
namespace nesk::PrinterChoice {

/// The text that the options dialog shows for the printer.
std::string Shown(const platform::PrinterValues& values);

/// Texts of the printer dialog for these values.
platform::PrinterSetupTexts Texts(const platform::PrinterValues& values);

/// Accepts the values from the printer dialog. A stored printer that does not exist on this machine is kept
/// until the user deliberately chooses another: when the user only confirmed the dialog with the substitute
/// printer, a question asks whether to replace the stored printer. Unless the answer is Yes, only the other
/// values are accepted.
/// @param values  the values before the call; the values to store after it
/// @param chosen  the values from the dialog
void Take(platform::PrinterValues& values, const platform::PrinterValues& chosen,
          platform::PrinterSetupResult result);

} // namespace nesk::PrinterChoice
