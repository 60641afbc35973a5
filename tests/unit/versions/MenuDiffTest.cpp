#include "versions/MenuDiff.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/versions/RandomMenu.h"
#include "versions/DifferenceText.h"
#include "versions/LongestRun.h"

namespace nesk {
namespace {

using nesk::testing::ContentText;
using nesk::testing::CopyOf;
using nesk::testing::EntryNamed;
using nesk::testing::MenuFrom;
using nesk::testing::RandomMenu;

class MenuDiffTest : public nesk::testing::CoreTest {
protected:
    // The nodes as indented texts, with the fields below them.
    static std::string Shown(const MenuDiff& difference) {
        std::string text;
        std::vector<int> depths;
        for (const MenuDiff::Node& node : difference.Nodes()) {
            depths.push_back(node.parent < 0 ? 0 : depths[static_cast<std::size_t>(node.parent)] + 1);
            const auto indent = static_cast<std::size_t>(depths.back());
            text.append(indent, ' ').append(DifferenceText::Of(node)).append("\n");
            for (const FieldDifference& field : node.fields)
                text.append(indent, ' ').append("- ").append(DifferenceText::Of(field)).append("\n");
        }
        return text;
    }

    static std::string Difference(const std::string& before, const std::string& after) {
        const auto one = MenuFrom(before);
        const auto other = MenuFrom(after);
        return Shown(MenuDiff(*one, *other));
    }
};

TEST_F(MenuDiffTest, EqualMenusHaveNoDifference) {
    const auto menu = MenuFrom("A\n B:1\n");
    const auto copy = CopyOf(*menu);
    const MenuDiff difference(*menu, *copy);
    EXPECT_TRUE(difference.IsEmpty());
    EXPECT_EQ(DifferenceText::Summary(difference), "No difference");
}

TEST_F(MenuDiffTest, AddedAndRemovedEntriesStandInTheirPlaces) {
    EXPECT_EQ(Difference("A:1\nB:2\nS\n C:3\n D:4\n", "A:1\nN:9\nS\n D:4\n E:5\n"),
              "Main Menu\n N (added)\n B (removed)\n S\n  C (removed)\n  E (added)\n");
}

TEST_F(MenuDiffTest, ARemovedSubmenuCountsWithWhatIsBelowIt) {
    const auto one = MenuFrom("S\n T\n  A:1\n  B:2\n C:3\nD:4\n");
    const auto other = MenuFrom("D:4\n");
    const MenuDiff difference(*one, *other);
    EXPECT_EQ(difference.Removed(), 5u);
    EXPECT_EQ(DifferenceText::Summary(difference), "5 removed");
    EXPECT_EQ(difference.Nodes()[0].end, 6);
    EXPECT_EQ(difference.Nodes()[1].end, 6);
}

TEST_F(MenuDiffTest, OnlyTheFewestEntriesMove) {
    EXPECT_EQ(Difference("A:1\nB:2\nC:3\nD:4\n", "B:2\nC:3\nD:4\nA:1\n"),
              "Main Menu\n A (moved within its submenu)\n");
}

TEST_F(MenuDiffTest, AnEntryOfAnotherSubmenuMovedHere) {
    EXPECT_EQ(Difference("S\n A:1\n B:2\nT\n C:3\n", "S\n B:2\nT\n C:3\n A:1\n"),
              "Main Menu\n T\n  A (moved here from S)\n");
}

TEST_F(MenuDiffTest, ChangedFieldsHaveBothValues) {
    const auto one = MenuFrom("A:1\nS\n B:2\n");
    const auto other = CopyOf(*one);
    EntryNamed(*other, "A").SetGraphic("a.bmp");
    EntryNamed(*other, "A").SetHelpTopic(7);
    EntryNamed(*other, "B").SetCaption("New name");
    other->SetCaption("Parts");
    const MenuDiff difference(*one, *other);
    EXPECT_EQ(Shown(difference), "Parts (changed)\n- Caption: Main Menu -> Parts\n"
                                 " A (changed)\n - Picture: (empty) -> a.bmp\n - Help topic: 0 -> 7\n"
                                 " S\n  New name (changed)\n  - Caption: B -> New name\n");
    EXPECT_EQ(DifferenceText::Summary(difference), "3 changed");
}

TEST_F(MenuDiffTest, ARenamedSubmenuKeepsItsEntries) {
    EXPECT_EQ(Difference("A:1\nS\n B:2\n C:3\nD:4\n", "A:1\nRenamed\n B:2\n C:3\nD:4\n"),
              "Main Menu\n Renamed (changed)\n - Caption: S -> Renamed\n");
}

TEST_F(MenuDiffTest, ASubmenuMovesWithWhatIsBelowIt) {
    EXPECT_EQ(Difference("S\n T\n  A:1\n  B:2\nU\n", "S\nU\n T\n  A:1\n  B:2\n"),
              "Main Menu\n U\n  T (moved here from S)\n");
}

TEST_F(MenuDiffTest, AMovedAndChangedEntryIsOneEntry) {
    const auto one = MenuFrom("S\n A:1\n B:2\nT\n");
    const auto other = MenuFrom("S\n B:2\nT\n A:1\n");
    EntryNamed(*other, "A").SetPreview("p.bmp");
    EXPECT_EQ(Shown(MenuDiff(*one, *other)), "Main Menu\n T\n  A (moved here from S and changed)\n"
                                             "  - Preview picture: (empty) -> p.bmp\n");
}

TEST_F(MenuDiffTest, AReplacedSubmenuIsNotAChangedPart) {
    EXPECT_EQ(Difference("A:1\nB:2\nC:3\n", "A:1\nX\n Y:9\nC:3\n"),
              "Main Menu\n X (added)\n  Y (added)\n B (removed)\n");
}

TEST_F(MenuDiffTest, ASubmenuIsNotLikeAnotherOneBecauseBothContainTheirLike) {
    EXPECT_NE(Difference("A\n A\n", "B\n B\n"), "");
}

TEST_F(MenuDiffTest, TheSummaryNamesAllKinds) {
    const auto one = MenuFrom("A:1\nB:2\nC:3\nS\n D:4\n");
    const auto other = MenuFrom("B:2\nS\n D:4\n C:3\nN:9\n");
    EntryNamed(*other, "B").SetGraphic("b.bmp");
    EXPECT_EQ(DifferenceText::Summary(MenuDiff(*one, *other)), "1 added, 1 removed, 1 moved, 1 changed");
}

TEST_F(MenuDiffTest, TheLongestRunStays) {
    EXPECT_EQ(LongestRun({}), std::vector<bool>{});
    EXPECT_EQ(LongestRun({5}), std::vector<bool>{true});
    EXPECT_EQ(LongestRun({2, 3, 4, 1}), (std::vector<bool>{true, true, true, false}));
    EXPECT_EQ(LongestRun({9, 1, 8, 2, 7, 3}), (std::vector<bool>{false, true, false, true, false, true}));
}

TEST_F(MenuDiffTest, TheNumbersExplainTheSizesOfRandomMenus) {
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        RandomMenu random(seed);
        const auto one = random.Make(random.Below(25));
        const auto other = CopyOf(*one);
        random.Edit(*other, random.Below(10));
        const MenuDiff difference(*one, *other);
        ASSERT_EQ(difference.IsEmpty(), ContentText(*one) == ContentText(*other)) << "seed " << seed;
        ASSERT_EQ(one->CountBelow() + static_cast<std::int64_t>(difference.Added()),
                  other->CountBelow() + static_cast<std::int64_t>(difference.Removed()))
            << "seed " << seed;
        for (std::size_t i = 1; i < difference.Nodes().size(); ++i) {
            const MenuDiff::Node& node = difference.Nodes()[i];
            ASSERT_LT(node.parent, static_cast<int>(i)) << "seed " << seed;
            ASSERT_TRUE(node.IsAffected() || node.end > static_cast<int>(i) + 1) << "seed " << seed;
        }
    }
}

// A tree deeper than the machine stack.
TEST_F(MenuDiffTest, DeepMenusAreCompared) {
    constexpr int depth = 200000;
    const auto deep = [](const char* last) {
        auto menu = std::make_unique<Menu>();
        menu->Initialize("C:\\Neskroot");
        MenuEntry* entry = menu.get();
        for (int i = 0; i < depth; ++i)
            entry = &entry->SubMenus().Add("level", MenuItem::SubmenuType);
        entry->SubMenus().Add(last, MenuItem::PartType);
        return menu;
    };
    const auto one = deep("A");
    const auto other = deep("B");
    const MenuDiff difference(*one, *other);
    EXPECT_EQ(difference.Nodes().size(), static_cast<std::size_t>(depth) + 2);
    EXPECT_EQ(difference.Changed(), 1u);
}

} // namespace
} // namespace nesk
