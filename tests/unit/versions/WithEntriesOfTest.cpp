#include "versions/WithEntriesOf.h"

#include "menu/MenuItem.h"
#include "unit/CoreFixture.h"
#include "unit/versions/RandomMenu.h"

#include <algorithm>

namespace nesk {
namespace {

using nesk::testing::ContentText;
using nesk::testing::CopyOf;
using nesk::testing::EntryNamed;
using nesk::testing::MenuFrom;
using nesk::testing::Outline;
using nesk::testing::RandomMenu;

class WithEntriesOfTest : public nesk::testing::CoreTest {
protected:
    // The outline after the entry with this caption was restored.
    static std::string Restored(const std::string& version, const std::string& now,
                                const std::string& caption) {
        const auto before = MenuFrom(version);
        const auto after = MenuFrom(now);
        const MenuDiff difference(*before, *after);
        const auto& nodes = difference.Nodes();
        const auto node = std::find_if(nodes.begin(), nodes.end(), [&](const MenuDiff::Node& each) {
            return each.Shown().Caption() == caption;
        });
        EXPECT_NE(node, nodes.end());
        return Outline(*WithEntriesOf(difference, {static_cast<std::size_t>(node - nodes.begin())}));
    }
};

TEST_F(WithEntriesOfTest, ARemovedEntryComesBackToItsPlace) {
    EXPECT_EQ(Restored("A:1\nB:2\nC:3\nD:4\n", "A:1\nD:4\nE:5\n", "C"), "A:1\nC:3\nD:4\nE:5\n");
    EXPECT_EQ(Restored("A:1\nB:2\n", "B:2\n", "A"), "A:1\nB:2\n");
}

TEST_F(WithEntriesOfTest, ARemovedSubmenuComesBackWithItsEntries) {
    EXPECT_EQ(Restored("S\n A:1\n B:2\nC:3\n", "C:3\n", "S"), "S\n A:1\n B:2\nC:3\n");
}

TEST_F(WithEntriesOfTest, ARemovedEntryBringsItsSubmenuBack) {
    EXPECT_EQ(Restored("S\n T\n  A:1\n  B:2\n D:4\nC:3\n", "C:3\n", "B"), "S\n T\n  B:2\nC:3\n");
}

TEST_F(WithEntriesOfTest, AnAddedEntryGoes) {
    EXPECT_EQ(Restored("A:1\n", "A:1\nNew\n B:2\nOther:3\n", "New"), "A:1\nOther:3\n");
}

TEST_F(WithEntriesOfTest, AMovedEntryGoesBack) {
    EXPECT_EQ(Restored("S\n A:1\n B:2\nT\n C:3\n", "S\n B:2\nT\n A:1\n C:3\n", "A"),
              "S\n A:1\n B:2\nT\n C:3\n");
    EXPECT_EQ(Restored("A:1\nB:2\nC:3\n", "B:2\nC:3\nA:1\n", "A"), "A:1\nB:2\nC:3\n");
}

TEST_F(WithEntriesOfTest, SubmenusThatContainEachOtherGoBackTogether) {
    EXPECT_EQ(Restored("P\n Q\n  A:1\n", "Q\n P\n  A:1\n", "P"), "P\n Q\n  A:1\n");
}

TEST_F(WithEntriesOfTest, OnlyTheFieldsOfChosenEntriesChange) {
    const auto version = MenuFrom("A:1\nB:2\n");
    const auto now = CopyOf(*version);
    EntryNamed(*now, "A").SetGraphic("a.bmp");
    EntryNamed(*now, "B").SetGraphic("b.bmp");
    const MenuDiff difference(*version, *now);
    ASSERT_EQ(difference.Nodes().size(), 3u);
    const auto restored = WithEntriesOf(difference, {2});
    EXPECT_EQ(EntryNamed(*restored, "A").Graphic(), "a.bmp");
    EXPECT_EQ(EntryNamed(*restored, "B").Graphic(), "");
}

TEST_F(WithEntriesOfTest, AllEntriesGiveTheVersionAndNoneThePresentMenu) {
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        RandomMenu random(seed);
        const auto version = random.Make(random.Below(25));
        const auto now = CopyOf(*version);
        random.Edit(*now, random.Below(12));
        const MenuDiff difference(*version, *now);
        ASSERT_EQ(ContentText(*WithEntriesOf(difference, {})), ContentText(*now)) << "seed " << seed;
        if (difference.IsEmpty()) continue;
        ASSERT_EQ(ContentText(*WithEntriesOf(difference, {0})), ContentText(*version)) << "seed " << seed;
    }
}

// Whatever is chosen: only chosen entries and those below them come or go.
TEST_F(WithEntriesOfTest, NoEntryIsLostThatWasNotChosen) {
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        RandomMenu random(seed);
        const auto version = random.Make(random.Below(25));
        const auto now = CopyOf(*version);
        random.Edit(*now, random.Below(12));
        const MenuDiff difference(*version, *now);
        std::vector<std::size_t> chosen;
        std::vector<bool> isChosen(difference.Nodes().size(), false);
        for (std::size_t i = 1; i < difference.Nodes().size(); ++i) {
            const MenuDiff::Node& node = difference.Nodes()[i];
            const bool isBelow = isChosen[static_cast<std::size_t>(node.parent)];
            if (!isBelow && random.Below(4) > 0) continue;
            if (!isBelow) chosen.push_back(i);
            isChosen[i] = true;
        }
        // Removed submenus come back with what is in them.
        std::vector<bool> comesBack(isChosen);
        for (std::size_t i = difference.Nodes().size(); i-- > 1;) {
            const MenuDiff::Node& node = difference.Nodes()[i];
            if (node.IsRemoved() && comesBack[i]) comesBack[static_cast<std::size_t>(node.parent)] = true;
        }
        std::int64_t expected = now->CountBelow();
        for (std::size_t i = 1; i < difference.Nodes().size(); ++i) {
            if (difference.Nodes()[i].IsAdded() && isChosen[i]) --expected;
            if (difference.Nodes()[i].IsRemoved() && comesBack[i]) ++expected;
        }
        ASSERT_EQ(WithEntriesOf(difference, chosen)->CountBelow(), expected) << "seed " << seed;
    }
}

} // namespace
} // namespace nesk
