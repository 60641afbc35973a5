#include "gui/TreeIcons.h"

#include "gui/UiDriver.h"
#include "widgets/UiIcons.h"

#include <algorithm>
#include <cstdlib>

#include <wx/image.h>
#include <wx/window.h>

namespace nesk::testing {

namespace {

// Returns whether the opaque pixels of a picture are at a point of a larger one. The tolerance allows for
// different ways of drawing.
bool IsAt(const wxImage& picture, const wxImage& in, int left, int top) {
    constexpr int Tolerance = 24;
    int compared = 0;
    for (int y = 0; y < picture.GetHeight(); ++y)
        for (int x = 0; x < picture.GetWidth(); ++x) {
            if (picture.HasAlpha() && picture.GetAlpha(x, y) != 255) continue;
            // The upper edge of the picture may be above the first row.
            if (top + y < 0) continue;
            ++compared;
            if (std::abs(picture.GetRed(x, y) - in.GetRed(left + x, top + y)) > Tolerance ||
                std::abs(picture.GetGreen(x, y) - in.GetGreen(left + x, top + y)) > Tolerance ||
                std::abs(picture.GetBlue(x, y) - in.GetBlue(left + x, top + y)) > Tolerance)
                return false;
        }
    return compared > 20;
}

// Returns whether a picture is in the row of a drawn tree.
bool IsIn(const wxImage& picture, const wxImage& drawn, const wxRect& row) {
    // Searches a few pixels more, because rows may be drawn next to a border that their rectangle does not
    // include.
    constexpr int Margin = 4;
    const int bottom = std::min(row.GetBottom() + Margin, drawn.GetHeight());
    for (int top = row.y - Margin; top + picture.GetHeight() <= bottom; ++top)
        for (int left = 0; left + picture.GetWidth() <= drawn.GetWidth(); ++left)
            if (IsAt(picture, drawn, left, top)) return true;
    return false;
}

} // namespace

bool HasIcon(platform::TreeView& tree, const platform::TreeNode& node, std::string_view key) {
    const wxSize size = tree.ImageSize();
    const wxImage picture = IconBundle(key, size).GetBitmap(size).ConvertToImage();
    // A window is laid out and painted at a tick of its clock, 60 times a second. Before that, it is drawn
    // empty.
    return WaitUntil(
        [&] {
            const wxRect row = tree.RowRect(node);
            return !row.IsEmpty() && IsIn(picture, Drawn(tree.Window()), row);
        },
        std::chrono::milliseconds(500));
}

} // namespace nesk::testing
