#pragma once

#include "platform/PrinterSetup.h"

#include <string>

#include <windows.h>

#include <commdlg.h>

namespace nesk::platform::windows {

/// The two blocks of global memory in which the printer dialog takes and gives the setup of a printer.
class PrinterBlocks {
public:
    PrinterBlocks() = default;
    ~PrinterBlocks();
    PrinterBlocks(const PrinterBlocks&) = delete;
    PrinterBlocks& operator=(const PrinterBlocks&) = delete;

    /// Sets orientation, paper size, paper bin, quality and scale in the device mode. A text that is no
    /// number of 16 bits, and a device mode that is missing, are left alone.
    void Apply(const PrinterValues& values);

    /// What the blocks hold; a value that the printer does not know stays as it is in `before`.
    PrinterValues Read(const PrinterValues& before) const;

    /// The blocks as the dialog takes them. The dialog may put others in their place.
    HGLOBAL deviceMode = nullptr;
    HGLOBAL deviceNames = nullptr;
};

/// The system's printer dialog, PrintDlgA, or what takes its place in a test.
using PrintDialogFunction = BOOL(WINAPI*)(PRINTDLGA*);

/// Whether there is a printer of a name, in UTF-8, on this machine.
bool PrinterExists(const std::string& name);

/// What takes the place of PrinterExists in a test.
using PrinterExistsFunction = bool (*)(const std::string& name);

/// Shows the dialog that sets up a printer, beginning with the system's default printer and the values given.
/// Its title is that of the texts, and a line says when the printer of the values is missing.
/// @param values  what was chosen, when the dialog was confirmed; stays as it was otherwise
PrinterSetupResult AskForPrinter(HWND owner, PrinterValues& values, const PrinterSetupTexts& texts,
                                 PrintDialogFunction dialog, PrinterExistsFunction exists = PrinterExists);

} // namespace nesk::platform::windows
