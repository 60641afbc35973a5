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

// Access to a block of global memory for as long as the object lives.
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

// The number that a bit of the device mode's fields stands for.
short& Member(DEVMODEA& mode, DWORD bit) {
    switch (bit) {
    case DM_ORIENTATION: return mode.dmOrientation;
    case DM_PAPERSIZE: return mode.dmPaperSize;
    case DM_DEFAULTSOURCE: return mode.dmDefaultSource;
    case DM_PRINTQUALITY: return mode.dmPrintQuality;
    default: return mode.dmScale;
    }
}

// Which bit says that the number counts, and the text that it is.
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

// What the dialog shows that the system does not know.
struct OwnTexts {
    std::wstring title;
    std::wstring note; // "" for none
};

// Called by the dialog as soon as it is there. It has no other way to get texts of the program's own.
UINT_PTR CALLBACK ShowOwnTexts(HWND dialog, UINT message, WPARAM, LPARAM data) {
    if (message == WM_INITDIALOG) {
        const auto* const request = reinterpret_cast<const PRINTDLGA*>(data);
        const auto& texts = *reinterpret_cast<const OwnTexts*>(request->lCustData);
        ::SetWindowTextW(dialog, texts.title.c_str());
        if (!texts.note.empty()) AddDialogNote(dialog, texts.note);
    }
    // The dialog does everything else itself, and gives the focus to its first control.
    return message == WM_INITDIALOG ? 1 : 0;
}

} // namespace

PrinterBlocks::~PrinterBlocks() {
    // Freeing no block does nothing.
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
    // The device mode cuts the printer's name after 31 characters; the names have it whole.
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
    // Without any printer there are no blocks, and the dialog itself says so.
    dialog(&request);
    PrinterBlocks blocks;
    blocks.deviceMode = request.hDevMode;
    blocks.deviceNames = request.hDevNames;
    const std::string offered = blocks.Read({}).device;
    const bool isMissing = !values.device.empty() && !exists(values.device);
    blocks.Apply(values);

    const OwnTexts own{ToWide(texts.title), ToWide(isMissing ? texts.missing : "")};
    request.hwndOwner = owner;
    // Windows calls the hook of the setup. Wine calls that of printing, whichever of the two it shows.
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
