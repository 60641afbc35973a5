#pragma once

#include "shell/ScreenRes.h"

#include <functional>
#include <optional>

namespace nesk {

/// Size of an operator's screen in pixels.
struct ScreenSize {
    int width = 0;
    int height = 0;

    bool operator==(const ScreenSize&) const = default;
};

/// A point and a rectangle in pixels. A rectangle contains its left and top edges, not its right and bottom
/// ones.
struct GridPoint {
    int x = 0;
    int y = 0;
};

struct GridRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    int Right() const { return left + width; }
    int Bottom() const { return top + height; }
    bool Contains(GridPoint point) const {
        return point.x >= left && point.x < Right() && point.y >= top && point.y < Bottom();
    }
    bool operator==(const GridRect&) const = default;
};

/// Where dragged entries go: into the entry of a button, or to a position between the buttons.
struct GridDrop {
    int position = 0; ///< 0-based; the number of buttons for the end
    bool into = false;

    bool operator==(const GridDrop&) const = default;
};

/// The layout of a submenu's picture buttons on an operator's screen: a title line, the buttons row by row
/// from the left, and a row of command buttons below. What does not fit on a page is on the next one. All
/// pages are in one column with a gap between them; positions are in pixels of that column. Sizes of buttons
/// and fonts are those of ScreenRes; the layout is the editor's own.
class ButtonGrid {
public:
    /// @param screen     size of the operator's screen; each side is at least 1
    /// @param pageWidth  width in which a page is drawn, at least 1; without it, the width of the screen
    explicit ButtonGrid(ScreenSize screen, int pageWidth = 0);

    int Columns() const { return m_columns; }
    /// Rows on a page.
    int Rows() const { return m_rows; }
    int PerPage() const { return m_columns * m_rows; }

    /// Number of pages for a number of buttons, at least 1.
    int Pages(int count) const;

    /// The page of a button. Pages and buttons are counted from 0.
    int PageOf(int button) const { return button / PerPage(); }

    /// The page at a height of the column; in a gap, the page above it.
    int PageAt(int y) const;

    GridRect Page(int page) const;
    GridRect Title(int page) const;
    GridRect Commands(int page) const;
    GridRect Button(int button) const;

    /// The picture and the caption in the rectangle of a button.
    GridRect Picture(const GridRect& button) const;
    GridRect Caption(const GridRect& button) const;

    /// Height of the column of all pages.
    int Height(int count) const;

    /// Size of a page in relation to the screen.
    double Scale() const { return m_scale; }

    /// Height of the characters of captions and titles on the screen itself, in its pixels.
    int LabelPixels() const { return PixelsOf(m_sizes.LabelFontSize()); }
    int TitlePixels() const { return PixelsOf(m_sizes.TitleFontSize()); }

    /// The button at a point; nothing beside the buttons.
    std::optional<int> ButtonAt(GridPoint point, int count) const;

    /// Where entries go that are dropped at a point.
    /// @param takesEntries  whether entries can be dropped into a button; then its middle half means into it
    GridDrop DropAt(GridPoint point, int count, const std::function<bool(int)>& takesEntries) const;

    /// The line between two buttons that marks a position.
    GridRect Mark(int position, int count) const;

    enum class Step { Left, Right, Up, Down, PageUp, PageDown, First, Last };

    /// The button to which a key moves.
    /// @param button  -1 for none; the first button then comes first
    /// @return -1 when there are no buttons
    int Neighbour(int button, Step step, int count) const;

private:
    static int PixelsOf(int points);
    int Pixels(int twips) const;
    GridRect Scaled(int page, int left, int top, int width, int height) const;
    int RowAt(int page, int y) const;

    ScreenRes m_sizes;
    double m_scale = 1;
    // In twips of the screen.
    int m_width;
    int m_height;
    int m_titleHeight = 0;
    int m_commandsHeight = 0;
    int m_across = 0; // gap between columns
    int m_down = 0;   // gap between rows
    int m_inset = 0;  // between a button's edge, its picture and its caption
    int m_columns = 1;
    int m_rows = 1;
};

} // namespace nesk
