#pragma once

#include <cstdint>

namespace nesk {

/// Sizes of the touch-screen controls by screen width. There are three classes: exactly 640 pixels, exactly
/// 800 pixels, and every other width. Sizes are in twips (1/1440 inch), font sizes in points. All values are
/// 0 before Initialize.
class ScreenRes {
public:
    /// Sets the sizes for a screen. Raises DivisionByZero for 0 twips per pixel and Overflow for -32768
    /// divided by -1.
    /// @param iScreenWidth  screen width in twips
    /// @param iScreenTwips  twips per pixel
    void Initialize(const std::int16_t& iScreenWidth, const std::int16_t& iScreenTwips);

    std::int16_t ScreenWidthPix() const { return m_screenWidthPix; }
    std::int16_t PicButtonHeight() const { return m_sizes.picButtonHeight; }
    std::int16_t PicButtonWidth() const { return m_sizes.picButtonWidth; }
    std::int16_t CmdButtonHeight() const { return m_sizes.cmdButtonHeight; }
    std::int16_t CmdButtonWidth() const { return m_sizes.cmdButtonWidth; }
    std::int16_t CmdButtonFontSize() const { return m_sizes.cmdButtonFontSize; }
    std::int16_t LabelFontSize() const { return m_sizes.labelFontSize; }
    std::int16_t TitleFontSize() const { return m_sizes.titleFontSize; }

private:
    struct Sizes {
        std::int16_t picButtonHeight = 0;
        std::int16_t picButtonWidth = 0;
        std::int16_t cmdButtonHeight = 0;
        std::int16_t cmdButtonWidth = 0;
        std::int16_t cmdButtonFontSize = 0;
        std::int16_t labelFontSize = 0;
        std::int16_t titleFontSize = 0;
    };

    static Sizes SizesFor(std::int16_t width);

    std::int16_t m_screenWidthPix = 0;
    Sizes m_sizes;
};

} // namespace nesk
