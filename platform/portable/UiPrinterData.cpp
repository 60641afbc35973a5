#include "platform/portable/UiPrinterData.h"

#include "platform/portable/PaperSizes.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace nesk::platform::portable {

namespace {

// Windows codes.
constexpr int Portrait = 1;
constexpr int Landscape = 2;
constexpr int AutomaticBin = 7;
constexpr int CustomPaper = 256;
constexpr int MediumQuality = -3;

struct Bin {
    int code;
    std::string_view name;
};
constexpr std::array Bins = {Bin{1, "only-one"},
                             Bin{2, "lower"},
                             Bin{3, "middle"},
                             Bin{4, "manual"},
                             Bin{5, "envelope"},
                             Bin{6, "envelope-manual"},
                             Bin{7, "auto"},
                             Bin{8, "tractor"},
                             Bin{9, "small-format"},
                             Bin{10, "large-format"},
                             Bin{11, "large-capacity"},
                             Bin{14, "cassette"},
                             Bin{15, "form-source"},
                             Bin{1, "upper"}};

struct Quality {
    int code;
    GtkPrintQuality quality;
};
constexpr std::array Qualities = {Quality{-1, GTK_PRINT_QUALITY_DRAFT}, Quality{-2, GTK_PRINT_QUALITY_LOW},
                                  Quality{MediumQuality, GTK_PRINT_QUALITY_NORMAL},
                                  Quality{-4, GTK_PRINT_QUALITY_HIGH}};

std::optional<int> Number(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

bool IsLandscape(const PrinterData& data) {
    const GtkPageOrientation orientation = gtk_page_setup_get_orientation(data.page.get());
    return orientation == GTK_PAGE_ORIENTATION_LANDSCAPE ||
           orientation == GTK_PAGE_ORIENTATION_REVERSE_LANDSCAPE;
}

std::string PaperNameOf(const PrinterData& data) {
    return gtk_paper_size_get_name(gtk_page_setup_get_paper_size(data.page.get()));
}

std::string Setting(const PrinterData& data, const char* key) {
    const char* const text = gtk_print_settings_get(data.settings.get(), key);
    return text != nullptr ? text : "";
}

int BinCode(std::string_view name) {
    for (const Bin& bin : Bins)
        if (bin.name == name) return bin.code;
    return AutomaticBin;
}

int QualityCode(const PrinterData& data) {
    // A resolution in dots per inch is more precise than a named quality.
    if (!Setting(data, GTK_PRINT_SETTINGS_RESOLUTION).empty())
        return gtk_print_settings_get_resolution(data.settings.get());
    const GtkPrintQuality chosen = gtk_print_settings_get_quality(data.settings.get());
    for (const Quality& quality : Qualities)
        if (quality.quality == chosen) return quality.code;
    return MediumQuality;
}

} // namespace

PrinterData ApplyPrinterValues(const PrinterValues& values) {
    PrinterData data;
    GtkPrintSettings* const settings = data.settings.get();
    const GtkPageOrientation orientation = Number(values.orientation) == Landscape
                                               ? GTK_PAGE_ORIENTATION_LANDSCAPE
                                               : GTK_PAGE_ORIENTATION_PORTRAIT;
    gtk_page_setup_set_orientation(data.page.get(), orientation);
    gtk_print_settings_set_orientation(settings, orientation);
    if (const std::string name = PaperName(Number(values.paperSize).value_or(0)); !name.empty()) {
        GtkPaperSize* const paper = gtk_paper_size_new(name.c_str());
        gtk_page_setup_set_paper_size_and_default_margins(data.page.get(), paper);
        gtk_print_settings_set_paper_size(settings, paper);
        gtk_paper_size_free(paper);
    }
    const std::optional<int> code = Number(values.paperBin);
    for (const Bin& bin : Bins)
        if (code == bin.code) {
            gtk_print_settings_set_default_source(settings, std::string(bin.name).c_str());
            break;
        }
    const std::optional<int> quality = Number(values.quality);
    if (quality && *quality > 0) gtk_print_settings_set_resolution(settings, *quality);
    for (const Quality& named : Qualities)
        if (quality == named.code) gtk_print_settings_set_quality(settings, named.quality);
    if (const std::optional<int> zoom = Number(values.zoom); zoom && *zoom > 0)
        gtk_print_settings_set_scale(settings, *zoom);
    return data;
}

bool KnowsPaper(const PrinterValues& values) {
    return !PaperName(Number(values.paperSize).value_or(0)).empty();
}

PrinterValues ReadPrinterValues(const PrinterData& chosen, const PrinterValues& before,
                                const PrinterData& shown) {
    PrinterValues values = before;
    if (const std::string name = Setting(chosen, GTK_PRINT_SETTINGS_PRINTER); !name.empty())
        values.device = name;
    // The old driver belongs to the previous printer.
    if (values.device != before.device) values.driver.clear();
    if (before.orientation.empty() || IsLandscape(chosen) != IsLandscape(shown))
        values.orientation = std::to_string(IsLandscape(chosen) ? Landscape : Portrait);
    if (const std::string paper = PaperNameOf(chosen);
        before.paperSize.empty() || paper != PaperNameOf(shown))
        values.paperSize = std::to_string(PaperCode(paper).value_or(CustomPaper));
    const std::string bin = Setting(chosen, GTK_PRINT_SETTINGS_DEFAULT_SOURCE);
    if (before.paperBin.empty() || (!bin.empty() && bin != Setting(shown, GTK_PRINT_SETTINGS_DEFAULT_SOURCE)))
        values.paperBin = std::to_string(BinCode(bin));
    const bool hasQuality = !Setting(chosen, GTK_PRINT_SETTINGS_QUALITY).empty() ||
                            !Setting(chosen, GTK_PRINT_SETTINGS_RESOLUTION).empty();
    if (before.quality.empty() || (hasQuality && QualityCode(chosen) != QualityCode(shown)))
        values.quality = std::to_string(QualityCode(chosen));
    const long zoom = std::lround(gtk_print_settings_get_scale(chosen.settings.get()));
    if (before.zoom.empty() || (!Setting(chosen, GTK_PRINT_SETTINGS_SCALE).empty() &&
                                zoom != std::lround(gtk_print_settings_get_scale(shown.settings.get()))))
        values.zoom = std::to_string(zoom);
    return values;
}

} // namespace nesk::platform::portable
