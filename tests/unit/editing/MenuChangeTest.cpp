#include "editing/MenuChange.h"
#include "editing/MenuEditor.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/FileBytes.h"

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

// All that an entry holds, on one line.
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

class MenuChangeTest : public nesk::testing::CoreTest, public MenuEditorListener {
protected:
    MenuChangeTest() {
        std::filesystem::create_directories(TempStation::Host(Folder));
        m_editor.SetListener(this);
        m_editor.SetChangeKeeper(
            [this](std::unique_ptr<MenuChange> change) { m_changes.push_back(std::move(change)); });
        m_editor.Open(Folder, Path);
        m_editor.AddSubmenu("R", "Brackets");
        for (const char* caption : {"a", "b", "c"})
            m_editor.AddPart("R.1", caption);
        m_editor.AddPart("R", "Housing");
        m_editor.AddSubmenu("R", "Covers");
        m_changes.clear();
    }

    void OnMenuReplaced() override {}
    void OnMenuEvent(const MenuEvent& event) override { m_lastEvent = event; }
    void OnStateChanged() override {}

    // Everything of the tree: ids, texts and order.
    std::string Snapshot() {
        std::string text;
        for (const std::string& id : IdsOf(*m_editor.OpenMenu()))
            text += Describe(*m_editor.Find(id));
        return text;
    }

    // The bytes of the tree's file.
    std::string SavedBytes() {
        const std::string copy = Folder + "\\copy.cfg";
        m_editor.OpenMenu()->SaveToFile(copy);
        return nesk::testing::FileBytes(copy);
    }

    MenuEditor m_editor;
    std::vector<std::unique_ptr<MenuChange>> m_changes;
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
    };
    const std::string start = Snapshot();
    const std::string startBytes = SavedBytes();
    for (const auto& [name, operation] : operations) {
        const std::string before = Snapshot();
        operation();
        ASSERT_EQ(m_changes.size(), 1u) << name;
        const std::string after = Snapshot();
        EXPECT_NE(after, before) << name;
        const MenuEvent made = m_lastEvent;
        for (int i = 0; i < 3; ++i) {
            EXPECT_TRUE(m_editor.Undo(*m_changes[0])) << name;
            EXPECT_EQ(Snapshot(), before) << name;
            EXPECT_TRUE(m_editor.Redo(*m_changes[0])) << name;
            EXPECT_EQ(Snapshot(), after) << name;
            EXPECT_EQ(m_lastEvent.kind, made.kind) << name;
            EXPECT_EQ(m_lastEvent.id, made.id) << name;
            EXPECT_EQ(m_lastEvent.parentId, made.parentId) << name;
            EXPECT_EQ(m_lastEvent.position, made.position) << name;
        }
        EXPECT_TRUE(m_editor.Undo(*m_changes[0])) << name;
        m_changes.clear();
    }
    EXPECT_EQ(Snapshot(), start);
    EXPECT_EQ(SavedBytes(), startBytes);
}

TEST_F(MenuChangeTest, WhatTakingBackReports) {
    using Kind = MenuEvent::Kind;
    const auto expectEvent = [&](Kind kind, const char* id, const char* parentId, int position) {
        EXPECT_TRUE(m_editor.Undo(*m_changes.back())) << id;
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

TEST_F(MenuChangeTest, TakingBackMakesTheMenuDirty) {
    m_editor.SetCaption("R", "x");
    m_editor.Save(Path);
    EXPECT_TRUE(m_editor.Undo(*m_changes[0]));
    EXPECT_TRUE(m_editor.IsDirty());
    m_editor.Save(Path);
    EXPECT_TRUE(m_editor.Redo(*m_changes[0]));
    EXPECT_TRUE(m_editor.IsDirty());
}

TEST_F(MenuChangeTest, WhatDidNotChangeIsNotKept) {
    m_editor.SetCaption("R.2", "Housing");
    m_editor.MoveUp("R.1");
    m_editor.MoveDown("R.3");
    m_editor.Remove("R.9");
    m_editor.AddPart("R.2", "below a part");
    EXPECT_TRUE(m_changes.empty());
}

TEST_F(MenuChangeTest, ChangesOfEntriesThatAreGone) {
    const std::string before = Snapshot();
    const auto expectNothing = [&](MenuChange&& change) {
        EXPECT_FALSE(m_editor.Redo(change));
        EXPECT_FALSE(m_editor.Undo(change));
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

TEST_F(MenuChangeTest, AnIdIsNotGivenAwayWhileItsEntryIsTakenBack) {
    m_editor.AddPart("R", "first");
    m_editor.Undo(*m_changes[0]);
    EXPECT_EQ(m_editor.AddPart("R", "second"), "R.5");
    m_editor.Undo(*m_changes[1]);
    m_editor.Redo(*m_changes[0]);
    EXPECT_EQ(m_editor.Find("R.4")->Caption(), "first");
    EXPECT_EQ(m_editor.Find("R.5"), nullptr);
}

TEST_F(MenuChangeTest, TwoHundredChangesAndBack) {
    std::mt19937 random(20020131);
    const auto below = [&](std::size_t limit) { return static_cast<std::size_t>(random()) % limit; };
    std::vector<std::string> snapshots = {Snapshot()};
    const std::string startBytes = SavedBytes();
    for (int text = 0; m_changes.size() < 200; ++text) {
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
        if (m_changes.size() == snapshots.size()) snapshots.push_back(Snapshot());
    }
    ASSERT_EQ(snapshots.size(), 201u);
    const std::string endBytes = SavedBytes();
    for (std::size_t i = 200; i-- > 0;) {
        ASSERT_TRUE(m_editor.Undo(*m_changes[i])) << i;
        ASSERT_EQ(Snapshot(), snapshots[i]) << i;
    }
    EXPECT_EQ(SavedBytes(), startBytes);
    for (std::size_t i = 0; i < 200; ++i) {
        ASSERT_TRUE(m_editor.Redo(*m_changes[i])) << i;
        ASSERT_EQ(Snapshot(), snapshots[i + 1]) << i;
    }
    EXPECT_EQ(SavedBytes(), endBytes);
}

} // namespace
} // namespace nesk
