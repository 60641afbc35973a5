#include "versions/MenuUpdate.h"

#include "base/Messages.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/editing/OpenMenu.h"
#include "unit/versions/RandomMenu.h"

namespace nesk {
namespace {

using nesk::testing::ContentText;
using nesk::testing::CopyOf;
using nesk::testing::EntryNamed;
using nesk::testing::ErrorOf;
using nesk::testing::MenuFrom;
using nesk::testing::OpenMenuOf;
using nesk::testing::Outline;
using nesk::testing::RandomMenu;

// Collects the events of an editor.
class Events : public MenuEditorListener {
public:
    explicit Events(MenuEditor& editor) : m_editor(editor) { m_editor.AddListener(*this); }
    ~Events() override { m_editor.RemoveListener(*this); }
    Events(const Events&) = delete;
    Events& operator=(const Events&) = delete;

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent& event) override { all.push_back(event); }
    void OnStateChanged() override {}

    std::vector<MenuEvent> all;

private:
    MenuEditor& m_editor;
};

class MenuUpdateTest : public nesk::testing::CoreTest {
protected:
    // Opens an editor on a copy of a menu, made by changes that are then forgotten.
    static void Open(MenuEditor& editor, const Menu& menu) {
        static_cast<void>(editor.Open("C:\\Neskroot", "C:\\Neskroot\\none.cfg"));
        UpdateOpenMenu(editor, menu, {Message::ChangeAdd, {}});
    }

    bool Update(const Menu& target) { return UpdateOpenMenu(m_editor, target, {Message::ChangeAdd, {"x"}}); }

    std::string IdOf(const std::string& caption) { return EntryNamed(OpenMenuOf(m_editor), caption).ID(); }

    MenuEditor m_editor;
};

TEST_F(MenuUpdateTest, NothingIsDoneWithoutAMenuOrADifference) {
    const auto menu = MenuFrom("Covers\n Front:p1\n");
    EXPECT_FALSE(Update(*menu));
    Open(m_editor, *menu);
    const auto before = m_editor.History().UndoNames();
    EXPECT_FALSE(Update(*CopyOf(*menu)));
    EXPECT_EQ(m_editor.History().UndoNames(), before);
}

TEST_F(MenuUpdateTest, ItIsOneStepAndEntriesKeepTheirIds) {
    Open(m_editor, *MenuFrom("Covers\n Front:p1\n Back:p2\nHousings\n Left:p3\nShafts\n"));
    const std::string front = IdOf("Front");
    const std::string left = IdOf("Left");
    Events events(m_editor);
    const auto target = MenuFrom("Covers\n Front:p1\n New:p9\n Back:p2\nHousings\n Left:p3\n");
    ASSERT_TRUE(Update(*target));
    EXPECT_EQ(Outline(*m_editor.OpenMenu()), Outline(*target));
    EXPECT_EQ(IdOf("Front"), front);
    EXPECT_EQ(IdOf("Left"), left);
    ASSERT_EQ(events.all.size(), 2u);
    EXPECT_EQ(events.all[0].kind, MenuEvent::Kind::Removed);
    EXPECT_EQ(events.all[1].kind, MenuEvent::Kind::Added);
    EXPECT_EQ(m_editor.History().UndoNames().size(), 2u);
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_EQ(Outline(*m_editor.OpenMenu()), "Covers\n Front:p1\n Back:p2\nHousings\n Left:p3\nShafts\n");
}

TEST_F(MenuUpdateTest, ANewOrderIsOneEvent) {
    Open(m_editor, *MenuFrom("A:1\nB:2\nC:3\nD:4\nE:5\n"));
    Events events(m_editor);
    ASSERT_TRUE(Update(*MenuFrom("E:5\nD:4\nC:3\nB:2\nA:1\n")));
    ASSERT_EQ(events.all.size(), 1u);
    EXPECT_EQ(events.all[0].kind, MenuEvent::Kind::Reordered);
    EXPECT_EQ(Outline(*m_editor.OpenMenu()), "E:5\nD:4\nC:3\nB:2\nA:1\n");
}

TEST_F(MenuUpdateTest, TwoSubmenusExchangeTheirPlacesInEachOther) {
    Open(m_editor, *MenuFrom("Outer\n Inner\n  Part:p\n"));
    ASSERT_TRUE(Update(*MenuFrom("Inner\n Outer\n  Part:p\n")));
    EXPECT_EQ(Outline(*m_editor.OpenMenu()), "Inner\n Outer\n  Part:p\n");
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_EQ(Outline(*m_editor.OpenMenu()), "Outer\n Inner\n  Part:p\n");
}

TEST_F(MenuUpdateTest, EntriesBelowAPartGoThereToo) {
    Open(m_editor, *MenuFrom("Part:p\nOther:q\nMoved:r\n"));
    const auto target = MenuFrom("Part:p\n Moved:r\nOther:q\n");
    ASSERT_TRUE(Update(*target));
    EXPECT_EQ(ContentText(*m_editor.OpenMenu()), ContentText(*target));
}

// A text that nobody could type goes through unchanged.
TEST_F(MenuUpdateTest, TextsAreNotChecked) {
    Open(m_editor, *MenuFrom("Part:p\n"));
    const auto target = MenuFrom("Part:p\n");
    EntryNamed(*target, "Part").SetPreview("two\nlines");
    ASSERT_TRUE(Update(*target));
    EXPECT_EQ(EntryNamed(OpenMenuOf(m_editor), "Part").Preview(), "two\nlines");
}

TEST_F(MenuUpdateTest, AnErrorRollsEverythingBack) {
    const auto full = MenuFrom("Source\n Moved:p\nFull\n");
    MenuItem& submenu = EntryNamed(*full, "Full");
    for (int i = 0; i < MenuItemCollection::MaxCount; ++i)
        submenu.SubMenus().Add("entry " + std::to_string(i), MenuItem::PartType);
    Open(m_editor, *full);
    const std::string before = ContentText(*m_editor.OpenMenu());
    // The full submenu takes an entry before it gives one away.
    const auto target = CopyOf(*full);
    MenuItemCollection& children = EntryNamed(*target, "Full").SubMenus();
    MenuItem& source = EntryNamed(*target, "Source");
    auto given = children.Take(5);
    auto taken = source.SubMenus().Take(1);
    given->SetPlace(source, source.NextCounter());
    taken->SetPlace(EntryNamed(*target, "Full"), EntryNamed(*target, "Full").NextCounter());
    children.Insert(1, std::move(taken));
    MenuItem& last = target->SubMenus().Add("Last", MenuItem::SubmenuType);
    given->SetPlace(last, last.NextCounter());
    last.SubMenus().Append(std::move(given));
    const NeskError error = ErrorOf([&] { Update(*target); });
    EXPECT_EQ(error.number, RuntimeError::Overflow);
    EXPECT_EQ(ContentText(*m_editor.OpenMenu()), before);
    EXPECT_EQ(m_editor.History().UndoNames().size(), 1u);
}

TEST_F(MenuUpdateTest, RandomMenusBecomeEachOtherAndBack) {
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        RandomMenu random(seed);
        const auto from = random.Make(random.Below(25));
        auto to = random.Below(5) == 0 ? random.Make(random.Below(25)) : CopyOf(*from);
        random.Edit(*to, random.Below(12));
        MenuEditor editor;
        Open(editor, *from);
        ASSERT_EQ(ContentText(*editor.OpenMenu()), ContentText(*from)) << "seed " << seed;
        const auto before = CopyOf(*editor.OpenMenu());
        const bool differs = UpdateOpenMenu(editor, *to, {Message::ChangeAdd, {}});
        ASSERT_EQ(differs, ContentText(*from) != ContentText(*to)) << "seed " << seed;
        ASSERT_EQ(ContentText(*editor.OpenMenu()), ContentText(*to)) << "seed " << seed;
        if (!differs) continue;
        ASSERT_TRUE(editor.Undo());
        ASSERT_EQ(ContentText(*editor.OpenMenu()), ContentText(*from)) << "seed " << seed;
        ASSERT_TRUE(editor.Redo());
        ASSERT_EQ(ContentText(*editor.OpenMenu()), ContentText(*to)) << "seed " << seed;
    }
}

} // namespace
} // namespace nesk
