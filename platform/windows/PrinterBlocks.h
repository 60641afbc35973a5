#pragma once

#include "platform/PrinterSetup.h"

#include <string>

#include <windows.h>

#include <commdlg.h>

namespace nesk::platform::windows {

/// The two global memory blocks that pass a printer's setup to and from the printer dialog.
class PrinterBlocks {
public:
    PrinterBlocks() = default;
    ~PrinterBlocks();
    PrinterBlocks(const PrinterBlocks&) = delete;
    PrinterBlocks& operator=(const PrinterBlocks&) = delete;

    /// Sets orientation, paper size, paper bin, quality and scale in the device mode. Texts that are not
    /// 16-bit numbers are ignored. Does nothing without a device mode.
    void Apply(const PrinterValues& values);

    /// Reads the blocks; a value that the printer does not support is taken from `before`.
    PrinterValues Read(const PrinterValues& before) const;

    /// The blocks in the form of the dialog, which may replace them.
    HGLOBAL deviceMode = nullptr;
    HGLOBAL deviceNames = nullptr;
};

/// The signature of the system's printer dialog, PrintDlgA, and of its replacement in tests.
using PrintDialogFunction = BOOL(WINAPI*)(PRINTDLGA*);

/// True when this machine has a printer with a name, in UTF-8.
bool PrinterExists(const std::string& name);

/// The signature of PrinterExists, for its replacement in tests.
using PrinterExistsFunction = bool (*)(const std::string& name);

/// Shows the dialog that sets up a printer. It starts with the system's default printer and the given values.
/// Its title comes from `texts`, and a note is shown when the printer in the values is missing.
/// @param values  receives the chosen values when the dialog is confirmed; otherwise unchanged
PrinterSetupResult AskForPrinter(HWND owner, PrinterValues& values, const PrinterSetupTexts& texts,
                                 PrintDialogFunction dialog, PrinterExistsFunction exists = PrinterExists);

} // namespace nesk::platform::windows
