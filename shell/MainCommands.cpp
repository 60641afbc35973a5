#include "shell/MainCommands.h"

#include "base/Messages.h"

#include <algorithm>
#include <array>

namespace nesk {

namespace {

using State = MainCommandState;

bool Always(const State&) {
    return true;
}

bool IsOpen(const State& state) {
    return state.isOpen;
}

// True when the command is possible for the selected entry.
template <bool MenuCommands::*Member>
bool For(const State& state) {
    return state.entry.*Member;
}

bool CanOpen(const State& state) {
    return !state.isOpen && state.menuRootExists;
}

bool CanUndo(const State& state) {
    return state.canUndo;
}

bool CanRedo(const State& state) {
    return state.canRedo;
}

using To = MainCommandTarget;

constexpr std::array<MainCommandInfo, MainCommandCount> Table{{
    {MainCommand::FileOpen, "mnuFileOpen", Message::MenuFile, Message::FileOpen, false, CanOpen,
     &To::FileOpen},
    {MainCommand::FileSave, "mnuFileSave", Message::MenuFile, Message::FileSave, false, IsOpen,
     &To::FileSave},
    {MainCommand::FileSaveAs, "mnuFileSaveAs", Message::MenuFile, Message::FileSaveAs, false, IsOpen,
     &To::FileSaveAs},
    {MainCommand::FileClose, "mnuFileClose", Message::MenuFile, Message::FileClose, false, IsOpen,
     &To::FileClose},
    {MainCommand::FileExit, "mnuFileExit", Message::MenuFile, Message::FileExit, true, Always, &To::FileExit},
    {MainCommand::Undo, "mnuEditUndo", Message::MenuEdit, Message::Undo, false, CanUndo, &To::Undo, true},
    {MainCommand::Redo, "mnuEditRedo", Message::MenuEdit, Message::Redo, false, CanRedo, &To::Redo, true,
     "Ctrl+Shift+Z"},
    {MainCommand::UndoHistory, "mnuEditUndoHistory", Message::MenuEdit, Message::UndoHistory, false, CanUndo,
     &To::UndoHistory},
    {MainCommand::Cut, "mnuEditCut", Message::MenuEdit, Message::Cut, true, For<&MenuCommands::copy>,
     &To::Cut, true},
    {MainCommand::Copy, "mnuEditCopy", Message::MenuEdit, Message::Copy, false, For<&MenuCommands::copy>,
     &To::Copy, true},
    {MainCommand::Paste, "mnuEditPaste", Message::MenuEdit, Message::Paste, false,
     For<&MenuCommands::pasteAfter>, &To::Paste, true},
    {MainCommand::PasteInside, "mnuEditPasteInside", Message::MenuEdit, Message::PasteInside, false,
     For<&MenuCommands::pasteInside>, &To::PasteInside, true},
    {MainCommand::Duplicate, "mnuEditDuplicate", Message::MenuEdit, Message::Duplicate, false,
     For<&MenuCommands::copy>, &To::Duplicate, true},
    {MainCommand::SelectAll, "mnuEditSelectAll", Message::MenuEdit, Message::SelectAll, true, IsOpen,
     &To::SelectAll, true},
    {MainCommand::AddPart, "mnuMenuAddPart", Message::MenuMenu, Message::AddPart, false,
     For<&MenuCommands::addPart>, &To::AddPart},
    {MainCommand::AddSubmenu, "mnuMenuAddSubmenu", Message::MenuMenu, Message::AddSubmenu, false,
     For<&MenuCommands::addSubmenu>, &To::AddSubmenu},
    {MainCommand::MoveUp, "mnuMenuUp", Message::MenuMenu, Message::MoveUp, true, For<&MenuCommands::moveUp>,
     &To::MoveUp},
    {MainCommand::MoveDown, "mnuMenuDown", Message::MenuMenu, Message::MoveDown, false,
     For<&MenuCommands::moveDown>, &To::MoveDown},
    {MainCommand::MoveOut, "mnuMenuMoveOut", Message::MenuMenu, Message::MoveOut, false,
     For<&MenuCommands::moveOut>, &To::MoveOut},
    {MainCommand::MoveIn, "mnuMenuMoveIn", Message::MenuMenu, Message::MoveIn, false,
     For<&MenuCommands::moveIn>, &To::MoveIn},
    {MainCommand::MoveTo, "mnuMenuMoveTo", Message::MenuMenu, Message::MoveTo, false,
     For<&MenuCommands::copy>, &To::MoveTo},
    {MainCommand::SortSubmenusFirst, "mnuMenuSortSubmenusFirst", Message::MenuMenu,
     Message::SortSubmenusFirst, true, For<&MenuCommands::sort>, &To::SortSubmenusFirst},
    {MainCommand::SortMixed, "mnuMenuSortMixed", Message::MenuMenu, Message::SortMixed, false,
     For<&MenuCommands::sort>, &To::SortMixed},
    {MainCommand::Edit, "mnuMenuEdit", Message::MenuMenu, Message::Edit, true, For<&MenuCommands::edit>,
     &To::EditSelected},
    {MainCommand::Rename, "mnuMenuRename", Message::MenuMenu, Message::Rename, false,
     For<&MenuCommands::rename>, &To::Rename},
    {MainCommand::Remove, "mnuMenuRemove", Message::MenuMenu, Message::Remove, false,
     For<&MenuCommands::remove>, &To::Remove},
    {MainCommand::SettingsAccess, "mnuSettingsAccess", Message::MenuSettings, Message::SettingsAccess, false,
     Always, &To::SettingsAccess},
    {MainCommand::SettingsOptions, "mnuSettingsOptions", Message::MenuSettings, Message::SettingsOptions,
     false, Always, &To::SettingsOptions},
    {MainCommand::HelpContents, "mnuHelpContents", Message::MenuHelp, Message::HelpContents, false, Always,
     &To::HelpContents},
    {MainCommand::HelpWindow, "mnuHelpWindow", Message::MenuHelp, Message::HelpWindow, false, Always,
     &To::HelpWindow},
    {MainCommand::HelpAbout, "mnuHelpAbout", Message::MenuHelp, Message::HelpAbout, true, Always,
     &To::HelpAbout},
}};

} // namespace

std::span<const MainCommandInfo> MainCommandTable() {
    return Table;
}

const MainCommandInfo& InfoOf(MainCommand command) {
    return *std::find_if(Table.begin(), Table.end(),
                         [command](const MainCommandInfo& info) { return info.command == command; });
}

bool Contains(const MainCommandSet& set, MainCommand command) {
    return set.test(static_cast<std::size_t>(command));
}

MainCommandSet EnabledCommands(const MenuEditor& editor, const EntryIds& selected, bool menuRootExists) {
    const MainCommandState state{editor.IsOpen(), menuRootExists, editor.History().ToUndo() != nullptr,
                                 editor.History().ToRedo() != nullptr, editor.CommandsFor(selected)};
    MainCommandSet enabled;
    for (const MainCommandInfo& info : Table)
        enabled.set(static_cast<std::size_t>(info.command), info.isEnabled(state));
    return enabled;
}

MainCommandSet CurrentCommands(const MenuEditor& editor, const EntryIds& selected,
                               const std::function<bool()>& menuRootExists) {
    return EnabledCommands(editor, selected, !editor.IsOpen() && menuRootExists());
}

} // namespace nesk
