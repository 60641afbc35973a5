#pragma once

#include "checking/ButtonGrid.h"
#include "checking/CaptionFit.h"

#include <array>
#include <memory>
#include <span>
#include <string_view>

#include <wx/font.h>
#include <wx/string.h>

class wxGraphicsContext;
class wxWindow;

namespace nesk {

/// The screens that operators have, besides that of this computer.
std::span<const ScreenSize> OperatorScreens();

/// The screen on which a window is.
ScreenSize ScreenOf(const wxWindow& window);

/// The screen for a remembered choice: an index into OperatorScreens; any other number is the screen of this
/// computer.
ScreenSize OperatorScreen(int choice, const wxWindow& window);

/// Tells whether captions fit on the buttons of a screen. Quick for captions that fit easily.
class UiCaptionCheck {
public:
    /// @param face  name of the font
    UiCaptionCheck(ScreenSize screen, const wxString& face);
    ~UiCaptionCheck();
    UiCaptionCheck(const UiCaptionCheck&) = delete;
    UiCaptionCheck& operator=(const UiCaptionCheck&) = delete;

    bool Fits(std::string_view caption) const;

private:
    static constexpr std::size_t AsciiCount = 128;

    int WidthOf(std::string_view text) const;

    std::unique_ptr<wxGraphicsContext> m_measure;
    CaptionFit m_fit;
    std::array<double, AsciiCount> m_widths{}; // of single characters
};

} // namespace nesk
