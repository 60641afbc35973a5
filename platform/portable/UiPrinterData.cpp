#include "platform/portable/UiPrinterData.h"

#include <array>
#include <charconv>
#include <optional>

#include <wx/cmndata.h>

namespace nesk::platform::portable {

namespace {

// Paper codes of Windows that follow one another, and the toolkit's number of the first of them.
struct PaperRange {
    int firstCode;
    wxPaperSize firstPaper;
    int count;
};
constexpr std::array Papers = {
    PaperRange{1, wxPAPER_LETTER, 1},    PaperRange{2, wxPAPER_LETTERSMALL, 3},
    PaperRange{5, wxPAPER_LEGAL, 1},     PaperRange{6, wxPAPER_STATEMENT, 2},
    PaperRange{8, wxPAPER_A3, 1},        PaperRange{9, wxPAPER_A4, 1},
    PaperRange{10, wxPAPER_A4SMALL, 14}, PaperRange{24, wxPAPER_CSHEET, 3},
    PaperRange{27, wxPAPER_ENV_DL, 21},  PaperRange{50, wxPAPER_LETTER_EXTRA, 69},
};

struct BinCode {
    int code;
    wxPrintBin bin;
};
constexpr std::array Bins = {BinCode{1, wxPRINTBIN_ONLYONE},        BinCode{2, wxPRINTBIN_LOWER},
                             BinCode{3, wxPRINTBIN_MIDDLE},         BinCode{4, wxPRINTBIN_MANUAL},
                             BinCode{5, wxPRINTBIN_ENVELOPE},       BinCode{6, wxPRINTBIN_ENVMANUAL},
                             BinCode{7, wxPRINTBIN_AUTO},           BinCode{8, wxPRINTBIN_TRACTOR},
                             BinCode{9, wxPRINTBIN_SMALLFMT},       BinCode{10, wxPRINTBIN_LARGEFMT},
                             BinCode{11, wxPRINTBIN_LARGECAPACITY}, BinCode{14, wxPRINTBIN_CASSETTE},
                             BinCode{15, wxPRINTBIN_FORMSOURCE}};

constexpr int Landscape = 2;
constexpr int AutomaticBin = 7;
// Both count four qualities from -1 to -4: Windows from draft to high, the toolkit from high to draft.
constexpr int BestQuality = -4;
constexpr int QualitySum = -5;

std::optional<int> Number(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

std::optional<wxPaperSize> PaperOf(const std::string& text) {
    const int code = Number(text).value_or(0);
    for (const PaperRange& range : Papers)
        if (code >= range.firstCode && code < range.firstCode + range.count)
            return static_cast<wxPaperSize>(range.firstPaper + code - range.firstCode);
    return std::nullopt;
}

std::string PaperText(wxPaperSize paper, const std::string& before) {
    for (const PaperRange& range : Papers)
        if (paper >= range.firstPaper && paper < range.firstPaper + range.count)
            return std::to_string(range.firstCode + paper - range.firstPaper);
    return before;
}

std::optional<wxPrintBin> BinOf(const std::string& text) {
    const std::optional<int> code = Number(text);
    for (const BinCode& entry : Bins)
        if (code == entry.code) return entry.bin;
    return std::nullopt;
}

std::string BinText(wxPrintBin bin, const std::string& before) {
    for (const BinCode& entry : Bins)
        if (entry.bin == bin) return std::to_string(entry.code);
    // A bin of the printer's own, which the toolkit cannot name.
    return before.empty() ? std::to_string(AutomaticBin) : before;
}

std::optional<int> QualityOf(const std::string& text) {
    const std::optional<int> code = Number(text);
    if (!code || *code == 0 || *code < BestQuality) return std::nullopt;
    return *code > 0 ? *code : QualitySum - *code;
}

std::string QualityText(int quality) {
    return std::to_string(quality > 0 ? quality : QualitySum - quality);
}

} // namespace

void ApplyPrinterValues(const PrinterValues& values, wxPrintData& data) {
    data.SetOrientation(Number(values.orientation) == Landscape ? wxLANDSCAPE : wxPORTRAIT);
    if (const auto paper = PaperOf(values.paperSize)) data.SetPaperId(*paper);
    if (const auto bin = BinOf(values.paperBin)) data.SetBin(*bin);
    if (const auto quality = QualityOf(values.quality)) data.SetQuality(*quality);
}

PrinterValues ReadPrinterValues(const wxPrintData& data, const PrinterValues& before) {
    PrinterValues values = before;
    if (!data.GetPrinterName().empty()) values.device = data.GetPrinterName().utf8_string();
    // The toolkit knows no drivers, and that of another printer would be wrong.
    if (values.device != before.device) values.driver.clear();
    values.orientation = data.GetOrientation() == wxLANDSCAPE ? "2" : "1";
    values.paperSize = PaperText(data.GetPaperId(), before.paperSize);
    values.paperBin = BinText(data.GetBin(), before.paperBin);
    values.quality = QualityText(data.GetQuality());
    if (values.zoom.empty()) values.zoom = "100";
    return values;
}

} // namespace nesk::platform::portable
