#pragma once

#include "platform/PrinterSetup.h"

class wxPrintData;

/// The setup of a printer as the toolkit keeps it.
namespace nesk::platform::portable {

/// Applies orientation, paper size, paper bin and quality. What is no number, or has no counterpart, leaves
/// the toolkit's default.
void ApplyPrinterValues(const PrinterValues& values, wxPrintData& data);

/// What the dialog holds.
/// @param before  the values that were applied; they stay where the toolkit does not know any
PrinterValues ReadPrinterValues(const wxPrintData& data, const PrinterValues& before);

} // namespace nesk::platform::portable
