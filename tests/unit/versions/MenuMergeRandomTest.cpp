// Merges of random menus, which have to keep the rules whatever was edited.

#include "base/ByteSink.h"
#include "base/ByteSource.h"
#include "menu/BlockParser.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "menu/MenuKeys.h"
#include "menu/MenuReader.h"
#include "menu/MenuWriter.h"
#include "unit/CoreFixture.h"
#include "unit/versions/RandomMenu.h"
#include "versions/MenuMerge.h"

#include <algorithm>
#include <map>

namespace nesk {
namespace {

using nesk::testing::ContentText;
using nesk::testing::CopyOf;
using nesk::testing::RandomMenu;

constexpr unsigned Seeds = 2000;

class MenuMergeRandomTest : public nesk::testing::CoreTest {};

// A base and two sides of it.
struct Three {
    explicit Three(unsigned seed) : random(seed) {
        base = random.Make(random.Below(25));
        ours = CopyOf(*base);
        theirs = CopyOf(*base);
        random.Edit(*ours, random.Below(10));
        random.Edit(*theirs, random.Below(10));
    }

    RandomMenu random;
    std::unique_ptr<Menu> base;
    std::unique_ptr<Menu> ours;
    std::unique_ptr<Menu> theirs;
};

std::string Merged(const Menu& base, const Menu& ours, const Menu& theirs) {
    return ContentText(*MenuMerge(base, ours, theirs).Result());
}

// Number of entries with each caption.
std::map<std::string, int> Captions(const Menu& menu) {
    std::map<std::string, int> captions;
    std::vector<const MenuEntry*> open{&menu};
    while (!open.empty()) {
        const MenuEntry* entry = open.back();
        open.pop_back();
        ++captions[std::string(entry->Caption())];
        for (int i = 1; i <= entry->ChildCount(); ++i)
            open.push_back(&entry->Children()->Item(i));
    }
    return captions;
}

TEST_F(MenuMergeRandomTest, AnUnchangedSideGivesTheOtherOne) {
    for (unsigned seed = 1; seed <= Seeds; ++seed) {
        const Three three(seed);
        EXPECT_EQ(Merged(*three.base, *three.ours, *three.base), ContentText(*three.ours)) << "seed " << seed;
        EXPECT_EQ(Merged(*three.base, *three.base, *three.ours), ContentText(*three.ours)) << "seed " << seed;
        EXPECT_TRUE(MenuMerge(*three.base, *three.ours, *three.base).Conflicts().empty()) << "seed " << seed;
        EXPECT_TRUE(MenuMerge(*three.base, *three.base, *three.ours).Conflicts().empty()) << "seed " << seed;
        if (HasFailure()) return;
    }
}

TEST_F(MenuMergeRandomTest, EqualSidesGiveThatSide) {
    for (unsigned seed = 1; seed <= Seeds; ++seed) {
        const Three three(seed);
        const auto same = CopyOf(*three.ours);
        const MenuMerge merge(*three.base, *three.ours, *same);
        ASSERT_TRUE(merge.Conflicts().empty()) << "seed " << seed;
        ASSERT_EQ(ContentText(*merge.Result()), ContentText(*three.ours)) << "seed " << seed;
    }
}

TEST_F(MenuMergeRandomTest, ExchangedSidesAndChoicesGiveTheSame) {
    std::size_t conflicts = 0;
    for (unsigned seed = 1; seed <= Seeds; ++seed) {
        Three three(seed);
        MenuMerge merge(*three.base, *three.ours, *three.theirs);
        MenuMerge mirror(*three.base, *three.theirs, *three.ours);
        ASSERT_EQ(merge.Conflicts().size(), mirror.Conflicts().size()) << "seed " << seed;
        conflicts += merge.Conflicts().size();
        for (std::size_t i = 0; i < merge.Conflicts().size(); ++i) {
            const MergeConflict& one = merge.Conflicts()[i];
            const Side side = three.random.Below(2) == 0 ? Side::Ours : Side::Theirs;
            merge.Choose(i, side);
            const auto other = std::find_if(
                mirror.Conflicts().begin(), mirror.Conflicts().end(), [&](const MergeConflict& each) {
                    return each.kind == one.kind && each.field == one.field && each.base == one.base &&
                           each.ours == one.theirs && each.theirs == one.ours;
                });
            ASSERT_NE(other, mirror.Conflicts().end()) << "seed " << seed;
            mirror.Choose(static_cast<std::size_t>(other - mirror.Conflicts().begin()), OtherOf(side));
        }
        ASSERT_EQ(ContentText(*merge.Result()), ContentText(*mirror.Result())) << "seed " << seed;
    }
    EXPECT_GT(conflicts, Seeds / 3) << "too few conflicts to test anything";
}

// Entries are told apart by captions of their own, which are not edited.
TEST_F(MenuMergeRandomTest, NothingIsLostThatNoSideRemoved) {
    for (unsigned seed = 1; seed <= Seeds; ++seed) {
        RandomMenu random(seed);
        auto base = random.Make(25);
        int number = 0;
        const auto name = [&number](Menu& menu, const char* prefix) {
            std::vector<MenuEntry*> open{&menu};
            while (!open.empty()) {
                MenuEntry* entry = open.back();
                open.pop_back();
                if (!entry->Caption().starts_with('#'))
                    entry->SetCaption("#" + std::string(prefix) + std::to_string(++number));
                for (int i = 1; i <= entry->ChildCount(); ++i)
                    open.push_back(&entry->SubMenus().Item(i));
            }
        };
        name(*base, "base ");
        auto ours = CopyOf(*base);
        auto theirs = CopyOf(*base);
        random.MoveAndAdd(*ours, random.Below(12));
        random.MoveAndAdd(*theirs, random.Below(12));
        name(*ours, "ours ");
        name(*theirs, "theirs ");
        auto expected = Captions(*ours);
        for (const auto& [caption, count] : Captions(*theirs))
            expected[caption] = count;
        MenuMerge merge(*base, *ours, *theirs);
        for (std::size_t i = 0; i < merge.Conflicts().size(); ++i)
            merge.Choose(i, random.Below(2) == 0 ? Side::Ours : Side::Theirs);
        EXPECT_EQ(Captions(*merge.Result()), expected) << "seed " << seed;
    }
}

TEST_F(MenuMergeRandomTest, TheResultIsSavedAndLoadedAsItIs) {
    for (unsigned seed = 1; seed <= Seeds; ++seed) {
        Three three(seed);
        const auto merged = MenuMerge(*three.base, *three.ours, *three.theirs).Result();
        std::string bytes;
        TextSink sink(bytes);
        MenuWriter(sink).WriteMenu(*merged);
        Menu loaded;
        loaded.Initialize("C:\\Neskroot");
        BlockParser parser(MenuKeys);
        parser.Open(std::make_unique<TextSource>(bytes, ""));
        ASSERT_TRUE(MenuReader(parser).ReadMenu(loaded)) << "seed " << seed;
        ASSERT_EQ(ContentText(loaded), ContentText(*merged)) << "seed " << seed;
    }
}

} // namespace
} // namespace nesk
