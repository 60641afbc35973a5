#include "editing/MenuEditor.h"
#include "base/Messages.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "unit/CoreFixture.h"
#include "unit/Errors.h"
#include "unit/FileBytes.h"
#include "unit/editing/OpenMenu.h"

#include <filesystem>
#include <utility>

namespace nesk {
namespace {

using nesk::testing::ErrorOf;
using Texts = std::vector<std::string>;

const std::string Folder = "C:\\Neskroot";
const std::string Path = Folder + "\\menu.cfg";

// Records the events: "opened", "closed", "added R.1 in R at 1", "moved R.1 in R at 2", "removed R.1",
// "edited R.1", and "dirty" or "clean" for a change of state.
class Recorder : public MenuEditorListener {
public:
    explicit Recorder(const MenuEditor& editor) : m_editor(editor) {}

    void OnMenuReplaced() override { m_heard.push_back(m_editor.IsOpen() ? "opened" : "closed"); }

    void OnMenuEvent(const MenuEvent& event) override {
        const std::string place = " in " + event.parentId + " at " + std::to_string(event.position);
        switch (event.kind) {
        case MenuEvent::Kind::Added: return m_heard.push_back("added " + event.id + place);
        case MenuEvent::Kind::Moved: return m_heard.push_back("moved " + event.id + place);
        case MenuEvent::Kind::Removed: return m_heard.push_back("removed " + event.id);
        case MenuEvent::Kind::Edited: return m_heard.push_back("edited " + event.id);
        case MenuEvent::Kind::Reordered: return m_heard.push_back("reordered " + event.id);
        case MenuEvent::Kind::None: return m_heard.push_back("none");
        }
    }

    void OnStateChanged() override { m_heard.push_back(m_editor.IsDirty() ? "dirty" : "clean"); }

    // The events since the last call.
    Texts Take() { return std::exchange(m_heard, {}); }

private:
    const MenuEditor& m_editor;
    Texts m_heard;
};

class MenuEditorTest : public nesk::testing::CoreTest {
protected:
    MenuEditorTest() : m_recorder(m_editor) {
        std::filesystem::create_directories(TempStation::Host(Folder));
        m_editor.AddListener(m_recorder);
    }

    // Opens a menu with the submenu R.1, which holds the parts R.1.1 to R.1.3, and the part R.2.
    void OpenExample() {
        m_editor.Open(Folder, Path);
        m_editor.AddSubmenu("R", "Brackets");
        for (const char* caption : {"a", "b", "c"})
            m_editor.AddPart("R.1", caption);
        m_editor.AddPart("R", "Housing");
        m_editor.Save(Path);
        m_recorder.Take();
    }

    // Runs `call` and expects that nothing happens: no event, no change.
    template <typename Call>
    void ExpectNoChange(Call call) {
        call();
        EXPECT_EQ(m_recorder.Take(), Texts{});
        EXPECT_FALSE(m_editor.IsDirty());
    }

    MenuEditor m_editor;
    Recorder m_recorder;
};

TEST_F(MenuEditorTest, NothingOpen) {
    EXPECT_FALSE(m_editor.IsOpen());
    EXPECT_FALSE(m_editor.IsIncomplete());
    EXPECT_EQ(m_editor.Path(), "");
    EXPECT_EQ(m_editor.OpenMenu(), nullptr);
    EXPECT_EQ(m_editor.Find("R"), nullptr);
    EXPECT_EQ(m_editor.CommandsFor("R"), MenuCommands{});
    ExpectNoChange([&] {
        EXPECT_EQ(m_editor.AddPart("R", "x"), "");
        EXPECT_EQ(m_editor.AddSubmenu("R", "x"), "");
        EXPECT_FALSE(m_editor.MoveUp("R.1"));
        EXPECT_FALSE(m_editor.MoveDown("R.1"));
        EXPECT_FALSE(m_editor.Remove("R.1"));
        EXPECT_FALSE(m_editor.SetCaption("R", "x"));
        EXPECT_FALSE(m_editor.SetGraphic("R", "x"));
        EXPECT_FALSE(m_editor.SetPart("R.1", {}));
        EXPECT_EQ(m_editor.MoveTo("R.1", "R", 0), "");
        EXPECT_FALSE(m_editor.Redo());
        EXPECT_FALSE(m_editor.Undo());
        m_editor.Save(Path);
    });
    EXPECT_EQ(nesk::testing::FilesIn(Folder), "");
}

TEST_F(MenuEditorTest, OpeningAndClosing) {
    station.Write(Path, "BLOCK MENU\nCAPTION=Root\nBLOCK SUBMENU\nCAPTION=A\nEND\nEND\n");
    EXPECT_EQ(m_editor.Open(Folder, Path), std::nullopt);
    EXPECT_EQ(m_recorder.Take(), Texts{"opened"});
    EXPECT_EQ(m_editor.Path(), Path);
    EXPECT_EQ(m_editor.Find("R"), m_editor.OpenMenu());
    EXPECT_EQ(m_editor.Find("R.1")->Caption(), "A");
    m_editor.SetCaption("R.1", "changed");
    EXPECT_TRUE(m_editor.IsDirty());
    m_recorder.Take();
    m_editor.Close();
    EXPECT_EQ(m_recorder.Take(), Texts{"closed"});
    EXPECT_FALSE(m_editor.IsOpen());
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(m_editor.Path(), "");
    EXPECT_EQ(m_editor.Find("R"), nullptr);
    m_editor.Open(Folder, Path);
    EXPECT_EQ(m_editor.Find("R.1")->Caption(), "A") << "what was not saved is gone";
}

TEST_F(MenuEditorTest, OpeningTakesThePlaceOfTheMenuBefore) {
    OpenExample();
    m_editor.SetCaption("R", "changed");
    m_editor.Open("D:\\", "D:\\none.cfg");
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(m_editor.Path(), "");
    EXPECT_EQ(m_editor.OpenMenu()->Caption(), "Main Menu");
    EXPECT_EQ(m_editor.OpenMenu()->ChildCount(), 0);
    EXPECT_EQ(m_editor.OpenMenu()->RootDirectory(), "D:\\");
}

TEST_F(MenuEditorTest, AFileThatCannotBeReadToItsEnd) {
    station.Write(Path, "BLOCK MENU\nBLOCK SUBMENU\nCAPTION=A\nEND\nerror\nEND\n");
    const std::optional<NeskError> error = m_editor.Open(Folder, Path);
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->messageId, Message::BlockSyntax);
    EXPECT_EQ(error->file, Path);
    EXPECT_EQ(error->line, 5);
    EXPECT_EQ(m_recorder.Take(), Texts{"opened"});
    EXPECT_TRUE(m_editor.IsOpen());
    EXPECT_TRUE(m_editor.IsIncomplete());
    EXPECT_FALSE(m_editor.IsDirty());
    EXPECT_EQ(m_editor.Path(), Path);
    EXPECT_EQ(m_editor.Find("R.1")->Caption(), "A");
    m_editor.Close();
    EXPECT_FALSE(m_editor.IsIncomplete());
}

TEST_F(MenuEditorTest, Adding) {
    m_editor.Open(Folder, Path);
    m_recorder.Take();
    EXPECT_EQ(m_editor.AddSubmenu("R", "Brackets"), "R.1");
    EXPECT_EQ(m_editor.AddPart("R", "Housing"), "R.2");
    EXPECT_EQ(m_editor.AddPart("R.1", "Ärger"), "R.1.1");
    EXPECT_EQ(m_recorder.Take(), (Texts{"added R.1 in R at 1", "dirty", "added R.2 in R at 2", "dirty",
                                        "added R.1.1 in R.1 at 1", "dirty"}));
    const auto typeOf = [&](const char* id) {
        return dynamic_cast<const MenuItem&>(*m_editor.Find(id)).MenuType();
    };
    EXPECT_EQ(typeOf("R.1"), "Menu");
    EXPECT_EQ(typeOf("R.2"), "Part Program");
    EXPECT_EQ(m_editor.Find("R.1.1")->Caption(), "Ärger");
}

TEST_F(MenuEditorTest, APartIsAddedWithItsFields) {
    OpenExample();
    PartFields fields;
    fields.programId = "@D:\\p\\partinfo.ini@";
    fields.historyTitle = "Housing";
    EXPECT_EQ(m_editor.AddPart("R.1", "New", fields), "R.1.4");
    EXPECT_EQ(m_recorder.Take(), (Texts{"added R.1.4 in R.1 at 4", "dirty"}));
    const auto& part = dynamic_cast<const MenuItem&>(*m_editor.Find("R.1.4"));
    EXPECT_EQ(PartFieldsOf(part), fields);
    EXPECT_EQ(part.Caption(), "New");
    EXPECT_EQ(part.MenuType(), "Part Program");
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_EQ(m_editor.Find("R.1.4"), nullptr);
    EXPECT_TRUE(m_editor.Redo());
    EXPECT_EQ(PartFieldsOf(dynamic_cast<const MenuItem&>(*m_editor.Find("R.1.4"))), fields);
    m_editor.Undo();
    m_recorder.Take();
    fields.graphic = "C:\\日.bmp";
    ExpectNoChange([&] {
        EXPECT_THROW(m_editor.AddPart("R.1", "New", fields), NeskError);
        EXPECT_THROW(m_editor.AddPart("R.1", "日", {}), NeskError);
    });
}

TEST_F(MenuEditorTest, NothingIsAddedBelowAPartOrNowhere) {
    OpenExample();
    ExpectNoChange([&] {
        for (const char* id : {"R.2", "R.1.1", "R.9", "", "X"}) {
            EXPECT_EQ(m_editor.AddPart(id, "x", {}), "") << id;
            EXPECT_EQ(m_editor.AddPart(id, "x"), "") << id;
            EXPECT_EQ(m_editor.AddSubmenu(id, "x"), "") << id;
        }
    });
}

TEST_F(MenuEditorTest, AFullSubmenu) {
    OpenExample();
    for (int i = 2; i < 32767; ++i)
        nesk::testing::OpenMenuOf(m_editor).SubMenus().Add("x", "Menu");
    ExpectNoChange([&] {
        const NeskError error = ErrorOf([&] { m_editor.AddPart("R", "x"); });
        EXPECT_EQ(error.number, RuntimeError::Overflow);
        EXPECT_EQ(error.messageId, Message::TooManyChildren);
    });
}

TEST_F(MenuEditorTest, Moving) {
    OpenExample();
    EXPECT_TRUE(m_editor.MoveDown("R.1.1"));
    EXPECT_TRUE(m_editor.MoveDown("R.1.1"));
    EXPECT_TRUE(m_editor.MoveUp("R.1.3"));
    EXPECT_EQ(m_recorder.Take(), (Texts{"moved R.1.1 in R.1 at 2", "dirty", "moved R.1.1 in R.1 at 3",
                                        "dirty", "moved R.1.3 in R.1 at 1", "dirty"}));
    m_editor.Save(Path);
    m_recorder.Take();
    ExpectNoChange([&] {
        EXPECT_FALSE(m_editor.MoveUp("R.1.3"));
        EXPECT_FALSE(m_editor.MoveDown("R.1.1"));
        for (const char* id : {"R", "R.9", "R.1.9", ""}) {
            EXPECT_FALSE(m_editor.MoveUp(id)) << id;
            EXPECT_FALSE(m_editor.MoveDown(id)) << id;
        }
    });
}

TEST_F(MenuEditorTest, Removing) {
    OpenExample();
    ExpectNoChange([&] {
        for (const char* id : {"R", "R.9", ""})
            EXPECT_FALSE(m_editor.Remove(id)) << id;
    });
    EXPECT_TRUE(m_editor.Remove("R.1"));
    EXPECT_EQ(m_recorder.Take(), (Texts{"removed R.1", "dirty"}));
    EXPECT_EQ(m_editor.Find("R.1"), nullptr);
    EXPECT_EQ(m_editor.Find("R.1.1"), nullptr);
    EXPECT_FALSE(m_editor.Remove("R.1"));
    EXPECT_EQ(m_editor.OpenMenu()->ChildCount(), 1);
}

TEST_F(MenuEditorTest, Editing) {
    OpenExample();
    PartFields fields;
    fields.graphic = "g.bmp";
    fields.preview = "p.bmp";
    fields.programId = "@C:\\P\\partinfo.ini@";
    fields.helpFile = "h.chm";
    fields.helpTopic = 7;
    fields.historyDir = "C:\\H";
    fields.historyTitle = "t";
    EXPECT_TRUE(m_editor.SetCaption("R", "Root"));
    EXPECT_TRUE(m_editor.SetCaption("R.1.1", ""));
    EXPECT_TRUE(m_editor.SetGraphic("R.1", "x.bmp"));
    EXPECT_TRUE(m_editor.SetPart("R.2", fields));
    EXPECT_EQ(m_recorder.Take(), (Texts{"edited R", "dirty", "edited R.1.1", "dirty", "edited R.1", "dirty",
                                        "edited R.2", "dirty"}));
    EXPECT_EQ(m_editor.Find("R")->Caption(), "Root");
    EXPECT_EQ(m_editor.Find("R.1.1")->Caption(), "");
    EXPECT_EQ(m_editor.Find("R.1")->Graphic(), "x.bmp");
    const auto& part = dynamic_cast<const MenuItem&>(*m_editor.Find("R.2"));
    EXPECT_EQ(PartFieldsOf(part), fields);
    EXPECT_EQ(part.Caption(), "Housing");
    EXPECT_EQ(part.MenuType(), "Part Program");
    m_editor.Save(Path);
    m_recorder.Take();
    ExpectNoChange([&] {
        EXPECT_TRUE(m_editor.SetCaption("R", "Root")) << "the same value is no change, and no failure";
        for (const char* id : {"R.9", "", "R.1.1.1"}) {
            EXPECT_FALSE(m_editor.SetCaption(id, "x")) << id;
            EXPECT_FALSE(m_editor.SetGraphic(id, "x")) << id;
            EXPECT_FALSE(m_editor.SetPart(id, fields)) << id;
        }
        EXPECT_FALSE(m_editor.SetPart("R", fields));
    });
    EXPECT_TRUE(m_editor.SetGraphic("R.1", "x.bmp"));
    EXPECT_TRUE(m_editor.IsDirty()) << "a picture dialog was confirmed, with whatever picture";
    m_editor.Save(Path);
    EXPECT_TRUE(m_editor.SetPart("R.2", fields));
    EXPECT_TRUE(m_editor.IsDirty());
}

TEST_F(MenuEditorTest, TextsThatCannotBeStoredAreRefused) {
    using namespace std::string_literals;
    OpenExample();
    const struct {
        std::string text;
        int messageId;
        Texts arguments;
    } table[] = {
        {"two\nlines", Message::LineBreakInText, {}},
        {"two\rlines", Message::LineBreakInText, {}},
        {"\r\n", Message::LineBreakInText, {}},
        {"a\0b"s, Message::LineBreakInText, {}},
        {"Teil 日本", Message::NotEncodable, {"Teil 日本", "日", "1252"}},
        {"Ω", Message::NotEncodable, {"Ω", "Ω", "1252"}},
    };
    for (const auto& row : table) {
        PartFields fields;
        const auto expectRefusal = [&](const auto& call) {
            ExpectNoChange([&] {
                const NeskError error = ErrorOf(call);
                EXPECT_EQ(error.number, 5000) << row.text;
                EXPECT_EQ(error.messageId, row.messageId) << row.text;
                EXPECT_EQ(error.arguments, row.arguments) << row.text;
            });
        };
        expectRefusal([&] { m_editor.AddPart("R", row.text); });
        expectRefusal([&] { m_editor.AddSubmenu("R", row.text); });
        expectRefusal([&] { m_editor.SetCaption("R.1", row.text); });
        expectRefusal([&] { m_editor.SetGraphic("R.1", row.text); });
        for (std::string PartFields::*field :
             {&PartFields::graphic, &PartFields::preview, &PartFields::programId, &PartFields::helpFile,
              &PartFields::historyDir, &PartFields::historyTitle}) {
            fields = {};
            fields.*field = row.text;
            expectRefusal([&] { m_editor.SetPart("R.2", fields); });
        }
    }
    EXPECT_EQ(m_editor.AddPart("R", "€"), "R.3") << "what was refused used no id up";
}

TEST_F(MenuEditorTest, WhatAFileHeldIsKeptWhileOtherFieldsChange) {
    OpenExample();
    const std::string strange("a\0b", 3);
    auto* part = dynamic_cast<MenuItem*>(nesk::testing::OpenMenuOf(m_editor).Find("R.2"));
    ASSERT_NE(part, nullptr);
    part->SetProgramID(strange);
    part->SetGraphic(strange);
    PartFields fields = PartFieldsOf(*part);
    fields.historyTitle = "Angles";
    EXPECT_TRUE(m_editor.SetPart("R.2", fields));
    EXPECT_EQ(part->HistoryTitle(), "Angles");
    EXPECT_TRUE(part->ProgramID() == strange);
    EXPECT_TRUE(m_editor.SetGraphic("R.2", strange));
    fields.programId = strange + "c";
    EXPECT_EQ(ErrorOf([&] { m_editor.SetPart("R.2", fields); }).messageId, Message::LineBreakInText)
        << "one that changes is checked";
}

TEST_F(MenuEditorTest, Commands) {
    OpenExample();
    const struct {
        const char* id;
        // add part, add submenu, up, down, out, in, edit, remove, rename, copy, paste after, paste inside,
        // sort, add parts
        MenuCommands commands;
    } table[] = {
        {"R", {true, true, false, false, false, false, false, false, true, false, true, true, true, true}},
        {"R.1", {true, true, false, true, false, false, true, true, true, true, true, true, true, true}},
        {"R.2", {false, false, true, false, false, true, true, true, true, true, true, false, true, true}},
        {"R.1.1", {false, false, false, true, true, false, true, true, true, true, true, false, true, true}},
        {"R.1.2", {false, false, true, true, true, false, true, true, true, true, true, false, true, true}},
        {"R.1.3", {false, false, true, false, true, false, true, true, true, true, true, false, true, true}},
        {"", {}},
        {"R.9", {}},
    };
    for (const auto& row : table)
        EXPECT_EQ(m_editor.CommandsFor(row.id), row.commands) << row.id;
    m_editor.MoveDown("R.1");
    EXPECT_TRUE(m_editor.CommandsFor("R.1").moveUp);
    EXPECT_FALSE(m_editor.CommandsFor("R.1").moveDown);
    m_editor.Remove("R.2");
    EXPECT_FALSE(m_editor.CommandsFor("R.1").moveUp) << "an only child moves nowhere";
}

TEST_F(MenuEditorTest, WithoutAListener) {
    m_editor.RemoveListener(m_recorder);
    m_editor.Open(Folder, Path);
    EXPECT_EQ(m_editor.AddPart("R", "x"), "R.1");
    m_editor.Save(Path);
    EXPECT_FALSE(m_editor.IsDirty());
    m_editor.Close();
    EXPECT_EQ(m_recorder.Take(), Texts{});
}

TEST_F(MenuEditorTest, MovingOutAndInChangesTheLevel) {
    OpenExample();
    m_recorder.Take();
    EXPECT_EQ(m_editor.MoveOut("R"), "");
    EXPECT_EQ(m_editor.MoveOut("R.1"), "") << "the top level";
    EXPECT_EQ(m_editor.MoveOut("R.9"), "");
    EXPECT_EQ(m_editor.MoveIn("R"), "");
    EXPECT_EQ(m_editor.MoveIn("R.1"), "") << "the first";
    EXPECT_EQ(m_editor.MoveIn("R.1.2"), "") << "after a part";
    EXPECT_EQ(m_recorder.Take(), Texts{}) << "nothing happened";

    const std::string out = m_editor.MoveOut("R.1.2");
    EXPECT_EQ(m_editor.Find("R")->Children()->PositionOf(static_cast<const MenuItem&>(*m_editor.Find(out))),
              2)
        << "directly after its submenu";
    EXPECT_EQ(m_editor.Find("R.1")->ChildCount(), 2);
    const std::string in = m_editor.MoveIn(out);
    EXPECT_TRUE(in.starts_with("R.1."));
    EXPECT_EQ(m_editor.Find("R.1")->Children()->PositionOf(static_cast<const MenuItem&>(*m_editor.Find(in))),
              3)
        << "at the end";
    EXPECT_EQ(
        m_editor.History().UndoNames(2),
        (std::vector<ChangeName>(2, {Message::ChangeMove, {std::string(m_editor.Find(in)->Caption())}})));
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_TRUE(m_editor.Undo());
    EXPECT_NE(m_editor.Find("R.1.2"), nullptr);
}

} // namespace
} // namespace nesk
