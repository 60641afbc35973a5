#pragma once

#include <functional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// The setup of a printer. All texts are UTF-8; the last five are decimal numbers, "" where none was chosen.
struct PrinterValues {
    std::string device;      ///< name of the printer
    std::string driver;      ///< name of its driver
    std::string orientation; ///< 1 portrait, 2 landscape
    std::string paperSize;   ///< paper code of Windows, as 9 for A4
    std::string paperBin;    ///< paper source code of Windows, as 7 for automatic
    std::string quality;     ///< -1 draft, -2 low, -3 medium, -4 high, or dots an inch
    std::string zoom;        ///< percent

    bool operator==(const PrinterValues&) const = default;
};

/// Texts of the printer dialog, in UTF-8.
struct PrinterSetupTexts {
    std::string title;
    std::string missing; ///< shown in it when the printer of the values is not on this machine
    std::string paper;   ///< shown in it when its list cannot show the paper of the values; not on Windows
};

/// How the printer dialog was ended.
enum class PrinterSetupResult {
    Cancelled,
    Confirmed,
    StandIn, ///< confirmed, but with the printer that the dialog offered by itself in place of a missing one
};

/// Shows the system's printer dialog, which begins with the system's default printer and the values given,
/// and waits with a busy pointer.
/// @param values  what was chosen, when the dialog was confirmed; stays as it was otherwise
PrinterSetupResult ShowPrinterSetup(wxWindow* parent, PrinterValues& values, const PrinterSetupTexts& texts);

/// What ShowPrinterSetup calls.
using PrinterSetupFunction = std::function<PrinterSetupResult(wxWindow* parent, PrinterValues& values,
                                                              const PrinterSetupTexts& texts)>;

/// Puts something else in the place of the system's dialog; an empty function brings that back. A test needs
/// it, for which printers there are differs from machine to machine. Returns what was there before.
PrinterSetupFunction SetPrinterSetup(PrinterSetupFunction setup);

} // namespace nesk::platform
