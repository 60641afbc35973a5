#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// The setup of a printer. All texts are UTF-8. The last five are decimal numbers, or "" where nothing was
/// chosen.
struct PrinterValues {
    std::string device;      ///< name of the printer
    std::string driver;      ///< name of its driver
    std::string orientation; ///< 1 portrait, 2 landscape
    std::string paperSize;   ///< Windows paper code, for example 9 for A4
    std::string paperBin;    ///< Windows paper source code, for example 7 for automatic
    std::string quality;     ///< -1 draft, -2 low, -3 medium, -4 high, or dots per inch
    std::string zoom;        ///< percent

    bool operator==(const PrinterValues&) const = default;
};

/// Texts of the printer dialog, in UTF-8.
struct PrinterSetupTexts {
    std::string title;
    std::string missing; ///< note shown when the printer in the values is not on this machine
    std::string paper;   ///< note shown when the list of papers lacks the paper in the values; not on Windows
};

/// How the printer dialog was ended.
enum class PrinterSetupResult {
    Cancelled,
    Confirmed,
    StandIn, ///< confirmed, but with the printer that the dialog itself selected in place of a missing one
};

/// Shows the system's printer dialog with a busy pointer. It starts with the system's default printer and the
/// given values.
/// @param values  receives the chosen values when the dialog is confirmed; otherwise unchanged
PrinterSetupResult ShowPrinterSetup(wxWindow* parent, PrinterValues& values, const PrinterSetupTexts& texts);

/// Signature of ShowPrinterSetup.
using PrinterSetupFunction = std::function<PrinterSetupResult(wxWindow* parent, PrinterValues& values,
                                                              const PrinterSetupTexts& texts)>;

/// Replaces the system's dialog with another function; an empty function restores the dialog. For tests,
/// because the installed printers differ between machines. Returns the previous function.
PrinterSetupFunction SetPrinterSetup(PrinterSetupFunction setup);

} // namespace nesk::platform
