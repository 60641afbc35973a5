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

/// What a command does. Each is called only while its command is enabled.
class MainCommandTarget {
public:
    virtual ~MainCommandTarget() = default;

    virtual void FileOpen() = 0;
    virtual void FileSave() = 0;
    virtual void FileSaveAs() = 0;
    virtual void FileClose() = 0;
    virtual void FileExit() = 0;
    virtual void AddPart() = 0;
    virtual void AddSubmenu() = 0;
    virtual void MoveUp() = 0;
    virtual void MoveDown() = 0;
    virtual void EditSelected() = 0;
    virtual void Rename() = 0;
    virtual void Remove() = 0;
    virtual void SettingsAccess() = 0;
    virtual void SettingsOptions() = 0;
    virtual void HelpContents() = 0;
    virtual void HelpWindow() = 0;
    virtual void HelpAbout() = 0;
};

/// What decides which commands are enabled.
struct MainCommandState {
    bool isOpen = false;         ///< a menu is open
    bool menuRootExists = false; ///< the menu root folder of the settings exists
    MenuCommands entry;          ///< what makes sense for the selected entry
};

/// All there is to a command: one row of the table that feeds menu bar, context menu and accelerators.
struct MainCommandInfo {
    MainCommand command;
    const char* name;     ///< control name, as "mnuFileOpen"
    int menu;             ///< message number of the menu it stands in
    int text;             ///< message number of its caption, with access key and accelerator
    bool separatorBefore; ///< a line divides it from the command above
    bool (*isEnabled)(const MainCommandState& state);
    void (MainCommandTarget::*run)();
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
