#pragma once

#include "checking/ButtonGrid.h"
#include "checking/CaptionFit.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include <wx/font.h>
#include <wx/string.h>

class wxBitmap;
class wxGraphicsContext;

namespace nesk {

/// Draws the operator's screens of the preview: pages, and the picture buttons on them.
class UiButtonPainter {
public:
    /// @param face  name of the font
    UiButtonPainter(ScreenSize screen, const wxString& face);
    ~UiButtonPainter();
    UiButtonPainter(const UiButtonPainter&) = delete;
    UiButtonPainter& operator=(const UiButtonPainter&) = delete;

    /// How a button looks.
    struct Look {
        std::string_view caption;
        const wxBitmap* picture = nullptr; ///< null for none
        bool isMissing = false;            ///< it has a picture that cannot be shown
        bool isSubmenu = false;
        bool isSelected = false;
        bool isCurrent = false; ///< keys apply to it
        bool isMarked = false;  ///< something is wrong with it
    };

    /// How a caption is shown. The result is kept until the painter is destroyed.
    const CaptionFit::Shown& Fit(std::string_view caption);

    /// @param title   caption of the submenu
    /// @param number  the number of the page, as a text; "" for none
    void DrawPage(wxGraphicsContext& gc, const ButtonGrid& grid, int page, const std::string& title,
                  const std::string& number) const;
    void DrawButton(wxGraphicsContext& gc, const ButtonGrid& grid, const GridRect& place, const Look& look);

    /// Draws a text in the middle of a page, over several lines.
    void DrawHint(wxGraphicsContext& gc, const ButtonGrid& grid, int page, const std::string& text) const;

    /// Marks a place where entries would be dropped: the line between two buttons, or a frame around one.
    static void DrawMark(wxGraphicsContext& gc, const GridRect& place, bool isFrame);

private:
    static void DrawFrameOfPicture(wxGraphicsContext& gc, const GridRect& place, bool isMissing);
    static void DrawWarning(wxGraphicsContext& gc, const GridRect& button);
    void DrawCaption(wxGraphicsContext& gc, const ButtonGrid& grid, const GridRect& place,
                     std::string_view caption);

    wxFont m_labelFont;
    wxFont m_titleFont;
    std::unique_ptr<wxGraphicsContext> m_measure; // its font is that of captions
    CaptionFit m_fit;
    std::unordered_map<std::string, CaptionFit::Shown> m_captions;
};

} // namespace nesk
