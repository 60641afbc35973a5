#pragma once

#include "checking/ButtonGrid.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// How a caption is shown on a picture button: in at most two lines, which end between words. A word that is
/// wider than the button is broken. What does not fit is cut and ends with an ellipsis.
class CaptionFit {
public:
    /// Width of a text on the operator's screen in its pixels, in the font of captions
    /// (ButtonGrid::LabelPixels).
    using WidthOf = std::function<int(std::string_view)>;

    static constexpr int MostLines = 2;

    CaptionFit(ScreenSize screen, WidthOf widthOf);

    struct Shown {
        std::vector<std::string> lines;
        bool isCut = false; ///< not all of the caption is shown

        bool operator==(const Shown&) const = default;
    };

    Shown Fit(std::string_view caption) const;

    /// True when the whole caption is shown.
    bool Fits(std::string_view caption) const { return !Fit(caption).isCut; }

    /// Width of a line of a caption, in pixels of the operator's screen.
    int Width() const { return m_width; }

private:
    std::string Cut(std::string_view text) const;

    int m_width;
    WidthOf m_widthOf;
};

} // namespace nesk
