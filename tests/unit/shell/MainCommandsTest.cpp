#include "shell/MainCommands.h"
#include "base/Messages.h"
#include "unit/CoreFixture.h"

#include <set>

namespace nesk {
namespace {

using enum MainCommand;

const std::set<MainCommand> AlwaysEnabled = {FileExit,       ViewToolBar,     ViewStatusBar,
                                             SettingsAccess, SettingsOptions, SettingsLanguage,
                                             HelpContents,   HelpWindow,      HelpAbout};

// They have a test of their own.
const std::set<MainCommand> ViewCommands = {ExpandBelow, CollapseAll};

class MainCommandsTest : public nesk::testing::CoreTest {
protected:
    // Opens a menu with the submenus R.1, which contains the parts R.1.1 to R.1.3, and R.2, and with the part
    // R.3.
    void OpenExample() {
        m_editor.Open("C:\\", "C:\\none.cfg");
        m_editor.AddSubmenu("R", "first");
        for (int i = 0; i < 3; ++i)
            m_editor.AddPart("R.1", "part");
        m_editor.AddSubmenu("R", "middle");
        m_editor.AddPart("R", "last");
    }

    // The names of the enabled commands, without those that are always enabled and those of the View menu.
    std::string Enabled(const std::string& id, bool menuRootExists = true) const {
        std::set<MainCommand> without = AlwaysEnabled;
        without.insert(ViewCommands.begin(), ViewCommands.end());
        return Names(EnabledCommands(m_editor, EntryIds{id}, menuRootExists), without);
    }

    static std::string Names(const MainCommandSet& set, const std::set<MainCommand>& without) {
        std::string names;
        for (const MainCommandInfo& info : MainCommandTable())
            if (Contains(set, info.command) && !without.contains(info.command))
                names.append(names.empty() ? "" : " ").append(info.name);
        return names;
    }

    // The names of the given commands.
    static std::string NamesOf(const std::vector<MainCommand>& commands) {
        MainCommandSet set;
        for (const MainCommand command : commands)
            set.set(static_cast<std::size_t>(command));
        return Names(set, {});
    }

    MenuEditor m_editor;
};

TEST_F(MainCommandsTest, EveryCommandHasOneRow) {
    const auto table = MainCommandTable();
    ASSERT_EQ(table.size(), MainCommandCount);
    std::set<MainCommand> commands;
    std::set<std::string> names;
    std::set<int> texts;
    for (const MainCommandInfo& info : table) {
        commands.insert(info.command);
        names.insert(info.name);
        texts.insert(info.text);
    }
    EXPECT_EQ(commands.size(), MainCommandCount);
    EXPECT_EQ(names.size(), MainCommandCount);
    EXPECT_EQ(texts.size(), MainCommandCount);
    EXPECT_FALSE(names.contains(""));
    for (const char* name :
         {"mnuFileOpen", "mnuFileSave", "mnuFileClose", "mnuFileExit", "mnuMenuAddPart", "mnuMenuAddSubmenu",
          "mnuMenuUp", "mnuMenuDown", "mnuMenuEdit", "mnuMenuRemove", "mnuSettingsAccess",
          "mnuSettingsOptions", "mnuHelpContents", "mnuFileSaveAs", "mnuHelpAbout"})
        EXPECT_TRUE(names.contains(name)) << name;
}

TEST_F(MainCommandsTest, AButtonOfTheToolBarHasAPicture) {
    std::set<std::string> icons;
    int count = 0;
    for (const MainCommandInfo& info : MainCommandTable()) {
        EXPECT_TRUE(!info.places.inToolBar || info.places.icon != nullptr) << info.name;
        if (info.places.icon == nullptr) continue;
        icons.insert(info.places.icon);
        ++count;
    }
    EXPECT_EQ(icons.size(), static_cast<std::size_t>(count)) << "one picture for one command";
}

TEST_F(MainCommandsTest, TheContextMenuHasEveryCommandForAnEntry) {
    for (const MainCommandInfo& info : MainCommandTable()) {
        const bool isEdit = info.menu == Message::MenuMenu || info.menu == Message::MenuEdit;
        const bool isForEntry =
            isEdit || info.command == MainCommand::ExpandBelow || info.command == MainCommand::CollapseAll;
        EXPECT_EQ(info.places.inContextMenu != ContextPlace::None, isForEntry) << info.name;
    }
}

TEST_F(MainCommandsTest, TheCommandsOfAMenuStandTogether) {
    std::set<int> menus;
    int before = 0;
    for (const MainCommandInfo& info : MainCommandTable()) {
        if (info.menu != before) {
            EXPECT_TRUE(menus.insert(info.menu).second) << info.name;
            EXPECT_FALSE(info.separatorBefore) << info.name << " begins its menu";
        }
        before = info.menu;
    }
    EXPECT_EQ(menus.size(), 6u);
}

TEST_F(MainCommandsTest, WithoutAFile) {
    for (const char* id : {"", "R", "R.1"}) {
        EXPECT_EQ(Enabled(id, true), NamesOf({FileOpen})) << id;
        EXPECT_EQ(Enabled(id, false), "") << id;
    }
}

TEST_F(MainCommandsTest, WhatIsEnabledForTheSelectedEntry) {
    OpenExample();
    const struct {
        const char* id;
        std::initializer_list<MainCommand> enabled; // besides those that are enabled in every open menu
    } table[] = {
        {"", {}},
        {"R.9", {}},
        {"R", {AddPart, AddSubmenu, AddParts, Rename, Paste, PasteInside, SortSubmenusFirst, SortMixed}},
        {"R.1",
         {AddPart, AddSubmenu, AddParts, MoveDown, Edit, Rename, Remove, Cut, Copy, Duplicate, MoveTo, Paste,
          PasteInside, SortSubmenusFirst, SortMixed}},
        {"R.2",
         {AddPart, AddSubmenu, AddParts, MoveUp, MoveDown, MoveIn, Edit, Rename, Remove, Cut, Copy, Duplicate,
          MoveTo, Paste, PasteInside}},
        {"R.3",
         {AddParts, MoveUp, MoveIn, Edit, Rename, Remove, Cut, Copy, Duplicate, MoveTo, Paste,
          SortSubmenusFirst, SortMixed}},
        {"R.1.1",
         {AddParts, MoveOut, MoveDown, Edit, Rename, Remove, Cut, Copy, Duplicate, MoveTo, Paste,
          SortSubmenusFirst, SortMixed}},
        {"R.1.2",
         {AddParts, MoveOut, MoveUp, MoveDown, Edit, Rename, Remove, Cut, Copy, Duplicate, MoveTo, Paste,
          SortSubmenusFirst, SortMixed}},
        {"R.1.3",
         {AddParts, MoveOut, MoveUp, Edit, Rename, Remove, Cut, Copy, Duplicate, MoveTo, Paste,
          SortSubmenusFirst, SortMixed}},
    };
    for (const auto& row : table) {
        std::vector<MainCommand> commands{FileSave,  FileSaveAs,   Versions,     Report,
                                          FileClose, Undo,         UndoHistory,  SelectAll,
                                          Find,      FindNext,     FindPrevious, ShowMatches,
                                          Replace,   ChangeFolder, ViewPreview,  ViewProblems};
        commands.insert(commands.end(), row.enabled);
        EXPECT_EQ(Enabled(row.id), NamesOf(commands)) << row.id;
        EXPECT_EQ(Enabled(row.id, false), NamesOf(commands))
            << row.id << ": the menu root matters to Open alone";
    }
}

TEST_F(MainCommandsTest, ASubmenuIsExpandedAndAnOpenMenuCollapsed) {
    const auto enabled = [&](const char* id) {
        MainCommandSet set = EnabledCommands(m_editor, EntryIds{id}, true);
        MainCommandSet views;
        for (const MainCommand command : ViewCommands)
            views.set(static_cast<std::size_t>(command));
        return Names(set & views, {});
    };
    EXPECT_EQ(enabled(""), "");
    OpenExample();
    EXPECT_EQ(enabled("R"), NamesOf({ExpandBelow, CollapseAll}));
    EXPECT_EQ(enabled("R.1"), NamesOf({ExpandBelow, CollapseAll}));
    EXPECT_EQ(enabled("R.3"), NamesOf({CollapseAll})) << "a part";
    EXPECT_EQ(enabled(""), NamesOf({CollapseAll}));
}

TEST_F(MainCommandsTest, OnlyBarsAndPanesHaveACheckMark) {
    const std::set<MainCommand> shown{ViewPreview, ViewProblems, ViewToolBar, ViewStatusBar};
    for (const MainCommandInfo& info : MainCommandTable())
        EXPECT_EQ(info.places.isCheck, shown.contains(info.command)) << info.name;
}

TEST_F(MainCommandsTest, WhatIsAlwaysEnabled) {
    for (const bool open : {false, true}) {
        if (open) OpenExample();
        const MainCommandSet set = EnabledCommands(m_editor, {}, false);
        for (const MainCommandInfo& info : MainCommandTable()) {
            if (!AlwaysEnabled.contains(info.command)) continue;
            EXPECT_TRUE(Contains(set, info.command)) << info.name;
        }
    }
}

// The folder may be on a slow drive, and every selection in the tree queries the commands.
TEST_F(MainCommandsTest, TheRootFolderIsLookedUpOnlyWhileNothingIsOpen) {
    int lookUps = 0;
    const auto exists = [&] {
        ++lookUps;
        return true;
    };
    EXPECT_TRUE(Contains(CurrentCommands(m_editor, {}, exists), FileOpen));
    EXPECT_EQ(lookUps, 1);
    EXPECT_FALSE(Contains(CurrentCommands(m_editor, {}, [] { return false; }), FileOpen));
    OpenExample();
    for (const char* id : {"R", "R.1", "R.3", ""})
        EXPECT_FALSE(Contains(CurrentCommands(m_editor, {id}, exists), FileOpen));
    EXPECT_EQ(lookUps, 1);
}

} // namespace
} // namespace nesk
