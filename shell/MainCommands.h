#pragma once

#include "editing/MenuEditor.h"

#include <bitset>
#include <cstddef>
#include <functional>
#include <span>
#include <string>

namespace nesk {

/// The commands of the main window.
enum class MainCommand {
    FileOpen,
    FileSave,
    FileSaveAs,
    FileClose,
    FileExit,
    AddPart,
    AddSubmenu,
    MoveUp,
    MoveDown,
    Edit,
    Rename,
    Remove,
    SettingsAccess,
    SettingsOptions,
    HelpContents,
    HelpWindow,
    HelpAbout,
    Count
};

constexpr std::size_t MainCommandCount = static_cast<std::size_t>(MainCommand::Count);

/// One row of the table that feeds menu bar, context menu and accelerators.
struct MainCommandInfo {
    MainCommand command;
    const char* name;     ///< control name, as "mnuFileOpen"
    int menu;             ///< message number of the menu it stands in
    int text;             ///< message number of its caption, with access key and accelerator
    bool separatorBefore; ///< a line divides it from the command above
};

/// All commands, menu by menu, in the order in which they are shown.
std::span<const MainCommandInfo> MainCommandTable();

/// The row of a command.
const MainCommandInfo& InfoOf(MainCommand command);

/// Which commands are enabled.
using MainCommandSet = std::bitset<MainCommandCount>;

/// True when `set` holds the command.
bool Contains(const MainCommandSet& set, MainCommand command);

/// The commands that can be given in a state of the main window.
/// @param editor          the open menu
/// @param selectedId      id of the selected entry; "" for none
/// @param menuRootExists  the menu root folder of the settings exists
MainCommandSet EnabledCommands(const MenuEditor& editor, const std::string& selectedId, bool menuRootExists);

/// The same, where the root folder costs a look at the disk.
/// @param menuRootExists  asked only while nothing is open: no command depends on the folder otherwise
MainCommandSet CurrentCommands(const MenuEditor& editor, const std::string& selectedId,
                               const std::function<bool()>& menuRootExists);

} // namespace nesk
