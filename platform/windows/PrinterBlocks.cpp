#include "platform/windows/PrinterBlocks.h"

#include "platform/TextEncoding.h"
#include "platform/windows/DialogNote.h"
#include "platform/windows/WideText.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

#include <winspool.h>

namespace nesk::platform::windows {

namespace {

// Locks a global memory block for the lifetime of the object.
template <typename Content>
class Locked {
public:
    explicit Locked(HGLOBAL block)
        : m_block(block)
        , m_content(block != nullptr ? static_cast<Content*>(::GlobalLock(block)) : nullptr) {}
    ~Locked() {
        if (m_content != nullptr) ::GlobalUnlock(m_block);
    }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

    Content* Get() const { return m_content; }

private:
    HGLOBAL m_block;
    Content* m_content;
};

// The field of the device mode for a flag of dmFields.
short& Member(DEVMODEA& mode, DWORD bit) {
    switch (bit) {
    case DM_ORIENTATION: return mode.dmOrientation;
    case DM_PAPERSIZE: return mode.dmPaperSize;
    case DM_DEFAULTSOURCE: return mode.dmDefaultSource;
    case DM_PRINTQUALITY: return mode.dmPrintQuality;
    default: return mode.dmScale;
    }
}

// The flag that marks each number as valid, and the text of that number.
constexpr std::pair<DWORD, std::string PrinterValues::*> Numbers[] = {
    {DM_ORIENTATION, &PrinterValues::orientation},
    {DM_PAPERSIZE, &PrinterValues::paperSize},
    {DM_DEFAULTSOURCE, &PrinterValues::paperBin},
    {DM_PRINTQUALITY, &PrinterValues::quality},
    {DM_SCALE, &PrinterValues::zoom},
};

std::optional<short> Number(const std::string& text) {
    short number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

// The program's texts in the dialog.
struct OwnTexts {
    std::wstring title;
    std::wstring note; // "" for no note
};

// Hook called when the dialog is created. This is the only way to set the program's texts.
UINT_PTR CALLBACK ShowOwnTexts(HWND dialog, UINT message, WPARAM, LPARAM data) {
    if (message == WM_INITDIALOG) {
        const auto* const request = reinterpret_cast<const PRINTDLGA*>(data);
        const auto& texts = *reinterpret_cast<const OwnTexts*>(request->lCustData);
        ::SetWindowTextW(dialog, texts.title.c_str());
        if (!texts.note.empty()) AddDialogNote(dialog, texts.note);
    }
    // The dialog handles everything else itself and sets the focus to its first control.
    return message == WM_INITDIALOG ? 1 : 0;
}

} // namespace

PrinterBlocks::~PrinterBlocks() {
    ::GlobalFree(deviceMode);
    ::GlobalFree(deviceNames);
}

void PrinterBlocks::Apply(const PrinterValues& values) {
    const Locked<DEVMODEA> mode(deviceMode);
    if (mode.Get() == nullptr) return;
    for (const auto& [bit, text] : Numbers) {
        const std::optional<short> number = Number(values.*text);
        if (!number) continue;
        Member(*mode.Get(), bit) = *number;
        mode.Get()->dmFields |= bit;
    }
}

PrinterValues PrinterBlocks::Read(const PrinterValues& before) const {
    PrinterValues values = before;
    if (const Locked<DEVMODEA> mode(deviceMode); mode.Get() != nullptr)
        for (const auto& [bit, text] : Numbers)
            if ((mode.Get()->dmFields & bit) != 0) values.*text = std::to_string(Member(*mode.Get(), bit));
    // The device mode truncates the printer's name to 31 characters; the device names contain all of it.
    if (const Locked<DEVNAMES> names(deviceNames); names.Get() != nullptr) {
        const char* const start = reinterpret_cast<const char*>(names.Get());
        values.device = FromAnsi(start + names.Get()->wDeviceOffset);
        values.driver = FromAnsi(start + names.Get()->wDriverOffset);
    }
    return values;
}

bool PrinterExists(const std::string& name) {
    HANDLE printer = nullptr;
    std::wstring wide = ToWide(name);
    if (::OpenPrinterW(wide.data(), &printer, nullptr) == FALSE) return false;
    ::ClosePrinter(printer);
    return true;
}

PrinterSetupResult AskForPrinter(HWND owner, PrinterValues& values, const PrinterSetupTexts& texts,
                                 PrintDialogFunction dialog, PrinterExistsFunction exists) {
    PRINTDLGA request{};
    request.lStructSize = sizeof request;
    request.Flags = PD_RETURNDEFAULT;
    // Without a printer there are no blocks, and the dialog itself shows a message.
    dialog(&request);
    PrinterBlocks blocks;
    blocks.deviceMode = request.hDevMode;
    blocks.deviceNames = request.hDevNames;
    const std::string offered = blocks.Read({}).device;
    const bool isMissing = !values.device.empty() && !exists(values.device);
    blocks.Apply(values);

    const OwnTexts own{ToWide(texts.title), ToWide(isMissing ? texts.missing : "")};
    request.hwndOwner = owner;
    // Windows calls the setup hook. Wine always calls the print hook.
    request.Flags = PD_PRINTSETUP | PD_ENABLESETUPHOOK | PD_ENABLEPRINTHOOK;
    request.lpfnSetupHook = ShowOwnTexts;
    request.lpfnPrintHook = ShowOwnTexts;
    request.lCustData = reinterpret_cast<LPARAM>(&own);
    const bool confirmed = dialog(&request) != FALSE;
    blocks.deviceMode = request.hDevMode;
    blocks.deviceNames = request.hDevNames;
    if (!confirmed) return PrinterSetupResult::Cancelled;
    values = blocks.Read(values);
    return isMissing && values.device == offered ? PrinterSetupResult::StandIn
                                                 : PrinterSetupResult::Confirmed;
}

} // namespace nesk::platform::windows
