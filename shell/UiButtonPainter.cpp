#include "shell/UiButtonPainter.h"

#include "widgets/UiUtilities.h"
#include "widgets/WrappedText.h"

#include <algorithm>
#include <cmath>

#include <wx/bitmap.h>
#include <wx/brush.h>
#include <wx/graphics.h>
#include <wx/pen.h>
#include <wx/settings.h>

namespace nesk {

using modUtilities::ToWx;

namespace {

wxColour System(wxSystemColour which) {
    return wxSystemSettings::GetColour(which);
}

wxColour Mixed(const wxColour& a, const wxColour& b, double part) {
    const auto mix = [part](unsigned char x, unsigned char y) {
        return static_cast<unsigned char>(std::lround(x * (1 - part) + y * part));
    };
    return {mix(a.Red(), b.Red()), mix(a.Green(), b.Green()), mix(a.Blue(), b.Blue())};
}

wxColour EdgeColour() {
    return Mixed(System(wxSYS_COLOUR_BTNFACE), System(wxSYS_COLOUR_BTNTEXT), 0.4);
}

void Rectangle(wxGraphicsContext& gc, const GridRect& rect, double radius = 0) {
    // Lines are one pixel wide, so they go through the middle of pixels.
    gc.DrawRoundedRectangle(rect.left + 0.5, rect.top + 0.5, std::max(0, rect.width - 1),
                            std::max(0, rect.height - 1), radius);
}

GridRect Grown(const GridRect& rect, int by) {
    return {rect.left - by, rect.top - by, rect.width + 2 * by, rect.height + 2 * by};
}

int WidthOf(const wxGraphicsContext& gc, std::string_view text) {
    double width = 0;
    gc.GetTextExtent(ToWx(text), &width, nullptr);
    return static_cast<int>(std::ceil(width));
}

double LineHeight(const wxGraphicsContext& gc) {
    double height = 0;
    gc.GetTextExtent("Xg", nullptr, &height);
    return height;
}

// Draws lines of text as on the operator's screen, in the scale of the page, in the middle of a height.
void DrawLines(wxGraphicsContext& gc, double scale, const GridRect& place,
               const std::vector<std::string>& lines, bool isCentred) {
    gc.PushState();
    gc.Clip(place.left, place.top, place.width, place.height);
    gc.Translate(place.left, place.top);
    gc.Scale(scale, scale);
    const double height = LineHeight(gc);
    double y = (place.height / scale - height * static_cast<double>(lines.size())) / 2;
    for (const std::string& line : lines) {
        const double x = isCentred ? (place.width / scale - WidthOf(gc, line)) / 2 : 0;
        gc.DrawText(ToWx(line), std::max(0.0, x), y);
        y += height;
    }
    gc.PopState();
}

} // namespace

UiButtonPainter::UiButtonPainter(ScreenSize screen, const wxString& face)
    : m_measure(wxGraphicsContext::Create())
    , m_fit(screen, [this](std::string_view text) { return WidthOf(*m_measure, text); }) {
    const ButtonGrid grid(screen);
    m_labelFont = wxFont(wxFontInfo(wxSize(0, grid.LabelPixels())).FaceName(face));
    m_titleFont = wxFont(wxFontInfo(wxSize(0, grid.TitlePixels())).FaceName(face));
    m_measure->SetFont(m_labelFont, *wxBLACK);
}

UiButtonPainter::~UiButtonPainter() = default;

const CaptionFit::Shown& UiButtonPainter::Fit(std::string_view caption) {
    // Only captions that are in view are ever asked for, and few bytes of each matter.
    constexpr std::size_t mostKept = 5000;
    if (m_captions.size() > mostKept) m_captions.clear();
    const auto [place, isNew] = m_captions.try_emplace(std::string(caption));
    if (isNew) place->second = m_fit.Fit(caption);
    return place->second;
}

void UiButtonPainter::DrawPage(wxGraphicsContext& gc, const ButtonGrid& grid, int page,
                               const std::string& title, const std::string& number) const {
    const wxColour edge = EdgeColour();
    gc.SetPen(wxPen(edge));
    gc.SetBrush(wxBrush(System(wxSYS_COLOUR_WINDOW)));
    Rectangle(gc, grid.Page(page));
    const wxColour text = System(wxSYS_COLOUR_WINDOWTEXT);
    gc.SetFont(m_titleFont, text);
    DrawLines(gc, grid.Scale(), grid.Title(page), {title}, true);
    const GridRect commands = grid.Commands(page);
    gc.SetPen(wxPen(Mixed(System(wxSYS_COLOUR_WINDOW), text, 0.15)));
    gc.StrokeLine(commands.left, commands.top + 0.5, commands.Right(), commands.top + 0.5);
    if (number.empty()) return;
    gc.SetFont(m_labelFont, Mixed(System(wxSYS_COLOUR_WINDOW), text, 0.7));
    DrawLines(gc, grid.Scale(), commands, {number}, true);
}

void UiButtonPainter::DrawHint(wxGraphicsContext& gc, const ButtonGrid& grid, int page,
                               const std::string& text) const {
    gc.SetFont(m_labelFont, System(wxSYS_COLOUR_GRAYTEXT));
    GridRect place = grid.Page(page);
    const int margin = place.width / 10;
    place = {place.left + margin, place.top, place.width - 2 * margin, place.height};
    const auto width = static_cast<int>(place.width / grid.Scale());
    const auto lines = WrappedLines(text, width, [&gc](std::string_view part) { return WidthOf(gc, part); });
    DrawLines(gc, grid.Scale(), place, {lines.begin(), lines.end()}, true);
}

void UiButtonPainter::DrawButton(wxGraphicsContext& gc, const ButtonGrid& grid, const GridRect& place,
                                 const Look& look) {
    const wxColour highlight = System(wxSYS_COLOUR_HIGHLIGHT);
    wxColour face = System(wxSYS_COLOUR_BTNFACE);
    const double radius = place.height / 14.0;
    const int behind = std::max(2, place.height / 18);
    gc.SetPen(wxPen(EdgeColour()));
    if (look.isSubmenu) {
        // A submenu looks like a pile of buttons.
        gc.SetBrush(wxBrush(Mixed(face, System(wxSYS_COLOUR_BTNTEXT), 0.15)));
        Rectangle(gc, {place.left + behind, place.top + behind, place.width, place.height}, radius);
    }
    if (look.isSelected) face = Mixed(face, highlight, 0.25);
    gc.SetBrush(wxBrush(face));
    Rectangle(gc, place, radius);
    const GridRect box = grid.Picture(place);
    if (look.picture != nullptr) {
        const wxSize size = look.picture->GetSize();
        // At whole pixels, so that it is not blurred.
        const int left = box.left + (box.width - size.x) / 2;
        const int top = box.top + (box.height - size.y) / 2;
        gc.DrawBitmap(*look.picture, left, top, size.x, size.y);
    } else {
        DrawFrameOfPicture(gc, box, look.isMissing);
    }
    DrawCaption(gc, grid, grid.Caption(place), look.caption);
    if (look.isSubmenu) {
        const double side = behind * 1.6;
        const double x = place.Right() - 2 * side;
        const double y = place.Bottom() - 2.2 * side;
        wxGraphicsPath path = gc.CreatePath();
        path.MoveToPoint(x, y);
        path.AddLineToPoint(x + side, y + side * 0.7);
        path.AddLineToPoint(x, y + side * 1.4);
        path.CloseSubpath();
        gc.SetBrush(wxBrush(EdgeColour()));
        gc.FillPath(path);
    }
    if (look.isMarked) DrawWarning(gc, place);
    gc.SetBrush(*wxTRANSPARENT_BRUSH);
    if (look.isSelected) {
        gc.SetPen(wxPen(highlight, 2));
        gc.DrawRoundedRectangle(place.left, place.top, place.width, place.height, radius);
    }
    if (look.isCurrent) {
        gc.SetPen(wxPen(System(wxSYS_COLOUR_BTNTEXT), 1, wxPENSTYLE_DOT));
        Rectangle(gc, Grown(place, -3));
    }
}

void UiButtonPainter::DrawCaption(wxGraphicsContext& gc, const ButtonGrid& grid, const GridRect& place,
                                  std::string_view caption) {
    gc.SetFont(m_labelFont, System(wxSYS_COLOUR_BTNTEXT));
    DrawLines(gc, grid.Scale(), place, Fit(caption).lines, false);
}

// The place of a picture that is not there; with a cross when there should be one.
void UiButtonPainter::DrawFrameOfPicture(wxGraphicsContext& gc, const GridRect& place, bool isMissing) {
    gc.SetPen(wxPen(EdgeColour(), 1, wxPENSTYLE_SHORT_DASH));
    gc.SetBrush(*wxTRANSPARENT_BRUSH);
    Rectangle(gc, place);
    if (!isMissing) return;
    const GridRect cross = Grown(place, -place.width / 3);
    gc.SetPen(wxPen(EdgeColour(), 2));
    gc.StrokeLine(cross.left, cross.top, cross.Right(), cross.Bottom());
    gc.StrokeLine(cross.left, cross.Bottom(), cross.Right(), cross.top);
}

void UiButtonPainter::DrawWarning(wxGraphicsContext& gc, const GridRect& button) {
    const double side = std::max(8.0, button.height / 3.5);
    const double right = button.Right() - 2;
    const double top = button.top + 2;
    wxGraphicsPath path = gc.CreatePath();
    path.MoveToPoint(right - side / 2, top);
    path.AddLineToPoint(right, top + side);
    path.AddLineToPoint(right - side, top + side);
    path.CloseSubpath();
    gc.SetPen(wxPen(wxColour(0x8A, 0x50, 0x00)));
    gc.SetBrush(wxBrush(wxColour(0xFF, 0xC1, 0x07)));
    gc.DrawPath(path);
    gc.SetPen(wxPen(*wxBLACK, std::max(1, static_cast<int>(side / 8))));
    gc.StrokeLine(right - side / 2, top + side * 0.35, right - side / 2, top + side * 0.7);
    gc.StrokeLine(right - side / 2, top + side * 0.82, right - side / 2, top + side * 0.88);
}

void UiButtonPainter::DrawMark(wxGraphicsContext& gc, const GridRect& place, bool isFrame) {
    const wxColour colour = System(wxSYS_COLOUR_HIGHLIGHT);
    gc.SetPen(isFrame ? wxPen(colour, 3) : *wxTRANSPARENT_PEN);
    gc.SetBrush(isFrame ? *wxTRANSPARENT_BRUSH : wxBrush(colour));
    gc.DrawRectangle(place.left, place.top, place.width, place.height);
}

} // namespace nesk
