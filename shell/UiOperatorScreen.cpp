#include "shell/UiOperatorScreen.h"

#include "widgets/UiUtilities.h"

#include <cmath>

#include <wx/display.h>
#include <wx/graphics.h>

namespace nesk {

namespace {

constexpr std::array<ScreenSize, 4> Screens{{{640, 480}, {800, 600}, {1024, 768}, {1280, 1024}}};

// Two characters together may be a little wider than each alone.
constexpr double Certainty = 0.9;

} // namespace

std::span<const ScreenSize> OperatorScreens() {
    return Screens;
}

ScreenSize ScreenOf(const wxWindow& window) {
    const wxSize size = wxDisplay(&window).GetGeometry().GetSize();
    return {size.x, size.y};
}

ScreenSize OperatorScreen(int choice, const wxWindow& window) {
    const bool isListed = choice >= 0 && choice < static_cast<int>(Screens.size());
    return isListed ? Screens[static_cast<std::size_t>(choice)] : ScreenOf(window);
}

UiCaptionCheck::UiCaptionCheck(ScreenSize screen, const wxString& face)
    : m_measure(wxGraphicsContext::Create())
    , m_fit(screen, [this](std::string_view text) { return WidthOf(text); }) {
    const ButtonGrid grid(screen);
    m_measure->SetFont(wxFont(wxFontInfo(wxSize(0, grid.LabelPixels())).FaceName(face)), *wxBLACK);
    for (std::size_t i = ' '; i < AsciiCount; ++i)
        m_measure->GetTextExtent(wxString(static_cast<char>(i)), &m_widths[i], nullptr);
}

UiCaptionCheck::~UiCaptionCheck() = default;

bool UiCaptionCheck::Fits(std::string_view caption) const {
    double width = 0;
    for (const char c : caption) {
        const auto code = static_cast<unsigned char>(c);
        if (code < ' ' || code >= AsciiCount) return m_fit.Fits(caption);
        width += m_widths[code];
    }
    return width <= m_fit.Width() * Certainty || m_fit.Fits(caption);
}

int UiCaptionCheck::WidthOf(std::string_view text) const {
    double width = 0;
    m_measure->GetTextExtent(modUtilities::ToWx(std::string(text)), &width, nullptr);
    return static_cast<int>(std::ceil(width));
}

} // namespace nesk
