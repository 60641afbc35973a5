#include "shell/MainCommands.h"

#include "base/Messages.h"

#include <algorithm>
#include <array>

namespace nesk {

namespace {

constexpr std::array<MainCommandInfo, MainCommandCount> Table{{
    {MainCommand::FileOpen, "mnuFileOpen", Message::MenuFile, Message::FileOpen, false},
    {MainCommand::FileSave, "mnuFileSave", Message::MenuFile, Message::FileSave, false},
    {MainCommand::FileSaveAs, "mnuFileSaveAs", Message::MenuFile, Message::FileSaveAs, false},
    {MainCommand::FileClose, "mnuFileClose", Message::MenuFile, Message::FileClose, false},
    {MainCommand::FileExit, "mnuFileExit", Message::MenuFile, Message::FileExit, true},
    {MainCommand::AddPart, "mnuMenuAddPart", Message::MenuMenu, Message::AddPart, false},
    {MainCommand::AddSubmenu, "mnuMenuAddSubmenu", Message::MenuMenu, Message::AddSubmenu, false},
    {MainCommand::MoveUp, "mnuMenuUp", Message::MenuMenu, Message::MoveUp, true},
    {MainCommand::MoveDown, "mnuMenuDown", Message::MenuMenu, Message::MoveDown, false},
    {MainCommand::Edit, "mnuMenuEdit", Message::MenuMenu, Message::Edit, true},
    {MainCommand::Rename, "mnuMenuRename", Message::MenuMenu, Message::Rename, false},
    {MainCommand::Remove, "mnuMenuRemove", Message::MenuMenu, Message::Remove, false},
    {MainCommand::SettingsAccess, "mnuSettingsAccess", Message::MenuSettings, Message::SettingsAccess, false},
    {MainCommand::SettingsOptions, "mnuSettingsOptions", Message::MenuSettings, Message::SettingsOptions,
     false},
    {MainCommand::HelpContents, "mnuHelpContents", Message::MenuHelp, Message::HelpContents, false},
    {MainCommand::HelpWindow, "mnuHelpWindow", Message::MenuHelp, Message::HelpWindow, false},
    {MainCommand::HelpAbout, "mnuHelpAbout", Message::MenuHelp, Message::HelpAbout, true},
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

MainCommandSet EnabledCommands(const MenuEditor& editor, const std::string& selectedId, bool menuRootExists) {
    const bool open = editor.IsOpen();
    const MenuCommands menu = editor.CommandsFor(selectedId);
    MainCommandSet enabled;
    const auto set = [&](MainCommand command, bool value) {
        enabled.set(static_cast<std::size_t>(command), value);
    };
    set(MainCommand::FileOpen, !open && menuRootExists);
    set(MainCommand::FileSave, open);
    set(MainCommand::FileSaveAs, open);
    set(MainCommand::FileClose, open);
    set(MainCommand::FileExit, true);
    set(MainCommand::AddPart, menu.addPart);
    set(MainCommand::AddSubmenu, menu.addSubmenu);
    set(MainCommand::MoveUp, menu.moveUp);
    set(MainCommand::MoveDown, menu.moveDown);
    set(MainCommand::Edit, menu.edit);
    set(MainCommand::Rename, menu.rename);
    set(MainCommand::Remove, menu.remove);
    set(MainCommand::SettingsAccess, true);
    set(MainCommand::SettingsOptions, true);
    set(MainCommand::HelpContents, true);
    set(MainCommand::HelpWindow, true);
    set(MainCommand::HelpAbout, true);
    return enabled;
}

MainCommandSet CurrentCommands(const MenuEditor& editor, const std::string& selectedId,
                               const std::function<bool()>& menuRootExists) {
    return EnabledCommands(editor, selectedId, !editor.IsOpen() && menuRootExists());
}

} // namespace nesk
