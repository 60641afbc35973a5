// Edits of several entries at once.

#include "base/Messages.h"
#include "editing/EntryText.h"
#include "editing/InsertChange.h"
#include "editing/MenuEditor.h"
#include "editing/OrderChange.h"
#include "menu/Menu.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"

#include <cstdint>
#include <filesystem>
#include <memory>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// The entries below an entry as text, for example "a Sub(b c) d".
std::string Below(const MenuEntry& entry) {
    std::string text;
    for (int i = 1; i <= entry.ChildCount(); ++i) {
        const MenuItem& item = entry.Children()->Item(i);
        text += (i == 1 ? "" : " ") + std::string(item.Caption());
        if (item.ChildCount() > 0) text += "(" + Below(item) + ")";
    }
    return text;
}

class MenuEditorBlocksTest : public nesk::testing::CoreTest {
protected:
    // a Sub(b c d) e Empty f
    MenuEditorBlocksTest() {
        std::filesystem::create_directories(TempStation::Host(Folder));
        m_editor.Open(Folder, Path);
        m_editor.AddPart("R", "a");
        m_editor.AddSubmenu("R", "Sub");
        for (const char* caption : {"b", "c", "d"})
            m_editor.AddPart("R.2", caption);
        m_editor.AddPart("R", "e");
        m_editor.AddSubmenu("R", "Empty");
        m_editor.AddPart("R", "f");
        m_editor.Save(Path);
        m_steps = m_editor.History().UndoNames().size();
    }

    std::string Tree() const { return Below(*m_editor.OpenMenu()); }

    // Id of the entry with a caption, at any depth.
    std::string Id(const std::string& caption) const {
        std::vector<const MenuEntry*> open{m_editor.OpenMenu()};
        while (!open.empty()) {
            const MenuEntry* at = open.back();
            open.pop_back();
            if (at->Caption() == caption) return at->ID();
            for (int i = 1; i <= at->ChildCount(); ++i)
                open.push_back(&at->Children()->Item(i));
        }
        ADD_FAILURE() << "no entry " << caption;
        return "";
    }

    EntryIds Ids(const std::vector<std::string>& captions) const {
        EntryIds ids;
        for (const std::string& caption : captions)
            ids.push_back(Id(caption));
        return ids;
    }

    // Expects the tree after an edit, which must be one step that can be undone and redone.
    void ExpectStep(const std::string& tree, int textId, const std::string& argument) {
        EXPECT_EQ(Tree(), tree);
        EXPECT_TRUE(m_editor.IsDirty());
        ASSERT_EQ(m_editor.History().UndoNames().size(), m_steps + 1);
        EXPECT_EQ(m_editor.History().UndoNames(1).front(), (ChangeName{textId, {argument}}));
        m_editor.Undo();
        EXPECT_EQ(Tree(), Start);
        EXPECT_FALSE(m_editor.IsDirty());
        m_editor.Redo();
        EXPECT_EQ(Tree(), tree);
        m_editor.Undo();
    }

    void ExpectNothingChanged() {
        EXPECT_EQ(Tree(), Start);
        EXPECT_EQ(m_editor.History().UndoNames().size(), m_steps);
        EXPECT_FALSE(m_editor.IsDirty());
    }

    const std::string Start = "a Sub(b c d) e Empty f";
    MenuEditor m_editor;
    std::size_t m_steps = 0;
};

TEST_F(MenuEditorBlocksTest, UppermostKeepsTheOrderOfTheTree) {
    const Menu& menu = *m_editor.OpenMenu();
    EXPECT_EQ(Uppermost(menu, Ids({"f", "c", "a"})), Ids({"a", "c", "f"}));
    EXPECT_EQ(Uppermost(menu, {"R.1", "R.1", "R.77", "", "X"}), EntryIds{"R.1"});
    EXPECT_EQ(Uppermost(menu, {}), EntryIds{});
}

TEST_F(MenuEditorBlocksTest, UppermostLeavesOutWhatIsBelowAnotherEntry) {
    const Menu& menu = *m_editor.OpenMenu();
    EXPECT_EQ(Uppermost(menu, Ids({"c", "Sub", "e"})), Ids({"Sub", "e"}));
    EXPECT_EQ(Uppermost(menu, {"R.1", "R", "R.2.1"}), EntryIds{"R"});
}

TEST_F(MenuEditorBlocksTest, RemovesSeveralEntriesInOneStep) {
    EXPECT_TRUE(m_editor.Remove(Ids({"a", "c", "Empty"})));
    ExpectStep("Sub(b d) e f", Message::ChangeRemoveSeveral, "3");
}

TEST_F(MenuEditorBlocksTest, NamesTheOnlyEntryOfAStep) {
    m_editor.Cut(Ids({"Sub"}));
    ExpectStep("a e Empty f", Message::ChangeCut, "Sub");
}

TEST_F(MenuEditorBlocksTest, CutNamesTheNumber) {
    m_editor.Cut(Ids({"b", "d"}));
    ExpectStep("a Sub(c) e Empty f", Message::ChangeCutSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, RemovingNothingIsNoStep) {
    EXPECT_FALSE(m_editor.Remove(EntryIds{}));
    EXPECT_FALSE(m_editor.Remove(EntryIds{"R.77"}));
    ExpectNothingChanged();
}

TEST_F(MenuEditorBlocksTest, MovesABlockUp) {
    EXPECT_TRUE(m_editor.MoveUp(Ids({"c", "d", "Empty", "f"})));
    ExpectStep("a Sub(c d b) Empty f e", Message::ChangeMoveSeveral, "4");
}

TEST_F(MenuEditorBlocksTest, MovesABlockDown) {
    EXPECT_TRUE(m_editor.MoveDown(Ids({"a", "Sub"})));
    ExpectStep("e a Sub(b c d) Empty f", Message::ChangeMoveSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, ABlockAtTheEndKeepsItsGaps) {
    EXPECT_FALSE(m_editor.MoveUp(Ids({"a", "e"})));
    EXPECT_FALSE(m_editor.MoveDown(Ids({"b", "d"})));
    ExpectNothingChanged();
    EXPECT_FALSE(m_editor.CommandsFor(Ids({"a", "e"})).moveUp);
    EXPECT_TRUE(m_editor.CommandsFor(Ids({"a", "e"})).moveDown);
}

TEST_F(MenuEditorBlocksTest, MovesEntriesOfOneParentOutOfIt) {
    const EntryIds moved = m_editor.MoveOut(Ids({"b", "d"}));
    EXPECT_EQ(moved, Ids({"b", "d"}));
    EXPECT_EQ(m_editor.LastIds(), moved);
    ExpectStep("a Sub(c) b d e Empty f", Message::ChangeMoveSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, MovesEntriesIntoTheSubmenuBeforeTheFirst) {
    const EntryIds moved = m_editor.MoveIn(Ids({"e", "f"}));
    EXPECT_EQ(moved, Ids({"e", "f"}));
    ExpectStep("a Sub(b c d e f) Empty", Message::ChangeMoveSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, EntriesOfSeveralParentsHaveNoLevelInCommon) {
    const MenuCommands commands = m_editor.CommandsFor(Ids({"b", "e"}));
    EXPECT_FALSE(commands.moveOut);
    EXPECT_FALSE(commands.moveIn);
    EXPECT_TRUE(commands.copy);
    EXPECT_FALSE(commands.rename);
    EXPECT_TRUE(m_editor.MoveOut(Ids({"b", "e"})).empty());
    EXPECT_TRUE(m_editor.MoveIn(Ids({"b", "e"})).empty());
    ExpectNothingChanged();
}

TEST_F(MenuEditorBlocksTest, PartsAreAddedWhereTheSelectedEntriesAre) {
    EXPECT_EQ(m_editor.AddPartsTarget({"R"}), "R");
    EXPECT_EQ(m_editor.AddPartsTarget(Ids({"Sub"})), Id("Sub"));
    EXPECT_EQ(m_editor.AddPartsTarget(Ids({"b"})), Id("Sub")) << "beside a part";
    EXPECT_EQ(m_editor.AddPartsTarget(Ids({"b", "d"})), Id("Sub"));
    EXPECT_EQ(m_editor.AddPartsTarget(Ids({"Sub", "Empty"})), "R");
    EXPECT_EQ(m_editor.AddPartsTarget(Ids({"b", "e"})), Id("Sub")) << "where the first is";
    EXPECT_EQ(m_editor.AddPartsTarget({}), "");
    EXPECT_EQ(m_editor.AddPartsTarget({"R.99"}), "");
    EXPECT_TRUE(m_editor.CommandsFor(Ids({"b", "e"})).addParts);
    EXPECT_FALSE(m_editor.CommandsFor(Ids({"b", "e"})).addPart);
}

TEST_F(MenuEditorBlocksTest, MovesEntriesToAPlaceAmongTheirSiblings) {
    m_editor.MoveTo(Ids({"a", "f"}), "R", 4); // before Empty
    ExpectStep("Sub(b c d) e a f Empty", Message::ChangeMoveSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, MovesEntriesOfSeveralParentsToOnePlace) {
    const EntryIds moved = m_editor.MoveTo(Ids({"a", "c", "f"}), Id("Sub"), 2);
    EXPECT_EQ(moved, Ids({"a", "c", "f"}));
    ExpectStep("Sub(b a c f d) e Empty", Message::ChangeMoveSeveral, "3");
    m_editor.MoveTo(Ids({"b", "e"}), Id("Empty"), 0);
    ExpectStep("a Sub(c d) Empty(b e) f", Message::ChangeMoveSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, RefusesToMoveIntoAPartOrIntoOneOfTheEntries) {
    EXPECT_EQ(ErrorOf([&] {
                  m_editor.MoveTo(Ids({"a", "e"}), Id("f"), 0);
              }).messageId,
              Message::MoveIntoPart);
    EXPECT_EQ(ErrorOf([&] {
                  m_editor.MoveTo(Ids({"a", "Sub"}), Id("Sub"), 0);
              }).messageId,
              Message::MoveIntoItself);
    ExpectNothingChanged();
    EXPECT_FALSE(m_editor.WhyNotMoveTo(Ids({"a", "e"}), Id("Sub")));
}

TEST_F(MenuEditorBlocksTest, EntriesThatStayNeedNoRoom) {
    for (int i = m_editor.OpenMenu()->ChildCount(); i < MenuItemCollection::MaxCount; ++i)
        m_editor.AddPart("R", "x");
    EXPECT_FALSE(m_editor.WhyNotMoveTo(Ids({"a", "e"}), "R"));
    EXPECT_EQ(m_editor.WhyNotMoveTo(Ids({"a", "b"}), "R")->messageId, Message::TooManyEntries);
    const std::string before = Tree();
    const std::size_t steps = m_editor.History().UndoNames().size();
    EXPECT_EQ(ErrorOf([&] { m_editor.Duplicate(Ids({"a"})); }).messageId, Message::TooManyEntries);
    EXPECT_EQ(ErrorOf([&] { m_editor.Paste(m_editor.CopyText(Ids({"b"})), "R", 1); }).messageId,
              Message::TooManyEntries);
    EXPECT_EQ(Tree(), before);
    EXPECT_EQ(m_editor.History().UndoNames().size(), steps);
}

TEST_F(MenuEditorBlocksTest, DuplicatesWithEverythingBelow) {
    const EntryIds copies = m_editor.Duplicate(Ids({"Sub"}));
    EXPECT_EQ(copies, m_editor.LastIds());
    ExpectStep("a Sub(b c d) Sub(b c d) e Empty f", Message::ChangeCopy, "Sub");
    m_editor.Duplicate(Ids({"b", "e"}));
    ExpectStep("a Sub(b c d) e b e Empty f", Message::ChangeCopySeveral, "2");
}

TEST_F(MenuEditorBlocksTest, CopiesAllFields) {
    const PartFields fields{"p.bmp", "v.bmp", "@C:\\x\\partinfo.ini@", "h.chm", -7, "C:\\hist", "title"};
    m_editor.SetPart(Id("b"), fields);
    const EntryIds copies = m_editor.CopyTo(Ids({"b"}), Id("Empty"), 0);
    ASSERT_EQ(copies.size(), 1u);
    const auto& copy = dynamic_cast<const MenuItem&>(*m_editor.Find(copies.front()));
    EXPECT_EQ(PartFieldsOf(copy), fields);
    EXPECT_TRUE(copy.IsPart());
}

TEST_F(MenuEditorBlocksTest, PastesItsOwnText) {
    const std::string text = m_editor.CopyText(Ids({"Sub", "f"}));
    EXPECT_EQ(text.substr(0, 13), "BLOCK SUBMENU");
    EXPECT_EQ(m_editor.Paste(text, "R", 2).size(), 2u);
    ExpectStep("a Sub(b c d) f Sub(b c d) e Empty f", Message::ChangePasteSeveral, "2");
    m_editor.Paste(text, Id("Empty"), 0);
    ExpectStep("a Sub(b c d) e Empty(Sub(b c d) f) f", Message::ChangePasteSeveral, "2");
}

TEST_F(MenuEditorBlocksTest, PastesTextOfAnEditorWithOtherLineEnds) {
    m_editor.Paste("\n  block submenu\n caption = Müller \n end\n", "R", 1);
    ExpectStep("Müller a Sub(b c d) e Empty f", Message::ChangePaste, "Müller");
}

TEST_F(MenuEditorBlocksTest, PastesTextUpToAZero) {
    const std::string text = m_editor.CopyText(Ids({"f"}));
    m_editor.Paste(text + std::string(1, '\0') + "hello", "R", 1);
    ExpectStep("f a Sub(b c d) e Empty f", Message::ChangePaste, "f");
}

TEST_F(MenuEditorBlocksTest, RefusesTextThatIsNoBlockWithItsLine) {
    const auto refusalOf = [&](const std::string& text) {
        const NeskError error = ErrorOf([&] { m_editor.Paste(text, "R", 1); });
        return std::to_string(error.messageId) + " in line " + std::to_string(error.line);
    };
    const auto expected = [](int messageId, int line) {
        return std::to_string(messageId) + " in line " + std::to_string(line);
    };
    const std::string good = "BLOCK SUBMENU\r\nCAPTION=x\r\nEND\r\n";
    EXPECT_EQ(refusalOf(good + "CAPTION=y\r\n"), expected(Message::MenuNotABlock, 4));
    EXPECT_EQ(refusalOf(good + "hello"), expected(Message::BlockSyntax, 4));
    EXPECT_EQ(refusalOf("BLOCK MENU\r\nEND\r\n"), expected(Message::MenuUnknownBlock, 1));
    EXPECT_EQ(refusalOf("BLOCK SUBMENU\r\nCAPTION=x\r\n"), expected(Message::MenuBlockNotEnded, 2));
    EXPECT_EQ(refusalOf(good + "BLOCK SUBMENU\r\nHELPTOPIC=seven\r\nEND\r\n"),
              expected(Message::TypeMismatch, 5));
    EXPECT_EQ(refusalOf(good + "\n\nBLOCK SUBMENU\nCAPTION=\xD0\x96\nEND"),
              expected(Message::TextNotEncodable, 7));
    EXPECT_EQ(refusalOf(""), expected(Message::NoEntriesInText, 1));
    EXPECT_EQ(refusalOf("  \r\n; a comment\r\n"), expected(Message::NoEntriesInText, 1));
    ExpectNothingChanged();
}

TEST_F(MenuEditorBlocksTest, RefusesToPasteIntoAPart) {
    const std::string text = m_editor.CopyText(Ids({"b"}));
    EXPECT_EQ(ErrorOf([&] { m_editor.Paste(text, Id("a"), 0); }).messageId, Message::MoveIntoPart);
    ExpectNothingChanged();
}

TEST_F(MenuEditorBlocksTest, SortsByCaption) {
    m_editor.SetCaption(Id("a"), "zebra");
    m_editor.SetCaption(Id("e"), "Äpfel");
    m_editor.SetCaption(Id("f"), "apple");
    const std::string before = Tree();
    EXPECT_TRUE(m_editor.Sort("R", false));
    EXPECT_EQ(Tree(), "Äpfel apple Empty Sub(b c d) zebra");
    m_editor.Undo();
    EXPECT_EQ(Tree(), before);
    EXPECT_TRUE(m_editor.Sort("R", true));
    EXPECT_EQ(Tree(), "Empty Sub(b c d) Äpfel apple zebra");
    EXPECT_EQ(m_editor.History().UndoNames(1).front().textId, Message::ChangeSort);
    EXPECT_FALSE(m_editor.Sort("R", true)) << "sorted already";
}

TEST_F(MenuEditorBlocksTest, WhatIsSorted) {
    EXPECT_EQ(m_editor.SortTarget({"R"}), "R");
    EXPECT_EQ(m_editor.SortTarget({Id("Sub")}), Id("Sub"));
    EXPECT_EQ(m_editor.SortTarget({Id("b")}), Id("Sub")) << "the siblings of a part";
    EXPECT_EQ(m_editor.SortTarget(Ids({"a", "Sub"})), "R") << "siblings";
    EXPECT_EQ(m_editor.SortTarget(Ids({"a", "b"})), "") << "of two submenus";
    EXPECT_EQ(m_editor.SortTarget({Id("Empty")}), "");
    EXPECT_EQ(m_editor.SortTarget({}), "");
    EXPECT_TRUE(m_editor.CommandsFor(Ids({"a", "Sub"})).sort);
    EXPECT_FALSE(m_editor.CommandsFor(Ids({"a", "b"})).sort);
}

TEST_F(MenuEditorBlocksTest, SortedEntriesAreStillFoundByTheirIds) {
    const std::string e = Id("e");
    m_editor.MoveDown(e);
    m_editor.Sort("R", true);
    EXPECT_EQ(m_editor.Find(e)->Caption(), "e");
    EXPECT_TRUE(m_editor.Remove(e));
    EXPECT_EQ(Tree(), "Empty Sub(b c d) a f");
}

TEST_F(MenuEditorBlocksTest, SetsFieldsOfAllParts) {
    m_editor.SetPart(Id("b"), {"old.bmp", "", "", "", 0, "C:\\h", ""});
    m_steps = m_editor.History().UndoNames().size();
    EXPECT_TRUE(m_editor.SetParts(Ids({"a", "b", "Sub"}), {"new.bmp", std::nullopt}));
    const auto partOf = [&](const std::string& caption) {
        return PartFieldsOf(dynamic_cast<const MenuItem&>(*m_editor.Find(Id(caption))));
    };
    EXPECT_EQ(partOf("a").graphic, "new.bmp");
    EXPECT_EQ(partOf("b").graphic, "new.bmp");
    EXPECT_EQ(partOf("b").historyDir, "C:\\h");
    EXPECT_EQ(m_editor.Find(Id("Sub"))->Graphic(), "") << "is no part";
    EXPECT_EQ(m_editor.History().UndoNames(1).front(), (ChangeName{Message::ChangePartSeveral, {"2"}}));
    EXPECT_FALSE(m_editor.SetParts(Ids({"a", "b"}), {"new.bmp", std::nullopt})) << "the same again";
    EXPECT_EQ(m_editor.History().UndoNames().size(), m_steps + 1);
    m_editor.Undo();
    EXPECT_EQ(partOf("b").graphic, "old.bmp");
}

TEST_F(MenuEditorBlocksTest, ARefusedTextChangesNoPart) {
    EXPECT_EQ(ErrorOf([&] {
                  m_editor.SetParts(Ids({"a", "b"}), {std::nullopt, "\xD0\x96"});
              }).messageId,
              Message::NotEncodable);
    ExpectNothingChanged();
}

TEST_F(MenuEditorBlocksTest, AGroupThatIsNotCommittedIsUndone) {
    {
        const MenuEditor::Group group(m_editor, {Message::ChangeRemoveSeveral, {"2"}}, 2);
        m_editor.Remove(Id("a"));
        m_editor.Remove(Id("Sub"));
        EXPECT_EQ(Tree(), "e Empty f");
    }
    ExpectNothingChanged();
}

// What the changes kept for Undo are limited by.
TEST_F(MenuEditorBlocksTest, TheMemoryOfAChangeIncludesItsEntries) {
    Menu menu;
    const auto changeOf = [&](const std::string& text) {
        return InsertChange(std::move(EntryText::Read(text, menu).front()), "R", 1);
    };
    const std::string leaf = "BLOCK SUBMENU\nEND\n";
    std::string children;
    for (int i = 0; i < 100; ++i)
        children += leaf;
    EXPECT_GE(changeOf("BLOCK SUBMENU\n" + children + "END\n").Bytes(),
              changeOf(leaf).Bytes() + 100 * sizeof(MenuItem));
    EXPECT_GE(OrderChange("R", std::vector<std::int32_t>(1000)).Bytes(),
              OrderChange("R", std::vector<std::int32_t>(1)).Bytes() + 999 * sizeof(std::int32_t));
}

TEST_F(MenuEditorBlocksTest, AnInsertedEntryThatWasTakenBackOutlivesItsMenu) {
    auto menu = std::make_unique<Menu>();
    const std::weak_ptr<Arena> memory = menu->Memory();
    auto change = std::make_unique<InsertChange>(
        std::move(EntryText::Read("BLOCK SUBMENU\nEND\n", *menu).front()), "R", 1);
    const auto ignore = [](const MenuEvent&) {};
    ASSERT_TRUE(change->Apply(*menu, ignore));
    ASSERT_TRUE(change->Revert(*menu, ignore));
    menu.reset();
    EXPECT_FALSE(memory.expired()) << "the change keeps the entry";
    change.reset();
    EXPECT_TRUE(memory.expired());
}

} // namespace
} // namespace nesk
