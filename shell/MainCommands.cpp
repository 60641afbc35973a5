#include "shell/MainCommands.h"

#include "base/AddPartsMessages.h"
#include "base/LanguageMessages.h"
#include "base/Messages.h"
#include "base/PreviewMessages.h"
#include "base/ProblemMessages.h"
#include "base/ReportMessages.h"
#include "base/UnsavedMessages.h"

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

// The places of a command. Icon: only an identifier. Button: also in the tool bar. ForEntry: in the context
// menu of the tree. Moving, Finding: in a submenu of it. Check: a check mark in the menu.
constexpr CommandPlaces Icon(const char* icon) {
    return {icon, false, ContextPlace::None};
}
constexpr CommandPlaces Button(const char* icon) {
    return {icon, true, ContextPlace::None};
}
constexpr CommandPlaces EntryButton(const char* icon) {
    return {icon, true, ContextPlace::Menu};
}
constexpr CommandPlaces Moving(const char* icon = nullptr) {
    return {icon, icon != nullptr, ContextPlace::MoveSubmenu};
}
constexpr CommandPlaces Finding(const char* icon = nullptr) {
    return {icon, false, ContextPlace::FindSubmenu};
}
constexpr CommandPlaces ForEntry{nullptr, false, ContextPlace::Menu};
constexpr CommandPlaces Check{nullptr, false, ContextPlace::None, true};

constexpr std::array<MainCommandInfo, MainCommandCount> Table{{
    {MainCommand::FileOpen, "mnuFileOpen", Message::MenuFile, Message::FileOpen, false, CanOpen,
     &To::FileOpen, false, nullptr, Button("open")},
    {MainCommand::FileSave, "mnuFileSave", Message::MenuFile, Message::FileSave, false, IsOpen, &To::FileSave,
     false, nullptr, Button("save")},
    {MainCommand::FileSaveAs, "mnuFileSaveAs", Message::MenuFile, Message::FileSaveAs, false, IsOpen,
     &To::FileSaveAs, false, nullptr, Icon("save-as")},
    {MainCommand::Versions, "mnuFileVersions", Message::MenuFile, Message::CommandVersions, true, IsOpen,
     &To::Versions, false, nullptr},
    {MainCommand::Report, "mnuFileReport", Message::MenuFile, Message::CommandReport, false, IsOpen,
     &To::Report, false, nullptr},
    {MainCommand::FileClose, "mnuFileClose", Message::MenuFile, Message::FileClose, true, IsOpen,
     &To::FileClose, false, nullptr, Icon("close")},
    {MainCommand::FileExit, "mnuFileExit", Message::MenuFile, Message::FileExit, true, Always, &To::FileExit,
     false, nullptr, Icon("exit")},
    {MainCommand::Undo, "mnuEditUndo", Message::MenuEdit, Message::Undo, false, CanUndo, &To::Undo, true,
     nullptr, EntryButton("undo")},
    {MainCommand::Redo, "mnuEditRedo", Message::MenuEdit, Message::Redo, false, CanRedo, &To::Redo, true,
     "Ctrl+Shift+Z", EntryButton("redo")},
    {MainCommand::UndoHistory, "mnuEditUndoHistory", Message::MenuEdit, Message::UndoHistory, false, CanUndo,
     &To::UndoHistory, false, nullptr, ForEntry},
    {MainCommand::Cut, "mnuEditCut", Message::MenuEdit, Message::Cut, true, For<&MenuCommands::copy>,
     &To::Cut, true, nullptr, EntryButton("cut")},
    {MainCommand::Copy, "mnuEditCopy", Message::MenuEdit, Message::Copy, false, For<&MenuCommands::copy>,
     &To::Copy, true, nullptr, EntryButton("copy")},
    {MainCommand::Paste, "mnuEditPaste", Message::MenuEdit, Message::Paste, false,
     For<&MenuCommands::pasteAfter>, &To::Paste, true, nullptr, EntryButton("paste")},
    {MainCommand::PasteInside, "mnuEditPasteInside", Message::MenuEdit, Message::PasteInside, false,
     For<&MenuCommands::pasteInside>, &To::PasteInside, true, nullptr, ForEntry},
    {MainCommand::Duplicate, "mnuEditDuplicate", Message::MenuEdit, Message::Duplicate, false,
     For<&MenuCommands::copy>, &To::Duplicate, true, nullptr, ForEntry},
    {MainCommand::SelectAll,
     "mnuEditSelectAll",
     Message::MenuEdit,
     Message::SelectAll,
     true,
     IsOpen,
     &To::SelectAll,
     true,
     nullptr,
     {"select-all", false, ContextPlace::Menu}},
    {MainCommand::Find, "mnuEditFind", Message::MenuEdit, Message::Find, true, IsOpen, &To::Find, false,
     nullptr, Finding("find")},
    {MainCommand::FindNext, "mnuEditFindNext", Message::MenuEdit, Message::FindNext, false, IsOpen,
     &To::FindNext, false, nullptr, Finding()},
    {MainCommand::FindPrevious, "mnuEditFindPrevious", Message::MenuEdit, Message::FindPrevious, false,
     IsOpen, &To::FindPrevious, false, nullptr, Finding()},
    {MainCommand::ShowMatches, "mnuEditShowMatches", Message::MenuEdit, Message::ShowMatches, false, IsOpen,
     &To::ShowMatches, false, nullptr, Finding()},
    {MainCommand::Replace, "mnuEditReplace", Message::MenuEdit, Message::Replace, true, IsOpen, &To::Replace,
     false, nullptr, Finding("replace")},
    {MainCommand::ChangeFolder, "mnuEditChangeFolder", Message::MenuEdit, Message::ChangeFolder, false,
     IsOpen, &To::ChangeFolder, false, nullptr, Finding()},
    {MainCommand::AddPart, "mnuMenuAddPart", Message::MenuMenu, Message::AddPart, false,
     For<&MenuCommands::addPart>, &To::AddPart, false, nullptr, EntryButton("add-part")},
    {MainCommand::AddSubmenu, "mnuMenuAddSubmenu", Message::MenuMenu, Message::AddSubmenu, false,
     For<&MenuCommands::addSubmenu>, &To::AddSubmenu, false, nullptr, EntryButton("add-submenu")},
    {MainCommand::AddParts, "mnuMenuAddParts", Message::MenuMenu, Message::CommandAddParts, false,
     For<&MenuCommands::addParts>, &To::AddParts, false, nullptr, ForEntry},
    {MainCommand::MoveUp, "mnuMenuUp", Message::MenuMenu, Message::MoveUp, true, For<&MenuCommands::moveUp>,
     &To::MoveUp, false, nullptr, Moving("up")},
    {MainCommand::MoveDown, "mnuMenuDown", Message::MenuMenu, Message::MoveDown, false,
     For<&MenuCommands::moveDown>, &To::MoveDown, false, nullptr, Moving("down")},
    {MainCommand::MoveOut, "mnuMenuMoveOut", Message::MenuMenu, Message::MoveOut, false,
     For<&MenuCommands::moveOut>, &To::MoveOut, false, nullptr, Moving()},
    {MainCommand::MoveIn, "mnuMenuMoveIn", Message::MenuMenu, Message::MoveIn, false,
     For<&MenuCommands::moveIn>, &To::MoveIn, false, nullptr, Moving()},
    {MainCommand::MoveTo, "mnuMenuMoveTo", Message::MenuMenu, Message::MoveTo, false,
     For<&MenuCommands::copy>, &To::MoveTo, false, nullptr, Moving()},
    {MainCommand::SortSubmenusFirst, "mnuMenuSortSubmenusFirst", Message::MenuMenu,
     Message::SortSubmenusFirst, true, For<&MenuCommands::sort>, &To::SortSubmenusFirst, false, nullptr,
     Moving()},
    {MainCommand::SortMixed, "mnuMenuSortMixed", Message::MenuMenu, Message::SortMixed, false,
     For<&MenuCommands::sort>, &To::SortMixed, false, nullptr, Moving()},
    {MainCommand::Edit, "mnuMenuEdit", Message::MenuMenu, Message::Edit, true, For<&MenuCommands::edit>,
     &To::EditSelected, false, nullptr, EntryButton("edit")},
    {MainCommand::Rename, "mnuMenuRename", Message::MenuMenu, Message::Rename, false,
     For<&MenuCommands::rename>, &To::Rename, false, nullptr, ForEntry},
    {MainCommand::Remove, "mnuMenuRemove", Message::MenuMenu, Message::Remove, false,
     For<&MenuCommands::remove>, &To::Remove, false, nullptr, EntryButton("remove")},
    {MainCommand::ViewPreview, "mnuViewPreview", Message::MenuView, Message::CommandPreview, false, IsOpen,
     &To::ViewPreview, false, nullptr, Check},
    {MainCommand::ViewProblems, "mnuViewProblems", Message::MenuView, Message::CommandProblems, false, IsOpen,
     &To::ViewProblems, false, nullptr, Check},
    {MainCommand::ViewToolBar, "mnuViewToolBar", Message::MenuView, Message::ViewToolBar, true, Always,
     &To::ViewToolBar, false, nullptr, Check},
    {MainCommand::ViewStatusBar, "mnuViewStatusBar", Message::MenuView, Message::ViewStatusBar, false, Always,
     &To::ViewStatusBar, false, nullptr, Check},
    {MainCommand::ExpandBelow, "mnuViewExpandBelow", Message::MenuView, Message::ExpandBelow, true,
     For<&MenuCommands::addPart>, &To::ExpandBelow, false, nullptr, ForEntry},
    {MainCommand::CollapseAll, "mnuViewCollapseAll", Message::MenuView, Message::CollapseAll, false, IsOpen,
     &To::CollapseAll, false, nullptr, ForEntry},
    {MainCommand::SettingsAccess, "mnuSettingsAccess", Message::MenuSettings, Message::SettingsAccess, false,
     Always, &To::SettingsAccess},
    {MainCommand::SettingsOptions, "mnuSettingsOptions", Message::MenuSettings, Message::SettingsOptions,
     false, Always, &To::SettingsOptions, false, nullptr, Icon("preferences")},
    {MainCommand::SettingsLanguage, "mnuSettingsLanguage", Message::MenuSettings, Message::CommandLanguage,
     false, Always, &To::SettingsLanguage},
    {MainCommand::HelpContents, "mnuHelpContents", Message::MenuHelp, Message::HelpContents, false, Always,
     &To::HelpContents, false, nullptr, Icon("help")},
    {MainCommand::HelpWindow, "mnuHelpWindow", Message::MenuHelp, Message::HelpWindow, false, Always,
     &To::HelpWindow},
    {MainCommand::HelpAbout, "mnuHelpAbout", Message::MenuHelp, Message::HelpAbout, true, Always,
     &To::HelpAbout, false, nullptr, Icon("about")},
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
