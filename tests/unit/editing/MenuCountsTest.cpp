#include "editing/MenuCounts.h"

#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"

#include <algorithm>
#include <random>
#include <vector>

namespace nesk {

static void PrintTo(const EntryNumbers& numbers, std::ostream* out) {
    *out << numbers.submenus << " submenus, " << numbers.parts << " parts";
}

namespace {

class MenuCountsTest : public testing::CoreTest {
protected:
    void Open() { m_editor.Open("C:\\", "C:\\none.cfg"); }

    // The numbers, counted in another way: by ids.
    EntryNumbers Recounted() const {
        EntryNumbers numbers;
        std::vector<const MenuEntry*> entries{m_editor.OpenMenu()};
        for (std::size_t at = 0; at < entries.size(); ++at) {
            if (const auto* item = dynamic_cast<const MenuItem*>(entries[at]))
                ++(item->MenuType() == MenuItem::PartType ? numbers.parts : numbers.submenus);
            for (int i = 1; i <= entries[at]->ChildCount(); ++i)
                entries.push_back(&entries[at]->Children()->Item(i));
        }
        return numbers;
    }

    MenuEditor m_editor;
    MenuCounts m_counts{m_editor};
};

TEST_F(MenuCountsTest, WithoutAMenuThereIsNothing) {
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{0, 0}));
    Open();
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{0, 0})) << "the root is not counted";
}

TEST_F(MenuCountsTest, FollowsEachChange) {
    Open();
    ASSERT_EQ(m_editor.AddSubmenu("R", "one"), "R.1");
    m_editor.AddPart("R.1", "part");
    m_editor.AddPart("R.1", "part");
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{1, 2}));
    m_editor.AddSubmenu("R.1", "inner");
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{2, 2}));
    ASSERT_TRUE(m_editor.SetCaption("R.1", "renamed"));
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{2, 2}));
    ASSERT_TRUE(m_editor.Remove("R.1"));
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{0, 0})) << "with everything below it";
    ASSERT_TRUE(m_editor.Undo());
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{2, 2})) << "it comes back with everything below it";
    ASSERT_TRUE(m_editor.Redo());
    m_editor.AddPart("R", "after a removal");
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{0, 1}));
    m_editor.Close();
    EXPECT_EQ(m_counts.Numbers(), (EntryNumbers{0, 0}));
}

TEST_F(MenuCountsTest, AgreesWithTheMenuAfterAnyChanges) {
    Open();
    std::mt19937 random(20260117);
    std::vector<std::string> submenus{"R"}, ids{"R"};
    const auto any = [&](const std::vector<std::string>& of) { return of[random() % of.size()]; };
    std::int64_t most = 0;
    for (int step = 0; step < 3000; ++step) {
        switch (random() % 8) {
        case 0:
        case 1:
        case 2: ids.push_back(m_editor.AddPart(any(submenus), "part")); break;
        case 3: submenus.push_back(m_editor.AddSubmenu(any(submenus), "submenu")); break;
        case 4:
            if (random() % 8 == 0) m_editor.Remove(any(random() % 8 == 0 ? submenus : ids));
            break;
        case 5: m_editor.Undo(); break;
        case 6: m_editor.Redo(); break;
        default: ids.push_back(m_editor.MoveOut(any(ids))); break;
        }
        most = std::max(most, m_editor.OpenMenu()->CountBelow());
        // Not after each step: the numbers must also be right after several changes.
        if (random() % 3 != 0) continue;
        ASSERT_EQ(m_counts.Numbers(), Recounted()) << "step " << step;
    }
    EXPECT_GT(most, 30) << "the menus were large enough";
}

} // namespace
} // namespace nesk
