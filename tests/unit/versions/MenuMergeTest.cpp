#include "versions/MenuMerge.h"

#include "base/VersionMessages.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/versions/RandomMenu.h"
#include "versions/ConflictText.h"

namespace nesk {
namespace {

using nesk::testing::CopyOf;
using nesk::testing::EntryNamed;
using nesk::testing::ErrorOf;
using nesk::testing::MenuFrom;
using nesk::testing::Outline;

using Kind = MergeConflict::Kind;

class MenuMergeTest : public nesk::testing::CoreTest {
protected:
    // Starts a merge of menus in the form of MenuFrom.
    MenuMerge& Merge(const std::string& base, const std::string& ours, const std::string& theirs) {
        m_base = MenuFrom(base);
        m_ours = MenuFrom(ours);
        m_theirs = MenuFrom(theirs);
        return Begin();
    }

    // Starts a merge of a base and two copies of it, which the test edits.
    void Copies(const std::string& base) {
        m_base = MenuFrom(base);
        m_ours = CopyOf(*m_base);
        m_theirs = CopyOf(*m_base);
    }

    MenuMerge& Begin() {
        m_merge = std::make_unique<MenuMerge>(*m_base, *m_ours, *m_theirs);
        return *m_merge;
    }

    std::string Result() { return Outline(*m_merge->Result()); }

    // The conflicts as texts, one a line.
    std::string Conflicts() {
        std::string text;
        for (const MergeConflict& conflict : m_merge->Conflicts())
            text.append(ConflictText::Place(conflict))
                .append(" | ")
                .append(ConflictText::Subject(conflict))
                .append(" | ")
                .append(ConflictText::BaseValue(conflict))
                .append(" | ")
                .append(ConflictText::Value(conflict, Side::Ours))
                .append(" | ")
                .append(ConflictText::Value(conflict, Side::Theirs))
                .append("\n");
        return text;
    }

    std::unique_ptr<Menu> m_base;
    std::unique_ptr<Menu> m_ours;
    std::unique_ptr<Menu> m_theirs;
    std::unique_ptr<MenuMerge> m_merge;
};

TEST_F(MenuMergeTest, EditsOfDifferentEntriesAreMerged) {
    Merge("S\n A:1\n B:2\nT\n C:3\n", "S\n A:1\nT\n C:3\n N:8\n", "S\n A:1\n B:2\n M:9\nT\nC:3\n");
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(Result(), "S\n A:1\n M:9\nT\n N:8\nC:3\n");
}

TEST_F(MenuMergeTest, DifferentFieldsOfAnEntryAreMerged) {
    Copies("A:1\n");
    EntryNamed(*m_ours, "A").SetGraphic("ours.bmp");
    EntryNamed(*m_theirs, "A").SetHelpTopic(7);
    Begin();
    EXPECT_EQ(Conflicts(), "");
    const auto result = m_merge->Result();
    EXPECT_EQ(EntryNamed(*result, "A").Graphic(), "ours.bmp");
    EXPECT_EQ(EntryNamed(*result, "A").HelpTopic(), 7);
}

TEST_F(MenuMergeTest, AFieldEditedTwiceIsAConflict) {
    Copies("S\n A:1\n");
    EntryNamed(*m_ours, "A").SetGraphic("ours.bmp");
    EntryNamed(*m_theirs, "A").SetGraphic("theirs.bmp");
    Begin();
    EXPECT_EQ(Conflicts(), "Main Menu > S > A | Picture | (empty) | ours.bmp | theirs.bmp\n");
    EXPECT_EQ(EntryNamed(*m_merge->Result(), "A").Graphic(), "ours.bmp");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(m_merge->Conflicts()[0].chosen, Side::Theirs);
    EXPECT_EQ(EntryNamed(*m_merge->Result(), "A").Graphic(), "theirs.bmp");
}

TEST_F(MenuMergeTest, TheSameEditIsNoConflict) {
    Copies("A:1\nB:2\n");
    for (Menu* side : {m_ours.get(), m_theirs.get()}) {
        EntryNamed(*side, "A").SetGraphic("same.bmp");
        side->SubMenus().Add("New", MenuItem::PartType);
        side->SubMenus().RemoveItem(EntryNamed(*side, "B"));
    }
    Begin();
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(Result(), "A:1\nNew:\n");
}

TEST_F(MenuMergeTest, ARemovedAndEditedEntryIsAConflict) {
    Copies("S\n A:1\n B:2\nT:3\n");
    m_ours->SubMenus().RemoveItem(EntryNamed(*m_ours, "S"));
    EntryNamed(*m_theirs, "B").SetGraphic("b.bmp");
    Begin();
    EXPECT_EQ(Conflicts(), "Main Menu > S | Entry | not removed | removed | not removed, but changed\n");
    EXPECT_EQ(Result(), "T:3\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "S\n A:1\n B:2\nT:3\n");
}

TEST_F(MenuMergeTest, ARemovedSubmenuThatGotEntriesIsAConflict) {
    Merge("S\n A:1\nT:3\n", "S\n A:1\n N:9\nT:3\n", "T:3\n");
    EXPECT_EQ(Conflicts(), "Main Menu > S | Entry | not removed | not removed, but changed | removed\n");
    EXPECT_EQ(Result(), "S\n A:1\n N:9\nT:3\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "T:3\n");
}

TEST_F(MenuMergeTest, AnEntryMovedIntoARemovedSubmenuIsNotLost) {
    Merge("S\n A:1\nT\n B:2\n", "T\n B:2\n", "S\n A:1\n B:2\nT\n");
    ASSERT_EQ(m_merge->Conflicts().size(), 1u);
    EXPECT_EQ(Result(), "T\n B:2\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "S\n A:1\n B:2\nT\n");
}

TEST_F(MenuMergeTest, AnEntryTakenOutOfARemovedSubmenuIsAConflictOfItsOwn) {
    Merge("S\n A:1\n B:2\nT\n", "T\n", "S\n A:1\nT\n B:2\n");
    EXPECT_EQ(Conflicts(), "Main Menu > S > B | Entry | not removed | removed | not removed, but changed\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "T\n B:2\n");
}

TEST_F(MenuMergeTest, MovesToDifferentPlacesAreAConflict) {
    Merge("A:1\nS\nT\n", "S\n A:1\nT\n", "S\nT\n A:1\n");
    EXPECT_EQ(Conflicts(), "Main Menu > A | Place | in Main Menu | in Main Menu > S | in Main Menu > T\n");
    EXPECT_EQ(Result(), "S\n A:1\nT\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "S\nT\n A:1\n");
}

TEST_F(MenuMergeTest, MovesIntoEachOtherAreAConflict) {
    Merge("A\n X:1\nB\n Y:2\n", "B\n Y:2\n A\n  X:1\n", "A\n X:1\n B\n  Y:2\n");
    ASSERT_EQ(m_merge->Conflicts().size(), 1u);
    EXPECT_EQ(m_merge->Conflicts()[0].kind, Kind::Nesting);
    EXPECT_EQ(Result(), "B\n Y:2\n A\n  X:1\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "A\n X:1\n B\n  Y:2\n");
}

// One side alone turns two submenus inside out; the other one did nothing there.
TEST_F(MenuMergeTest, MovesOfOneSideIntoEachOtherAreNoConflict) {
    Merge("P\n Q\n  X:1\nT\n Y:2\n", "Q\n P\n  X:1\nT\n Y:2\n", "P\n Q\n  X:1\nT\nY:2\n");
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(Result(), "Q\n P\n  X:1\nT\nY:2\n");
}

TEST_F(MenuMergeTest, TheOrderThatOneSideChangedCounts) {
    Merge("A:1\nB:2\nC:3\n", "C:3\nA:1\nB:2\n", "A:1\nB:2\nN:9\nC:3\n");
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(Result(), "C:3\nA:1\nB:2\nN:9\n");
}

TEST_F(MenuMergeTest, DifferentOrdersAreAConflict) {
    Merge("A:1\nB:2\nC:3\n", "C:3\nA:1\nB:2\n", "B:2\nA:1\nC:3\n");
    EXPECT_EQ(Conflicts(), "Main Menu | Order of the entries | A, B, C | C, A, B | B, A, C\n");
    EXPECT_EQ(Result(), "C:3\nA:1\nB:2\n");
    m_merge->Choose(0, Side::Theirs);
    EXPECT_EQ(Result(), "B:2\nA:1\nC:3\n");
}

TEST_F(MenuMergeTest, EntriesAddedInOnePlaceStandByTheirCaptions) {
    for (const bool exchanged : {false, true}) {
        const std::string one = "A:1\nX:8\nB:2\n";
        const std::string other = "A:1\nM:9\nB:2\n";
        Merge("A:1\nB:2\n", exchanged ? other : one, exchanged ? one : other);
        EXPECT_EQ(Result(), "A:1\nM:9\nX:8\nB:2\n");
    }
}

TEST_F(MenuMergeTest, ASubmenuThatBothAddedIsOne) {
    Merge("A:1\n", "A:1\nS\n B:2\n C:3\n", "A:1\nS\n B:2\n D:4\n");
    EXPECT_EQ(Conflicts(), "");
    EXPECT_EQ(Result(), "A:1\nS\n B:2\n C:3\n D:4\n");
}

TEST_F(MenuMergeTest, TooManyEntriesRaiseAnError) {
    Copies("S\n");
    const auto fill = [](Menu& menu, const std::string& caption, int count) {
        MenuItemCollection& children = EntryNamed(menu, "S").SubMenus();
        for (int i = 0; i < count; ++i)
            children.Add(caption + std::to_string(i), MenuItem::PartType);
    };
    fill(*m_ours, "ours ", MenuItemCollection::MaxCount);
    fill(*m_theirs, "theirs ", 1);
    Begin();
    const NeskError error = ErrorOf([&] { m_merge->Result(); });
    EXPECT_EQ(error.number, RuntimeError::Overflow);
    EXPECT_EQ(error.messageId, Message::MergeTooManyChildren);
    EXPECT_EQ(error.arguments, (std::vector<std::string>{"S", "32767"}));
}

// A tree deeper than the machine stack.
TEST_F(MenuMergeTest, DeepMenusAreMerged) {
    constexpr int depth = 100000;
    const auto deep = [](const std::string& last) {
        auto menu = std::make_unique<Menu>();
        menu->Initialize("C:\\Neskroot");
        MenuEntry* entry = menu.get();
        for (int i = 0; i < depth; ++i)
            entry = &entry->SubMenus().Add("level", MenuItem::SubmenuType);
        for (const char c : last)
            entry->SubMenus().Add(std::string(1, c), MenuItem::PartType);
        return menu;
    };
    m_base = deep("AB");
    m_ours = deep("B");
    m_theirs = deep("ABC");
    Begin();
    EXPECT_EQ(m_merge->Result()->CountBelow(), depth + 2);
}

} // namespace
} // namespace nesk
