#include "base/Messages.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

namespace nesk {
namespace {

using nesk::testing::ErrorOf;

// An entry with only one id left to assign.
class LateEntry final : public MenuEntry {
public:
    LateEntry() { m_nextCounter = 2147483646; }
    const std::string& RootDirectory() const override { return m_none; }
    const MenuEntry* ParentMenu() const override { return nullptr; }
    MenuEntry* ParentMenu() override { return nullptr; }

protected:
    std::int32_t CounterInParent() const override { return 0; }

private:
    std::string m_none;
};

class MenuTreeTest : public nesk::testing::CoreTest {
protected:
    MenuTreeTest() { m_menu.Initialize("C:\\Neskroot"); }

    MenuItem& Add(MenuEntry& parent, std::string_view caption = "") {
        return parent.SubMenus().Add(caption, MenuItem::SubmenuType);
    }

    // The ids of the children, separated by spaces.
    static std::string Ids(MenuEntry& parent) {
        std::string ids;
        for (int i = 1; i <= parent.ChildCount(); ++i)
            ids += (i > 1 ? " " : "") + parent.SubMenus().Item(i).ID();
        return ids;
    }

    Menu m_menu;
};

TEST_F(MenuTreeTest, AFreshRoot) {
    Menu menu;
    EXPECT_TRUE(menu.Initialize("D:\\Menus"));
    EXPECT_EQ(menu.Caption(), "Main Menu");
    EXPECT_EQ(menu.Graphic(), "");
    EXPECT_EQ(menu.RootDirectory(), "D:\\Menus");
    EXPECT_EQ(menu.ID(), "R");
    EXPECT_EQ(menu.ParentMenu(), nullptr);
    EXPECT_EQ(menu.SubMenus().Count(), 0);
    menu.SetCaption("x");
    menu.SetGraphic("y");
    EXPECT_TRUE(menu.Initialize(""));
    EXPECT_EQ(menu.Caption(), "Main Menu");
    EXPECT_EQ(menu.Graphic(), "");
    EXPECT_EQ(menu.RootDirectory(), "");
}

TEST_F(MenuTreeTest, AllEntriesBelowAreCounted) {
    EXPECT_EQ(m_menu.CountBelow(), 0);
    MenuItem& first = Add(m_menu);
    Add(Add(first));
    Add(m_menu);
    EXPECT_EQ(m_menu.CountBelow(), 4);
    EXPECT_EQ(first.CountBelow(), 2);
    MenuEntry* deep = &m_menu.SubMenus().Item(2);
    for (int i = 0; i < 100'000; ++i)
        deep = &Add(*deep);
    EXPECT_EQ(m_menu.CountBelow(), 100'004);
}

TEST_F(MenuTreeTest, InitializingAgainStartsAfresh) {
    Add(Add(m_menu));
    m_menu.Initialize("D:\\");
    EXPECT_EQ(m_menu.ChildCount(), 0);
    EXPECT_EQ(m_menu.Find("R.1"), nullptr);
    EXPECT_EQ(Add(m_menu).ID(), "R.1");
}

TEST_F(MenuTreeTest, AFreshItem) {
    MenuItem item;
    EXPECT_EQ(item.ParentMenu(), nullptr);
    EXPECT_EQ(item.RootDirectory(), "");
    EXPECT_FALSE(item.MoveUp());
    EXPECT_FALSE(item.MoveDown());
    item.Initialize(m_menu);
    EXPECT_EQ(item.ParentMenu(), &m_menu);
    EXPECT_EQ(item.ID(), "R.1");
    EXPECT_EQ(item.HelpTopic(), 0);
    for (const std::string_view text :
         {item.MenuType(), item.Caption(), item.Graphic(), item.Preview(), item.HelpFile(), item.ProgramID(),
          item.HistoryDir(), item.HistoryTitle()})
        EXPECT_EQ(text, "");
    EXPECT_EQ(item.SubMenus().Count(), 0);
}

TEST_F(MenuTreeTest, AddingGivesNameTypeParentAndTheLastPlace) {
    Add(m_menu, "first");
    MenuItem& item = m_menu.SubMenus().Add("Brackets", "Part Program");
    EXPECT_EQ(item.Caption(), "Brackets");
    EXPECT_EQ(item.MenuType(), "Part Program");
    EXPECT_EQ(item.ParentMenu(), &m_menu);
    EXPECT_EQ(&m_menu.SubMenus().Item(2), &item);
}

TEST_F(MenuTreeTest, IdsAreNeverUsedTwice) {
    for (int i = 0; i < 3; ++i)
        Add(m_menu);
    EXPECT_EQ(Ids(m_menu), "R.1 R.2 R.3");
    EXPECT_EQ(Add(m_menu.SubMenus().Item(2)).ID(), "R.2.1");
    m_menu.SubMenus().RemoveItem(m_menu.SubMenus().Item(2));
    EXPECT_EQ(Ids(m_menu), "R.1 R.3");
    EXPECT_EQ(Add(m_menu).ID(), "R.4");
    m_menu.SubMenus().RemoveItem(m_menu.SubMenus().Item(3));
    EXPECT_EQ(Add(m_menu).ID(), "R.5") << "not even that of the last child";
    m_menu.SubMenus().Item(1).MoveDown();
    EXPECT_EQ(Ids(m_menu), "R.3 R.1 R.5") << "moving renumbers nothing";
}

TEST_F(MenuTreeTest, NextIdUsesOneUp) {
    EXPECT_EQ(m_menu.NextID(), "R.1");
    EXPECT_EQ(m_menu.NextID(), "R.2");
    MenuItem& item = Add(m_menu);
    EXPECT_EQ(item.ID(), "R.3");
    EXPECT_EQ(item.NextID(), "R.3.1");
    EXPECT_EQ(item.NextCounter(), 2);
    EXPECT_EQ(Add(item).ID(), "R.3.3");
}

TEST_F(MenuTreeTest, IdsEndAtTheLargestNumber) {
    LateEntry entry;
    EXPECT_EQ(entry.NextID(), "R.2147483646");
    for (int i = 0; i < 2; ++i) {
        const NeskError error = ErrorOf([&] { entry.NextID(); });
        EXPECT_EQ(error.number, RuntimeError::Overflow);
        EXPECT_EQ(error.messageId, Message::Overflow);
    }
}

TEST_F(MenuTreeTest, AnItemIsMadeWithACounterThatItHadBefore) {
    Add(m_menu);
    EXPECT_TRUE(m_menu.IsNewCounter(5));
    MenuItem& item = m_menu.SubMenus().Append(MenuItem::CreateWith(m_menu, 5));
    EXPECT_EQ(item.ID(), "R.5");
    EXPECT_EQ(m_menu.Find("R.5"), &item);
    EXPECT_FALSE(m_menu.IsNewCounter(5));
    EXPECT_EQ(Add(m_menu).ID(), "R.6") << "no id is used twice";
    m_menu.SubMenus().Append(MenuItem::CreateWith(m_menu, 3));
    EXPECT_EQ(Add(m_menu).ID(), "R.7");
}

TEST_F(MenuTreeTest, ChildrenGetOtherCounters) {
    Add(Add(m_menu, "a"), "below");
    Add(m_menu, "b");
    m_menu.SubMenus().Renumber({9, 4});
    EXPECT_EQ(Ids(m_menu), "R.9 R.4");
    ASSERT_NE(m_menu.Find("R.9.1"), nullptr);
    EXPECT_EQ(m_menu.Find("R.9.1")->Caption(), "below");
    EXPECT_EQ(m_menu.Find("R.1"), nullptr);
    EXPECT_EQ(Add(m_menu).ID(), "R.10");
}

TEST_F(MenuTreeTest, FindingById) {
    for (int i = 0; i < 12; ++i)
        Add(m_menu);
    MenuItem& first = m_menu.SubMenus().Item(1);
    MenuItem& tenth = m_menu.SubMenus().Item(10);
    MenuItem& below = Add(tenth);
    EXPECT_EQ(m_menu.Find("R"), &m_menu);
    EXPECT_EQ(m_menu.Find("R.1"), &first);
    EXPECT_EQ(m_menu.Find("R.10"), &tenth);
    EXPECT_EQ(m_menu.Find("R.10.1"), &below);
    for (const char* id :
         {"",      "r",        "R.",   "R.0",  "R.01",    "R.13",          "R.1.1",       "R.100",
          "R.10.", "R.10.1.1", "R.-1", "R.+1", "R.1 ",    " R.1",          "R1",          "RR",
          "R..1",  "R.1x",     "R.x",  "X.1",  "R.10.01", "R.99999999999", "R.2147483648"})
        EXPECT_EQ(m_menu.Find(id), nullptr) << '"' << id << '"';
}

TEST_F(MenuTreeTest, FindingBelowAnItem) {
    for (int i = 0; i < 10; ++i)
        Add(m_menu);
    MenuItem& first = m_menu.SubMenus().Item(1);
    MenuItem& below = Add(Add(first));
    EXPECT_EQ(first.Find("R.1"), &first);
    EXPECT_EQ(first.Find("R.1.1.1"), &below);
    for (const char* id : {"R", "R.2", "R.10", "R.1.2", "R.1.", "1.1", ""})
        EXPECT_EQ(first.Find(id), nullptr) << '"' << id << '"';
}

TEST_F(MenuTreeTest, FindingAfterRearranging) {
    for (int i = 1; i <= 6; ++i)
        Add(m_menu, std::to_string(i));
    MenuItemCollection& children = m_menu.SubMenus();
    children.Item(6).MoveUp();
    children.Item(1).MoveDown();
    children.RemoveItem(children.Item(3));
    ASSERT_EQ(Ids(m_menu), "R.2 R.1 R.4 R.6 R.5");
    for (const int number : {1, 2, 4, 5, 6}) {
        MenuEntry* entry = m_menu.Find("R." + std::to_string(number));
        ASSERT_NE(entry, nullptr) << number;
        EXPECT_EQ(entry->Caption(), std::to_string(number));
    }
    EXPECT_EQ(m_menu.Find("R.3"), nullptr);
}

TEST_F(MenuTreeTest, Moving) {
    for (int i = 0; i < 3; ++i)
        Add(m_menu);
    MenuItemCollection& children = m_menu.SubMenus();
    EXPECT_FALSE(children.Item(1).MoveUp());
    EXPECT_FALSE(children.MoveUp(children.Item(1)));
    EXPECT_FALSE(children.Item(3).MoveDown());
    EXPECT_FALSE(children.MoveDown(children.Item(3)));
    EXPECT_EQ(Ids(m_menu), "R.1 R.2 R.3");
    EXPECT_TRUE(children.Item(3).MoveUp());
    EXPECT_EQ(Ids(m_menu), "R.1 R.3 R.2");
    EXPECT_TRUE(children.Item(1).MoveDown());
    EXPECT_EQ(Ids(m_menu), "R.3 R.1 R.2");
    EXPECT_TRUE(children.MoveDown(children.Item(2)));
    EXPECT_TRUE(children.MoveUp(children.Item(2)));
    EXPECT_EQ(Ids(m_menu), "R.2 R.3 R.1");
}

TEST_F(MenuTreeTest, AnOnlyChildCannotMove) {
    MenuItem& item = Add(m_menu);
    EXPECT_FALSE(item.MoveUp());
    EXPECT_FALSE(item.MoveDown());
}

TEST_F(MenuTreeTest, ItemsOfOtherParentsAreIgnored) {
    for (int i = 0; i < 2; ++i)
        Add(m_menu);
    MenuItem& below = Add(m_menu.SubMenus().Item(1));
    Menu other;
    other.Initialize("");
    MenuItem& foreign = Add(other);
    for (MenuItem* item : {&below, &foreign}) {
        // The counter alone would match the first child.
        m_menu.SubMenus().RemoveItem(*item);
        EXPECT_FALSE(m_menu.SubMenus().MoveUp(*item));
        EXPECT_FALSE(m_menu.SubMenus().MoveDown(*item));
        EXPECT_EQ(m_menu.SubMenus().PositionOf(*item), 0);
    }
    EXPECT_EQ(Ids(m_menu), "R.1 R.2");
    EXPECT_EQ(below.ID(), "R.1.1");
    EXPECT_EQ(foreign.ID(), "R.1");
}

TEST_F(MenuTreeTest, ItemsAreCountedFromOne) {
    for (int i = 0; i < 2; ++i)
        Add(m_menu);
    EXPECT_EQ(m_menu.SubMenus().Item(1).ID(), "R.1");
    EXPECT_EQ(m_menu.SubMenus().Item(2).ID(), "R.2");
    for (const int position : {0, 3, -1, 32768, -2147483647 - 1, 2147483647}) {
        const NeskError error = ErrorOf([&] { m_menu.SubMenus().Item(position); });
        EXPECT_EQ(error.number, RuntimeError::SubscriptOutOfRange);
        EXPECT_EQ(error.messageId, Message::SubscriptOutOfRange);
        EXPECT_EQ(error.arguments, std::vector<std::string>{std::to_string(position)});
    }
}

TEST_F(MenuTreeTest, TakingOutAndPuttingBack) {
    for (int i = 0; i < 3; ++i)
        Add(m_menu);
    MenuItemCollection& children = m_menu.SubMenus();
    std::unique_ptr<MenuItem> item = children.Take(2);
    Add(*item, "below");
    EXPECT_EQ(Ids(m_menu), "R.1 R.3");
    std::unique_ptr<MenuItem> other = MenuItem::Create(m_menu);
    EXPECT_EQ(ErrorOf([&] { children.Insert(4, std::move(other)); }).number,
              RuntimeError::SubscriptOutOfRange);
    EXPECT_NE(other, nullptr) << "what was refused stays with the caller";
    EXPECT_EQ(ErrorOf([&] { children.Take(3); }).number, RuntimeError::SubscriptOutOfRange);
    children.Insert(1, std::move(item));
    EXPECT_EQ(Ids(m_menu), "R.2 R.1 R.3");
    EXPECT_EQ(m_menu.Find("R.2.1")->Caption(), "below");
    item = children.Take(1);
    children.Append(std::move(item));
    EXPECT_EQ(Ids(m_menu), "R.1 R.3 R.2");
}

TEST_F(MenuTreeTest, ASubmenuHoldsSoManyChildrenAndNoMore) {
    for (int i = 0; i < 32767; ++i)
        Add(m_menu);
    EXPECT_EQ(m_menu.SubMenus().Count(), 32767);
    EXPECT_EQ(m_menu.Find("R.32767"), &m_menu.SubMenus().Item(32767));
    const NeskError error = ErrorOf([&] { Add(m_menu); });
    EXPECT_EQ(error.number, RuntimeError::Overflow);
    EXPECT_EQ(error.messageId, Message::TooManyChildren);
    EXPECT_EQ(m_menu.SubMenus().Count(), 32767);
    std::unique_ptr<MenuItem> extra = MenuItem::Create(m_menu);
    EXPECT_EQ(extra->ID(), "R.32768") << "the refusal used no id up";
    EXPECT_EQ(ErrorOf([&] { m_menu.SubMenus().Append(std::move(extra)); }).number, RuntimeError::Overflow);
    EXPECT_NE(extra, nullptr) << "what was refused stays with the caller";
    m_menu.SubMenus().RemoveItem(m_menu.SubMenus().Item(1));
    EXPECT_EQ(Add(m_menu).ID(), "R.32769");
}

TEST_F(MenuTreeTest, TheRootDirectoryComesFromTheRoot) {
    MenuItem& item = Add(Add(Add(m_menu)));
    EXPECT_EQ(item.RootDirectory(), "C:\\Neskroot");
    Menu other;
    other.Initialize("D:\\");
    item.SetParentMenu(&other);
    EXPECT_EQ(item.RootDirectory(), "D:\\");
}

TEST_F(MenuTreeTest, TheFirstLetterTellsPartsFromSubmenus) {
    const struct {
        const char* type;
        bool isPart;
    } table[] = {
        {"Part Program", true}, {"P", true},      {"part", true}, {"pizza", true},
        {"Menu", false},        {"", false},      {" P", false},  {"menu P", false},
        {"xPart", false},       {"Ärger", false},
    };
    for (const auto& row : table)
        EXPECT_EQ(m_menu.SubMenus().Add("x", row.type).IsPart(), row.isPart) << row.type;
}

TEST_F(MenuTreeTest, TerminatingACollectionKeepsTheLastChild) {
    for (int i = 0; i < 3; ++i)
        Add(m_menu);
    m_menu.SubMenus().Terminate();
    EXPECT_EQ(Ids(m_menu), "R.3");
    m_menu.SubMenus().Terminate();
    EXPECT_EQ(Ids(m_menu), "R.3");
}

TEST_F(MenuTreeTest, TerminatingAnEntryDropsItsChildren) {
    MenuItem& item = Add(m_menu);
    Add(Add(item));
    item.Terminate();
    EXPECT_EQ(item.ChildCount(), 0);
    EXPECT_EQ(Add(item).ID(), "R.1.2") << "ids go on where they were";
    m_menu.Terminate();
    m_menu.Terminate();
    EXPECT_EQ(m_menu.ChildCount(), 0);
    EXPECT_EQ(m_menu.Find("R.1"), nullptr);
    EXPECT_EQ(m_menu.Find("R"), &m_menu);
}

TEST_F(MenuTreeTest, AMillionLevels) {
    constexpr int Levels = 1000000;
    auto menu = std::make_unique<Menu>();
    menu->Initialize("C:\\Neskroot");
    MenuEntry* entry = menu.get();
    for (int i = 0; i < Levels; ++i)
        entry = &Add(*entry);
    const std::string id = entry->ID();
    EXPECT_EQ(id.size(), 1u + 2u * Levels);
    EXPECT_EQ(menu->Find(id), entry);
    EXPECT_EQ(menu->Find(id + ".1"), nullptr);
    EXPECT_EQ(entry->RootDirectory(), "C:\\Neskroot");
    menu.reset();
    // Releasing part of such a tree must not overflow the stack either.
    entry = &m_menu;
    for (int i = 0; i < Levels; ++i)
        entry = &Add(*entry);
    m_menu.SubMenus().RemoveItem(m_menu.SubMenus().Item(1));
    EXPECT_EQ(m_menu.ChildCount(), 0);
}

} // namespace
} // namespace nesk
