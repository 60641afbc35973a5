#include "editing/MenuChange.h"
#include "base/Messages.h"
#include "editing/CompoundChange.h"
#include "editing/MenuEditor.h"
#include "editing/MoveToChange.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "settings/RegEntry.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"
#include "unit/editing/OpenMenu.h"

#include <filesystem>
#include <functional>
#include <random>

namespace nesk {
namespace {

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// Ids of an entry and everything below it, in display order.
std::vector<std::string> IdsOf(const MenuEntry& entry) {
    std::vector<std::string> ids = {entry.ID()};
    for (int i = 1; i <= entry.ChildCount(); ++i) {
        const std::vector<std::string> below = IdsOf(entry.Children()->Item(i));
        ids.insert(ids.end(), below.begin(), below.end());
    }
    return ids;
}

// All fields of an entry on one line.
std::string Describe(const MenuEntry& entry) {
    std::string text = entry.ID();
    const auto add = [&](std::string_view field) { text.append("|").append(field); };
    add(entry.Caption());
    add(entry.Graphic());
    if (const auto* item = dynamic_cast<const MenuItem*>(&entry)) {
        for (const std::string_view field : {item->Preview(), item->HelpFile(), item->MenuType(),
                                             item->ProgramID(), item->HistoryDir(), item->HistoryTitle()})
            add(field);
        add(std::to_string(item->HelpTopic()));
    }
    return text + "\n";
}

class MenuChangeListener : public MenuEditorListener {
public:
    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent&) override { ++events; }
    void OnStateChanged() override {}

    int events = 0;
};

class MenuChangeTest : public nesk::testing::CoreTest, public MenuEditorListener {
protected:
    MenuChangeTest() {
        std::filesystem::create_directories(TempStation::Host(Folder));
        m_editor.AddListener(*this);
        m_editor.Open(Folder, Path);
        m_editor.AddSubmenu("R", "Brackets");
        for (const char* caption : {"a", "b", "c"})
            m_editor.AddPart("R.1", caption);
        m_editor.AddPart("R", "Housing");
        m_editor.AddSubmenu("R", "Covers");
        // The history starts at this version.
        m_editor.Save(Path);
        m_editor.Open(Folder, Path);
    }

    // Number of changes that can be undone.
    std::size_t Made() const { return m_editor.History().UndoNames().size(); }

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent& event) override { m_lastEvent = event; }
    void OnStateChanged() override {}

    // The whole tree: ids, texts and order.
    std::string Snapshot() {
        std::string text;
        for (const std::string& id : IdsOf(*m_editor.OpenMenu()))
            text += Describe(*m_editor.Find(id));
        return text;
    }

    // The bytes of the file that the tree is saved to.
    std::string SavedBytes() {
        const std::string copy = Folder + "\\copy.cfg";
        m_editor.OpenMenu()->SaveToFile(copy);
        return nesk::testing::FileBytes(copy);
    }

    MenuEditor m_editor;
    MenuEvent m_lastEvent;
};

TEST_F(MenuChangeTest, EveryChangeIsTakenBackAndMadeAgain) {
    PartFields fields;
    fields.graphic = "g";
    fields.helpTopic = 3;
    fields.historyTitle = "t";
    const std::pair<const char*, std::function<void()>> operations[] = {
        {"add part", [&] { m_editor.AddPart("R.1", "new"); }},
        {"add submenu", [&] { m_editor.AddSubmenu("R", "new"); }},
        {"add to an empty submenu", [&] { m_editor.AddPart("R.3", "new"); }},
        {"move up", [&] { m_editor.MoveUp("R.3"); }},
        {"move down", [&] { m_editor.MoveDown("R.1"); }},
        {"remove with children", [&] { m_editor.Remove("R.1"); }},
        {"remove from the middle", [&] { m_editor.Remove("R.1.2"); }},
        {"remove the last", [&] { m_editor.Remove("R.3"); }},
        {"root caption", [&] { m_editor.SetCaption("R", "Root"); }},
        {"caption", [&] { m_editor.SetCaption("R.1.1", "Ä"); }},
        {"graphic", [&] { m_editor.SetGraphic("R.1", "x.bmp"); }},
        {"part", [&] { m_editor.SetPart("R.2", fields); }},
        {"move to another submenu", [&] { m_editor.MoveTo("R.1.2", "R.3", 0); }},
        {"move out of a submenu", [&] { m_editor.MoveTo("R.1.1", "R", 2); }},
        {"move a submenu", [&] { m_editor.MoveTo("R.1", "R.3", 1); }},
        {"move among siblings", [&] { m_editor.MoveTo("R.1.3", "R.1", 1); }},
    };
    const std::string start = Snapshot();
    const std::string startBytes = SavedBytes();
    for (const auto& [name, operation] : operations) {
        const std::string before = Snapshot();
        operation();
        ASSERT_EQ(Made(), 1u) << name;
        const std::string after = Snapshot();
        EXPECT_NE(after, before) << name;
        const MenuEvent made = m_lastEvent;
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(m_editor.Undo()) << name;
            EXPECT_EQ(Snapshot(), before) << name;
            EXPECT_TRUE(m_editor.Redo()) << name;
            EXPECT_EQ(Snapshot(), after) << name;
            EXPECT_EQ(m_lastEvent.kind, made.kind) << name;
            EXPECT_EQ(m_lastEvent.id, made.id) << name;
            EXPECT_EQ(m_lastEvent.parentId, made.parentId) << name;
            EXPECT_EQ(m_lastEvent.position, made.position) << name;
        }
        EXPECT_TRUE(m_editor.Undo()) << name;
    }
    EXPECT_EQ(Snapshot(), start);
    EXPECT_EQ(SavedBytes(), startBytes);
}

TEST_F(MenuChangeTest, WhatTakingBackReports) {
    using Kind = MenuEvent::Kind;
    const auto expectEvent = [&](Kind kind, const char* id, const char* parentId, int position) {
        EXPECT_TRUE(m_editor.Undo()) << id;
        EXPECT_EQ(m_lastEvent.kind, kind) << id;
        EXPECT_EQ(m_lastEvent.id, id);
        EXPECT_EQ(m_lastEvent.parentId, parentId) << id;
        EXPECT_EQ(m_lastEvent.position, position) << id;
    };
    m_editor.AddPart("R.1", "new");
    expectEvent(Kind::Removed, "R.1.4", "", 0);
    m_editor.Remove("R.1.2");
    expectEvent(Kind::Added, "R.1.2", "R.1", 2);
    m_editor.MoveDown("R.1.1");
    expectEvent(Kind::Moved, "R.1.1", "R.1", 1);
    m_editor.MoveUp("R.3");
    expectEvent(Kind::Moved, "R.3", "R", 3);
    m_editor.SetCaption("R", "x");
    expectEvent(Kind::Edited, "R", "", 0);
    m_editor.SetGraphic("R.1", "x");
    expectEvent(Kind::Edited, "R.1", "", 0);
    PartFields fields;
    fields.preview = "x";
    m_editor.SetPart("R.2", fields);
    expectEvent(Kind::Edited, "R.2", "", 0);
}

TEST_F(MenuChangeTest, TheSavedStateIsCleanAndEveryOtherIsDirty) {
    m_editor.SetCaption("R", "x");
    m_editor.Save(Path);
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_TRUE(m_editor.IsDirty());
    m_editor.Save(Path);
    EXPECT_TRUE(m_editor.Redo());
    EXPECT_TRUE(m_editor.IsDirty());
}

TEST_F(MenuChangeTest, WhatDidNotChangeIsNotKept) {
    m_editor.SetCaption("R.2", "Housing");
    m_editor.MoveUp("R.1");
    m_editor.MoveDown("R.3");
    m_editor.Remove("R.9");
    m_editor.AddPart("R.2", "below a part");
    EXPECT_EQ(Made(), 0u);
}

TEST_F(MenuChangeTest, ChangesOfEntriesThatAreGone) {
    const std::string before = Snapshot();
    const auto expectNothing = [&](MenuChange&& change) {
        const auto fail = [](const MenuEvent& event) { ADD_FAILURE() << event.id; };
        EXPECT_FALSE(change.Apply(nesk::testing::OpenMenuOf(m_editor), fail));
        EXPECT_FALSE(change.Revert(nesk::testing::OpenMenuOf(m_editor), fail));
    };
    expectNothing(AddChange("R.9", "x", "Menu"));
    expectNothing(RemoveChange("R.9"));
    expectNothing(RemoveChange("R"));
    expectNothing(MoveChange("R.9", MoveChange::Direction::Up));
    expectNothing(MoveChange("R", MoveChange::Direction::Down));
    expectNothing(CaptionChange("R.9", "x"));
    expectNothing(GraphicChange("R.9", "x"));
    expectNothing(PartChange("R.9", {}));
    expectNothing(PartChange("R", {}));
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(MenuChangeTest, AnIdIsNeverGivenTwice) {
    EXPECT_EQ(m_editor.AddPart("R", "first"), "R.4");
    m_editor.Undo();
    EXPECT_EQ(m_editor.AddPart("R", "second"), "R.5");
    m_editor.Undo();
    m_editor.Redo();
    EXPECT_EQ(m_editor.Find("R.4"), nullptr);
    EXPECT_EQ(m_editor.Find("R.5")->Caption(), "second") << "the same entry came back";
}

TEST_F(MenuChangeTest, TwoHundredChangesAndBack) {
    std::mt19937 random(20020131);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    std::vector<std::string> snapshots = {Snapshot()};
    const std::string startBytes = SavedBytes();
    for (int text = 0; Made() < 200; ++text) {
        const std::vector<std::string> ids = IdsOf(*m_editor.OpenMenu());
        const std::string& id = ids[below(ids.size())];
        PartFields fields;
        fields.graphic = fields.helpFile = std::to_string(text);
        fields.helpTopic = text;
        switch (below(9)) {
        case 0:
        case 1: m_editor.AddPart(id, std::to_string(text)); break;
        case 2: m_editor.AddSubmenu(id, std::to_string(text)); break;
        case 3: m_editor.MoveUp(id); break;
        case 4: m_editor.MoveDown(id); break;
        case 5: m_editor.Remove(id); break;
        case 6: m_editor.SetCaption(id, std::to_string(text)); break;
        case 7: m_editor.SetGraphic(id, std::to_string(text)); break;
        default: m_editor.SetPart(id, fields); break;
        }
        if (Made() == snapshots.size()) snapshots.push_back(Snapshot());
    }
    ASSERT_EQ(snapshots.size(), 201u);
    const std::string endBytes = SavedBytes();
    for (std::size_t i = 200; i-- > 0;) {
        ASSERT_TRUE(m_editor.Undo()) << i;
        ASSERT_EQ(Snapshot(), snapshots[i]) << i;
    }
    EXPECT_EQ(SavedBytes(), startBytes);
    for (std::size_t i = 0; i < 200; ++i) {
        ASSERT_TRUE(m_editor.Redo()) << i;
        ASSERT_EQ(Snapshot(), snapshots[i + 1]) << i;
    }
    EXPECT_EQ(SavedBytes(), endBytes);
}

TEST_F(MenuChangeTest, AMoveToAnotherParentReportsBothIds) {
    EXPECT_EQ(m_editor.MoveTo("R.1", "R.3", 1), "R.3.1");
    EXPECT_EQ(m_lastEvent.kind, MenuEvent::Kind::Moved);
    EXPECT_EQ(m_lastEvent.id, "R.3.1");
    EXPECT_EQ(m_lastEvent.formerId, "R.1");
    EXPECT_EQ(m_editor.Find("R.3.1.2")->Caption(), "b") << "ids below it change with it";
    m_editor.Undo();
    EXPECT_EQ(m_lastEvent.id, "R.1");
    EXPECT_EQ(m_lastEvent.formerId, "R.3.1");
    EXPECT_EQ(m_editor.AddPart("R.3", "new"), "R.3.2") << "the counter of the move is used up";
    m_editor.MoveTo("R.2", "R", 1);
    EXPECT_EQ(m_lastEvent.formerId, "") << "among its siblings it keeps its id";
}

TEST_F(MenuChangeTest, MovesThatAreRefusedChangeNothing) {
    const std::string before = Snapshot();
    const struct {
        const char *id, *parent;
        int message;
    } rows[] = {
        {"R", "R.3", Message::RootStays},          {"R.1", "R.1", Message::MoveIntoItself},
        {"R.1", "R.1.2", Message::MoveIntoItself}, {"R.1", "R.2", Message::MoveIntoPart},
        {"R.1.1", "R.1.2", Message::MoveIntoPart},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(m_editor.WhyNotMoveTo(row.id, row.parent)->messageId, row.message) << row.id;
        const NeskError error = nesk::testing::ErrorOf([&] { m_editor.MoveTo(row.id, row.parent, 1); });
        EXPECT_EQ(error.messageId, row.message) << row.id;
    }
    EXPECT_FALSE(m_editor.WhyNotMoveTo("R.1", "R.3"));
    EXPECT_EQ(m_editor.MoveTo("R.9", "R.3", 1), "");
    EXPECT_EQ(m_editor.MoveTo("R.1", "R.9", 1), "");
    EXPECT_EQ(m_editor.MoveTo("R.1", "R", 1), "R.1") << "where it is already";
    EXPECT_EQ(Made(), 0u);
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(MenuChangeTest, AFullSubmenuTakesNoEntryFromElsewhere) {
    MenuItemCollection& children = nesk::testing::OpenMenuOf(m_editor).Find("R.3")->SubMenus();
    for (int i = 0; i < MenuItemCollection::MaxCount; ++i)
        children.Add("x", MenuItem::PartType);
    const NeskError error = nesk::testing::ErrorOf([&] { m_editor.MoveTo("R.1", "R.3", 1); });
    EXPECT_EQ(error.messageId, Message::TooManyChildren);
    EXPECT_EQ(m_editor.Find("R.1")->ChildCount(), 3);
    EXPECT_EQ(m_editor.MoveTo("R.3.2", "R.3", 1), "R.3.2") << "its own entries can move";
}

TEST_F(MenuChangeTest, AGroupIsOneChange) {
    const std::string before = Snapshot();
    m_editor.BeginGroup({Message::ChangeMove, {"two"}});
    const std::string moved = m_editor.MoveTo("R.1", "R.3", 0);
    m_editor.SetCaption(moved, "Moved");
    EXPECT_TRUE(m_editor.IsDirty());
    m_editor.CommitGroup();
    const std::string after = Snapshot();
    ASSERT_EQ(m_editor.History().UndoNames(), (std::vector<ChangeName>{{Message::ChangeMove, {"two"}}}));
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_EQ(Snapshot(), before);
    EXPECT_TRUE(m_editor.Redo());
    EXPECT_EQ(Snapshot(), after);

    m_editor.BeginGroup({});
    m_editor.CommitGroup();
    EXPECT_EQ(Made(), 1u) << "a group without changes is no change";
    m_editor.BeginGroup({});
    m_editor.Remove("R.2");
    m_editor.SetCaption("R", "x");
    m_editor.RollBackGroup();
    EXPECT_EQ(Snapshot(), after);
    EXPECT_EQ(Made(), 1u);
}

// A compound change is made completely or not at all.
TEST_F(MenuChangeTest, ACompoundThatFailsInItsMiddleChangesNothing) {
    const std::string before = Snapshot();
    Menu& menu = nesk::testing::OpenMenuOf(m_editor);
    const auto ignore = [](const MenuEvent&) {};
    std::vector<std::unique_ptr<MenuChange>> missing;
    missing.push_back(std::make_unique<CaptionChange>("R.2", "x"));
    missing.push_back(std::make_unique<RemoveChange>("R.9"));
    CompoundChange failing(std::move(missing));
    EXPECT_FALSE(failing.Apply(menu, ignore));
    EXPECT_EQ(Snapshot(), before);
    std::vector<std::unique_ptr<MenuChange>> refused;
    refused.push_back(std::make_unique<RemoveChange>("R.2"));
    refused.push_back(std::make_unique<MoveToChange>("R.1", "R.1.1", 1));
    CompoundChange raising(std::move(refused));
    EXPECT_EQ(nesk::testing::ErrorOf([&] { raising.Apply(menu, ignore); }).messageId,
              Message::MoveIntoItself);
    EXPECT_EQ(Snapshot(), before);
}

TEST_F(MenuChangeTest, TakingBackRegistersNothing) {
    PartFields fields;
    fields.historyDir = "C:\\History";
    m_editor.SetPart("R.2", fields);
    m_editor.Remove("R.2");
    m_editor.Undo();
    m_editor.Redo();
    EXPECT_FALSE(RegEntry().TestKey("Neskworks\\Historys"));
}

// A save frees the memory of replaced texts once it is large.
TEST_F(MenuChangeTest, ASaveFreesMuchDeadMemory) {
    constexpr std::size_t Limit = 1'000'000;
    MenuEditor editor(platform::StationFiles(), Limit);
    editor.Open(Folder, Path);
    editor.Remove("R.1.2");
    const std::string used = editor.AddPart("R.1", "used");
    editor.Remove(used);
    const auto bytes = [&] { return editor.OpenMenu()->Memory()->Bytes(); };
    const std::size_t before = bytes();
    const std::string text(10'000, 'x');
    for (int i = 0; i < 20; ++i)
        editor.SetGraphic("R.1", text + std::to_string(i));
    editor.Save(Path);
    EXPECT_FALSE(editor.History().UndoNames().empty()) << "little dead memory costs no history";
    for (int i = 0; i < 200; ++i)
        editor.SetGraphic("R.1", text + std::to_string(i));
    EXPECT_GT(bytes(), before + Limit);
    std::string snapshot;
    for (const std::string& id : IdsOf(*editor.OpenMenu()))
        snapshot += Describe(*editor.Find(id));
    editor.Save(Path);
    EXPECT_LT(bytes(), before + Limit / 4);
    std::string compacted;
    for (const std::string& id : IdsOf(*editor.OpenMenu()))
        compacted += Describe(*editor.Find(id));
    EXPECT_EQ(compacted, snapshot) << "ids, texts and order";
    EXPECT_FALSE(editor.IsDirty());
    EXPECT_FALSE(editor.Undo());
    EXPECT_EQ(editor.AddPart("R.1", "next"), "R.1.5") << "no counter is given twice";
    EXPECT_EQ(editor.Find("R.1")->RootDirectory(), Folder);
}

TEST_F(MenuChangeTest, OpeningAndClosingForgetTheChanges) {
    m_editor.SetCaption("R", "x");
    m_editor.Open(Folder, Path);
    EXPECT_EQ(Made(), 0u);
    EXPECT_FALSE(m_editor.IsDirty());
    m_editor.SetCaption("R", "x");
    m_editor.Undo();
    m_editor.Close();
    EXPECT_FALSE(m_editor.Redo());
    EXPECT_EQ(m_editor.History().Bytes(), 0u);
}

TEST_F(MenuChangeTest, ChangesHaveTheNamesOfTheirEntries) {
    m_editor.SetCaption("R.2", "Case");
    m_editor.MoveUp("R.3");
    m_editor.Remove("R.1");
    EXPECT_EQ(m_editor.History().UndoNames(),
              (std::vector<ChangeName>{{Message::ChangeRemove, {"Brackets"}},
                                       {Message::ChangeMove, {"Covers"}},
                                       {Message::ChangeCaption, {"Housing"}}}));
}

TEST_F(MenuChangeTest, SeveralListenersHearEverything) {
    MenuChangeListener second;
    m_editor.AddListener(second);
    m_editor.SetCaption("R", "x");
    EXPECT_EQ(second.events, 1);
    m_editor.RemoveListener(second);
    m_editor.SetCaption("R", "y");
    EXPECT_EQ(second.events, 1);
    EXPECT_EQ(m_lastEvent.kind, MenuEvent::Kind::Edited);
}

} // namespace
} // namespace nesk
