#include "platform/windows/PrinterBlocks.h"

#include "platform/TextEncoding.h"

#include <charconv>
#include <optional>
#include <string>
#include <utility>

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

bool AskForPrinter(HWND owner, PrinterValues& values, PrintDialogFunction dialog) {
    PRINTDLGA request{};
    request.lStructSize = sizeof request;
    request.Flags = PD_RETURNDEFAULT;
    // Without any printer there are no blocks, and the dialog itself says so.
    dialog(&request);
    PrinterBlocks blocks;
    blocks.deviceMode = request.hDevMode;
    blocks.deviceNames = request.hDevNames;
    blocks.Apply(values);

    request.hwndOwner = owner;
    request.Flags = PD_PRINTSETUP;
    const bool confirmed = dialog(&request) != FALSE;
    blocks.deviceMode = request.hDevMode;
    blocks.deviceNames = request.hDevNames;
    if (confirmed) values = blocks.Read(values);
    return confirmed;
}

} // namespace nesk::platform::windows
