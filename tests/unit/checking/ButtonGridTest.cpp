#include "checking/ButtonGrid.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace nesk {
namespace {

using Step = ButtonGrid::Step;

bool IsInside(const GridRect& inner, const GridRect& outer) {
    return inner.left >= outer.left && inner.top >= outer.top && inner.Right() <= outer.Right() &&
           inner.Bottom() <= outer.Bottom();
}

bool Overlap(const GridRect& a, const GridRect& b) {
    return a.left < b.Right() && b.left < a.Right() && a.top < b.Bottom() && b.top < a.Bottom();
}

GridPoint Middle(const GridRect& rect) {
    return {rect.left + rect.width / 2, rect.top + rect.height / 2};
}

struct Expected {
    ScreenSize screen;
    int columns;
    int rows;
    int buttonWidth;
    int buttonHeight;
    int labelPixels;
    int titlePixels;
};

class ButtonGridScreenTest : public ::testing::TestWithParam<Expected> {};

TEST_P(ButtonGridScreenTest, AsManyButtonsAsFit) {
    const Expected& expected = GetParam();
    const ButtonGrid grid(expected.screen);
    EXPECT_EQ(grid.Columns(), expected.columns);
    EXPECT_EQ(grid.Rows(), expected.rows);
    EXPECT_EQ(grid.Button(0).width, expected.buttonWidth);
    EXPECT_NEAR(grid.Button(0).height, expected.buttonHeight, 1);
    EXPECT_EQ(grid.LabelPixels(), expected.labelPixels);
    EXPECT_EQ(grid.TitlePixels(), expected.titlePixels);
    const GridRect page = grid.Page(0);
    EXPECT_EQ(page, (GridRect{0, 0, expected.screen.width, expected.screen.height}));
}

TEST_P(ButtonGridScreenTest, NothingOverlaps) {
    for (const int width : {GetParam().screen.width, 317, 1500, 40}) {
        const ButtonGrid grid(GetParam().screen, width);
        const int count = 2 * grid.PerPage();
        for (int i = 0; i < count; ++i) {
            const int page = grid.PageOf(i);
            const GridRect button = grid.Button(i);
            EXPECT_TRUE(IsInside(button, grid.Page(page))) << width << " " << i;
            EXPECT_FALSE(Overlap(button, grid.Title(page))) << width << " " << i;
            EXPECT_FALSE(Overlap(button, grid.Commands(page))) << width << " " << i;
            for (int other = 0; other < i; ++other)
                EXPECT_FALSE(Overlap(button, grid.Button(other))) << width << " " << i << " " << other;
        }
        EXPECT_FALSE(Overlap(grid.Page(0), grid.Page(1)));
        EXPECT_EQ(grid.Page(1).left, 0);
        EXPECT_NEAR(grid.Page(0).width, width, 1);
    }
}

TEST_P(ButtonGridScreenTest, PictureAndCaptionAreBesideEachOther) {
    const ButtonGrid grid(GetParam().screen);
    const GridRect button = grid.Button(1);
    const GridRect picture = grid.Picture(button);
    const GridRect caption = grid.Caption(button);
    EXPECT_TRUE(IsInside(picture, button));
    EXPECT_TRUE(IsInside(caption, button));
    EXPECT_FALSE(Overlap(picture, caption));
    EXPECT_EQ(picture.width, picture.height);
    EXPECT_GE(caption.width, button.width / 2) << "a caption needs more room than a picture";
    EXPECT_GE(caption.height, 3 * grid.LabelPixels()) << "two lines";
}

TEST_P(ButtonGridScreenTest, EveryButtonIsFoundAtItsMiddle) {
    for (const int width : {GetParam().screen.width, 400}) {
        const ButtonGrid grid(GetParam().screen, width);
        const int count = 2 * grid.PerPage() + 1;
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(grid.ButtonAt(Middle(grid.Button(i)), count), i) << width;
    }
}

INSTANTIATE_TEST_SUITE_P(Screens, ButtonGridScreenTest,
                         ::testing::Values(Expected{{640, 480}, 3, 6, 160, 56, 13, 24},
                                           Expected{{800, 600}, 3, 5, 208, 73, 13, 32},
                                           Expected{{1024, 768}, 3, 6, 256, 90, 16, 32},
                                           Expected{{1280, 1024}, 4, 8, 256, 90, 16, 32}));

class ButtonGridTest : public ::testing::Test {
protected:
    const ButtonGrid grid{{640, 480}}; // 3 columns, 6 rows
    const std::function<bool(int)> none = [](int) { return false; };
    const std::function<bool(int)> all = [](int) { return true; };
};

TEST_F(ButtonGridTest, ThereIsAlwaysAPage) {
    EXPECT_EQ(grid.Pages(0), 1);
    EXPECT_EQ(grid.Pages(18), 1);
    EXPECT_EQ(grid.Pages(19), 2);
    EXPECT_EQ(grid.Pages(1000), 56);
    EXPECT_EQ(grid.Height(0), 480);
    EXPECT_EQ(grid.Height(19), grid.Page(1).Bottom());
}

TEST_F(ButtonGridTest, PagesFollowEachOther) {
    EXPECT_EQ(grid.PageOf(17), 0);
    EXPECT_EQ(grid.PageOf(18), 1);
    EXPECT_EQ(grid.PageAt(0), 0);
    EXPECT_EQ(grid.PageAt(grid.Page(1).top - 1), 0) << "the gap";
    EXPECT_EQ(grid.PageAt(grid.Page(1).top), 1);
    EXPECT_EQ(grid.PageAt(-5), 0);
    EXPECT_EQ(grid.Button(18).top - grid.Page(1).top, grid.Button(0).top) << "each begins alike";
}

TEST_F(ButtonGridTest, ButtonsAreFilledRowByRow) {
    EXPECT_EQ(grid.Button(1).top, grid.Button(0).top);
    EXPECT_GT(grid.Button(1).left, grid.Button(0).Right());
    EXPECT_EQ(grid.Button(3).left, grid.Button(0).left);
    EXPECT_GT(grid.Button(3).top, grid.Button(0).Bottom());
}

TEST_F(ButtonGridTest, BesideTheButtonsThereIsNone) {
    EXPECT_EQ(grid.ButtonAt(Middle(grid.Title(0)), 18), std::nullopt);
    EXPECT_EQ(grid.ButtonAt(Middle(grid.Commands(0)), 18), std::nullopt);
    const GridRect first = grid.Button(0);
    EXPECT_EQ(grid.ButtonAt({first.Right(), first.top}, 18), std::nullopt) << "the gap to the right";
    EXPECT_EQ(grid.ButtonAt({first.left, first.top}, 18), 0);
    EXPECT_EQ(grid.ButtonAt(Middle(grid.Button(5)), 5), std::nullopt) << "there are five";
    EXPECT_EQ(grid.ButtonAt({first.left, -10}, 18), std::nullopt);
    EXPECT_EQ(grid.ButtonAt(Middle(grid.Button(0)), 0), std::nullopt);
}

TEST_F(ButtonGridTest, ADropGoesBeforeOrAfterAButton) {
    const GridRect button = grid.Button(4);
    const int y = Middle(button).y;
    EXPECT_EQ(grid.DropAt({button.left + 5, y}, 18, none), (GridDrop{4, false}));
    EXPECT_EQ(grid.DropAt({button.Right() - 5, y}, 18, none), (GridDrop{5, false}));
    EXPECT_EQ(grid.DropAt({0, y}, 18, none), (GridDrop{3, false})) << "left of the row";
    EXPECT_EQ(grid.DropAt({639, y}, 18, none), (GridDrop{6, false})) << "right of the row";
    EXPECT_EQ(grid.DropAt({300, 0}, 18, none).position / 3, 0) << "above the rows";
    EXPECT_EQ(grid.DropAt({639, 479}, 18, none), (GridDrop{18, false})) << "below them";
}

TEST_F(ButtonGridTest, TheFreePlacesAreTheEnd) {
    EXPECT_EQ(grid.DropAt(Middle(grid.Button(10)), 5, none), (GridDrop{5, false}));
    EXPECT_EQ(grid.DropAt(Middle(grid.Page(0)), 0, none), (GridDrop{0, false})) << "an empty submenu";
    EXPECT_EQ(grid.DropAt({10, 100000}, 40, none), (GridDrop{40, false})) << "below the last page";
}

TEST_F(ButtonGridTest, TheMiddleOfASubmenuMeansIntoIt) {
    const GridRect button = grid.Button(4);
    const int y = Middle(button).y;
    EXPECT_EQ(grid.DropAt({Middle(button).x, y}, 18, all), (GridDrop{4, true}));
    EXPECT_EQ(grid.DropAt({button.left + 5, y}, 18, all), (GridDrop{4, false})) << "before it";
    EXPECT_EQ(grid.DropAt({button.Right() - 5, y}, 18, all), (GridDrop{5, false})) << "after it";
}

TEST_F(ButtonGridTest, TheMarkIsBetweenTwoButtons) {
    const GridRect between = grid.Mark(4, 18);
    EXPECT_GE(between.left, grid.Button(3).Right());
    EXPECT_LE(between.Right(), grid.Button(4).left);
    EXPECT_EQ(between.top, grid.Button(4).top);
    const GridRect end = grid.Mark(18, 18);
    EXPECT_EQ(end.top, grid.Button(17).top) << "the end of a full page is on that page";
    EXPECT_GE(end.left, grid.Button(17).Right());
    EXPECT_GE(grid.Mark(0, 0).width, 1) << "an empty submenu";
}

TEST_F(ButtonGridTest, KeysMoveBetweenButtons) {
    const int count = 20; // two rows of three... on the second page only the first row, with two buttons
    EXPECT_EQ(grid.Neighbour(4, Step::Left, count), 3);
    EXPECT_EQ(grid.Neighbour(3, Step::Left, count), 2) << "to the end of the row above";
    EXPECT_EQ(grid.Neighbour(0, Step::Left, count), 0);
    EXPECT_EQ(grid.Neighbour(2, Step::Right, count), 3);
    EXPECT_EQ(grid.Neighbour(19, Step::Right, count), 19);
    EXPECT_EQ(grid.Neighbour(4, Step::Up, count), 1);
    EXPECT_EQ(grid.Neighbour(1, Step::Up, count), 1);
    EXPECT_EQ(grid.Neighbour(18, Step::Up, count), 15) << "to the page before";
    EXPECT_EQ(grid.Neighbour(15, Step::Down, count), 18) << "to the next page";
    EXPECT_EQ(grid.Neighbour(17, Step::Down, count), 19) << "the last row is shorter";
    EXPECT_EQ(grid.Neighbour(19, Step::Down, count), 19);
    EXPECT_EQ(grid.Neighbour(1, Step::PageDown, count), 19);
    EXPECT_EQ(grid.Neighbour(0, Step::PageDown, count), 18);
    EXPECT_EQ(grid.Neighbour(19, Step::PageUp, count), 1);
    EXPECT_EQ(grid.Neighbour(4, Step::PageUp, count), 1) << "to the first row";
    EXPECT_EQ(grid.Neighbour(4, Step::First, count), 0);
    EXPECT_EQ(grid.Neighbour(4, Step::Last, count), 19);
}

TEST_F(ButtonGridTest, WithoutAButtonTheFirstOneComes) {
    for (const Step step : {Step::Left, Step::Right, Step::Up, Step::Down, Step::PageUp, Step::PageDown})
        EXPECT_EQ(grid.Neighbour(-1, step, 5), 0);
    EXPECT_EQ(grid.Neighbour(-1, Step::Last, 5), 4);
    EXPECT_EQ(grid.Neighbour(-1, Step::First, 0), -1);
    EXPECT_EQ(grid.Neighbour(3, Step::Left, 0), -1) << "nothing is left";
}

TEST_F(ButtonGridTest, AnyScreenHoldsAButton) {
    for (const ScreenSize screen :
         {ScreenSize{1, 1}, ScreenSize{0, -5}, ScreenSize{100, 100}, ScreenSize{40000, 20}}) {
        const ButtonGrid odd(screen);
        EXPECT_GE(odd.Columns(), 1);
        EXPECT_GE(odd.Rows(), 1);
        EXPECT_EQ(odd.Pages(3 * odd.PerPage()), 3);
    }
    EXPECT_EQ(ButtonGrid({2560, 1440}).Button(0).width, 256) << "wider than 16 bits of twips";
}

} // namespace
} // namespace nesk
