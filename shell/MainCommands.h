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
    Versions,
    Report,
    FileClose,
    FileExit,
    Undo,
    Redo,
    UndoHistory,
    Cut,
    Copy,
    Paste,
    PasteInside,
    Duplicate,
    SelectAll,
    Find,
    FindNext,
    FindPrevious,
    ShowMatches,
    Replace,
    ChangeFolder,
    AddPart,
    AddSubmenu,
    AddParts,
    MoveUp,
    MoveDown,
    MoveOut,
    MoveIn,
    MoveTo,
    SortSubmenusFirst,
    SortMixed,
    Edit,
    Rename,
    Remove,
    ViewPreview,
    ViewProblems,
    ViewToolBar,
    ViewStatusBar,
    ExpandBelow,
    CollapseAll,
    SettingsAccess,
    SettingsOptions,
    SettingsLanguage,
    HelpContents,
    HelpWindow,
    HelpAbout,
    Count
};

constexpr std::size_t MainCommandCount = static_cast<std::size_t>(MainCommand::Count);

/// The implementation of the commands. A function is called only while its command is enabled.
class MainCommandTarget {
public:
    virtual ~MainCommandTarget() = default;

    virtual void FileOpen() = 0;
    virtual void FileSave() = 0;
    virtual void FileSaveAs() = 0;
    virtual void Versions() = 0;
    virtual void Report() = 0;
    virtual void FileClose() = 0;
    virtual void FileExit() = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual void UndoHistory() = 0;
    virtual void Cut() = 0;
    virtual void Copy() = 0;
    virtual void Paste() = 0;
    virtual void PasteInside() = 0;
    virtual void Duplicate() = 0;
    virtual void SelectAll() = 0;
    virtual void Find() = 0;
    virtual void FindNext() = 0;
    virtual void FindPrevious() = 0;
    virtual void ShowMatches() = 0;
    virtual void Replace() = 0;
    virtual void ChangeFolder() = 0;
    virtual void AddPart() = 0;
    virtual void AddSubmenu() = 0;
    virtual void AddParts() = 0;
    virtual void MoveUp() = 0;
    virtual void MoveDown() = 0;
    virtual void MoveOut() = 0;
    virtual void MoveIn() = 0;
    virtual void MoveTo() = 0;
    virtual void SortSubmenusFirst() = 0;
    virtual void SortMixed() = 0;
    virtual void EditSelected() = 0;
    virtual void Rename() = 0;
    virtual void Remove() = 0;
    virtual void ViewPreview() = 0;
    virtual void ViewProblems() = 0;
    virtual void ViewToolBar() = 0;
    virtual void ViewStatusBar() = 0;
    virtual void ExpandBelow() = 0;
    virtual void CollapseAll() = 0;
    virtual void SettingsAccess() = 0;
    virtual void SettingsOptions() = 0;
    virtual void SettingsLanguage() = 0;
    virtual void HelpContents() = 0;
    virtual void HelpWindow() = 0;
    virtual void HelpAbout() = 0;
};

/// The state that determines which commands are enabled.
struct MainCommandState {
    bool isOpen = false;         ///< a menu is open
    bool menuRootExists = false; ///< the menu root folder of the settings exists
    bool canUndo = false;
    bool canRedo = false;
    MenuCommands entry; ///< the commands that are possible for the selected entries
};

/// The part of the tree's context menu in which a command appears. It has two submenus, so that it fits a
/// small screen: for the commands that move and sort, and for those that find and replace texts.
enum class ContextPlace { None, Menu, MoveSubmenu, FindSubmenu };

/// Where a command appears outside the menu bar, and with which picture.
struct CommandPlaces {
    const char* icon = nullptr; ///< key of its picture and identifier (UiCommandIcons.h); null for none
    bool inToolBar = false;     ///< it has a button in the tool bar; needs an icon
    ContextPlace inContextMenu = ContextPlace::None;
    bool isCheck = false; ///< its menu item has a check mark
};

/// The description of a command: one row of the table for the menu bar, the tool bar, the context menu and
/// the accelerators.
struct MainCommandInfo {
    MainCommand command = MainCommand::Count;
    const char* name = "";        ///< control name, for example "mnuFileOpen"
    int menu = 0;                 ///< message number of the menu that contains it
    int text = 0;                 ///< message number of its caption, with access key and accelerator
    bool separatorBefore = false; ///< true when a separator precedes it in the menu
    bool (*isEnabled)(const MainCommandState& state) = nullptr;
    void (MainCommandTarget::*run)() = nullptr;
    bool editsText = false;         ///< its key belongs to the text while a caption is being edited
    const char* otherKey = nullptr; ///< a second key, for example "Ctrl+Shift+Z"
    CommandPlaces places{};
};

/// All commands in the order in which they are shown, menu by menu.
std::span<const MainCommandInfo> MainCommandTable();

/// The row of a command.
const MainCommandInfo& InfoOf(MainCommand command);

/// The set of enabled commands.
using MainCommandSet = std::bitset<MainCommandCount>;

/// True when `set` contains the command.
bool Contains(const MainCommandSet& set, MainCommand command);

/// The commands that are enabled in a state of the main window.
/// @param editor          the open menu
/// @param selected        ids of the selected entries, as Uppermost returns them
/// @param menuRootExists  true when the menu root folder of the settings exists
MainCommandSet EnabledCommands(const MenuEditor& editor, const EntryIds& selected, bool menuRootExists);

/// Does the same as EnabledCommands, but checks the root folder on the disk only when needed.
/// @param menuRootExists  called only while no menu is open, because otherwise no command depends on the
///                        folder
MainCommandSet CurrentCommands(const MenuEditor& editor, const EntryIds& selected,
                               const std::function<bool()>& menuRootExists);

} // namespace nesk
