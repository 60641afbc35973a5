#include "checking/ButtonGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace nesk {

namespace {

constexpr int TwipsOfPixel = 15;
constexpr int TwipsOfPoint = 20;
constexpr int PageGap = 10; // in pixels of the column

// The smallest gap between two buttons is this part of a button's width, so that a finger hits only one.
constexpr int GapPart = 20;

// A line is higher than its characters.
constexpr int LineHeight(int points) {
    return points * TwipsOfPoint * 3 / 2;
}

ScreenRes SizesFor(int width) {
    // Only the quotient counts, and a wide screen has more twips than 16 bits can hold.
    const auto pixels =
        static_cast<std::int16_t>(std::min(width, int{std::numeric_limits<std::int16_t>::max()}));
    ScreenRes sizes;
    sizes.Initialize(pixels, 1);
    return sizes;
}

// How many sides of a length, each with a gap, fit beside each other; at least one.
int FittingCount(int room, int side, int gap) {
    return std::max(1, (room - gap) / (side + gap));
}

int Spread(int room, int count, int side) {
    return std::max(0, (room - count * side) / (count + 1));
}

} // namespace

ButtonGrid::ButtonGrid(ScreenSize screen, int pageWidth)
    : m_sizes(SizesFor(std::max(1, screen.width)))
    , m_width(std::max(1, screen.width) * TwipsOfPixel)
    , m_height(std::max(1, screen.height) * TwipsOfPixel) {
    if (pageWidth > 0) m_scale = static_cast<double>(pageWidth) / std::max(1, screen.width);
    const int width = m_sizes.PicButtonWidth();
    const int height = m_sizes.PicButtonHeight();
    const int gap = width / GapPart;
    m_inset = gap / 2;
    m_titleHeight = LineHeight(m_sizes.TitleFontSize());
    m_commandsHeight = m_sizes.CmdButtonHeight() + 2 * gap;
    m_columns = FittingCount(m_width, width, gap);
    m_across = Spread(m_width, m_columns, width);
    const int room = m_height - m_titleHeight - m_commandsHeight;
    m_rows = FittingCount(room, height, gap);
    m_down = Spread(room, m_rows, height);
}

int ButtonGrid::PixelsOf(int points) {
    return (points * TwipsOfPoint + TwipsOfPixel / 2) / TwipsOfPixel;
}

int ButtonGrid::Pixels(int twips) const {
    return static_cast<int>(std::lround(twips * m_scale / TwipsOfPixel));
}

// Edges are rounded, not sizes, so that rounding does not add up.
GridRect ButtonGrid::Scaled(int page, int left, int top, int width, int height) const {
    const int above = page * (Pixels(m_height) + PageGap);
    return {Pixels(left), above + Pixels(top), Pixels(left + width) - Pixels(left),
            Pixels(top + height) - Pixels(top)};
}

int ButtonGrid::Pages(int count) const {
    return std::max(1, (count + PerPage() - 1) / PerPage());
}

int ButtonGrid::PageAt(int y) const {
    return std::max(0, y / (Pixels(m_height) + PageGap));
}

GridRect ButtonGrid::Page(int page) const {
    return Scaled(page, 0, 0, m_width, m_height);
}

GridRect ButtonGrid::Title(int page) const {
    return Scaled(page, 0, 0, m_width, m_titleHeight);
}

GridRect ButtonGrid::Commands(int page) const {
    return Scaled(page, 0, m_height - m_commandsHeight, m_width, m_commandsHeight);
}

GridRect ButtonGrid::Button(int button) const {
    const int place = button % PerPage();
    const int column = place % m_columns;
    const int row = place / m_columns;
    const int width = m_sizes.PicButtonWidth();
    const int height = m_sizes.PicButtonHeight();
    return Scaled(PageOf(button), m_across + column * (width + m_across),
                  m_titleHeight + m_down + row * (height + m_down), width, height);
}

GridRect ButtonGrid::Picture(const GridRect& button) const {
    const int inset = Pixels(m_inset);
    const int side = std::max(0, button.height - 2 * inset);
    return {button.left + inset, button.top + inset, side, side};
}

GridRect ButtonGrid::Caption(const GridRect& button) const {
    const int inset = Pixels(m_inset);
    const GridRect picture = Picture(button);
    const int left = picture.Right() + inset;
    return {left, picture.top, std::max(0, button.Right() - inset - left), picture.height};
}

int ButtonGrid::Height(int count) const {
    return Page(Pages(count) - 1).Bottom();
}

// The row of a page at a height of the column; the nearest one beside the rows.
int ButtonGrid::RowAt(int page, int y) const {
    const int first = page * PerPage();
    int row = 0;
    while (row + 1 < m_rows &&
           y >= (Button(first + row * m_columns).Bottom() + Button(first + (row + 1) * m_columns).top) / 2)
        ++row;
    return row;
}

std::optional<int> ButtonGrid::ButtonAt(GridPoint point, int count) const {
    if (point.y < 0) return std::nullopt;
    const int page = PageAt(point.y);
    const int first = page * PerPage() + RowAt(page, point.y) * m_columns;
    for (int button = first; button < std::min(first + m_columns, count); ++button)
        if (Button(button).Contains(point)) return button;
    return std::nullopt;
}

GridDrop ButtonGrid::DropAt(GridPoint point, int count, const std::function<bool(int)>& takesEntries) const {
    if (const auto button = ButtonAt(point, count); button && takesEntries(*button)) {
        const GridRect place = Button(*button);
        const int edge = place.width / 4;
        if (point.x >= place.left + edge && point.x < place.Right() - edge) return {*button, true};
    }
    const int page = std::clamp(PageAt(std::max(0, point.y)), 0, Pages(count) - 1);
    const int first = page * PerPage() + RowAt(page, point.y) * m_columns;
    int position = first;
    for (int column = 0; column < m_columns; ++column) {
        const GridRect place = Button(first + column);
        if (point.x >= place.left + place.width / 2) position = first + column + 1;
    }
    return {std::min(position, count), false};
}

GridRect ButtonGrid::Mark(int position, int count) const {
    // After the last button of a row, the line is beside that button and not in the next row.
    const bool afterLast = position > 0 && position == count;
    const GridRect button = Button(afterLast ? position - 1 : position);
    const int thickness = std::max(2, Pixels(m_inset) / 2);
    const int middle = std::max(thickness, Pixels(m_across) / 2);
    const int left =
        afterLast ? button.Right() + middle - thickness / 2 : button.left - middle - thickness / 2;
    return {std::max(0, left), button.top, thickness, button.height};
}

int ButtonGrid::Neighbour(int button, Step step, int count) const {
    if (count <= 0) return -1;
    const int last = count - 1;
    if (button < 0) return step == Step::Last ? last : 0;
    const int column = button % m_columns;
    switch (step) {
    case Step::Left: return std::max(0, button - 1);
    case Step::Right: return std::min(last, button + 1);
    case Step::Up: return button >= m_columns ? button - m_columns : button;
    case Step::Down:
        if (button + m_columns <= last) return button + m_columns;
        // The last row may be shorter.
        return button / m_columns < last / m_columns ? last : button;
    case Step::PageUp: return button >= PerPage() ? button - PerPage() : column;
    case Step::PageDown: return std::min(last, button + PerPage());
    case Step::First: return 0;
    case Step::Last: return last;
    }
    return button;
}

} // namespace nesk
