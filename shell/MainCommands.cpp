#include "shell/MainCommands.h"

#include "shell/Messages.h"

#include <array>

namespace nesk {

namespace {

constexpr std::array<MainCommandInfo, MainCommandCount> Table{{
    {MainCommand::FileOpen, "mnuFileOpen", Message::MenuFile, Message::FileOpen, false, true},
    {MainCommand::FileSave, "mnuFileSave", Message::MenuFile, Message::FileSave, false, true},
    {MainCommand::FileClose, "mnuFileClose", Message::MenuFile, Message::FileClose, false, true},
    {MainCommand::FileExit, "mnuFileExit", Message::MenuFile, Message::FileExit, true, true},
    {MainCommand::AddPart, "mnuMenuAddPart", Message::MenuMenu, Message::AddPart, false, true},
    {MainCommand::AddSubmenu, "mnuMenuAddSubmenu", Message::MenuMenu, Message::AddSubmenu, false, true},
    {MainCommand::MoveUp, "mnuMenuUp", Message::MenuMenu, Message::MoveUp, true, true},
    {MainCommand::MoveDown, "mnuMenuDown", Message::MenuMenu, Message::MoveDown, false, true},
    {MainCommand::Edit, "mnuMenuEdit", Message::MenuMenu, Message::Edit, true, true},
    {MainCommand::Rename, "mnuMenuRename", Message::MenuMenu, Message::Rename, false, true},
    {MainCommand::Remove, "mnuMenuRemove", Message::MenuMenu, Message::Remove, false, true},
    {MainCommand::SettingsAccess, "mnuSettingsAccess", Message::MenuSettings, Message::SettingsAccess, false,
     true},
    {MainCommand::SettingsOptions, "mnuSettingsOptions", Message::MenuSettings, Message::SettingsOptions,
     false, false},
    {MainCommand::HelpContents, "mnuHelpContents", Message::MenuHelp, Message::HelpContents, false, true},
    {MainCommand::HelpWindow, "mnuHelpWindow", Message::MenuHelp, Message::HelpWindow, false, true},
}};

} // namespace

std::span<const MainCommandInfo> MainCommandTable() {
    return Table;
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
    for (const MainCommandInfo& info : Table)
        if (!info.available) set(info.command, false);
    return enabled;
}

} // namespace nesk
