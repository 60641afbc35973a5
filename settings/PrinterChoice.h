#pragma once

#include "platform/PrinterSetup.h"

#include <string>

/// What the options dialog decides about the printer.
namespace nesk::PrinterChoice {

/// The printer of the values as the options show it.
std::string Shown(const platform::PrinterValues& values);

/// Texts of the printer dialog for these values.
platform::PrinterSetupTexts Texts(const platform::PrinterValues& values);

/// Takes over what the printer dialog gave. A printer that is not on this machine stays until another one is
/// chosen on purpose: when the dialog was only confirmed with the printer that stood in for it, a question
/// says so, and the other values alone are taken unless it is answered with Yes.
/// @param values  the values before; those to be stored afterwards
/// @param chosen  what the dialog gave
void Take(platform::PrinterValues& values, const platform::PrinterValues& chosen,
          platform::PrinterSetupResult result);

} // namespace nesk::PrinterChoice
