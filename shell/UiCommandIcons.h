#pragma once

#include "shell/MainCommands.h"

#include <optional>

#include <wx/bmpbndl.h>

namespace nesk {

/// The identifier of a command's menu item and button: the toolkit's own one where it has one for commands of
/// this kind, so that each system treats the command in its usual way.
int CommandId(MainCommand command);

/// The command with this identifier; nothing for other identifiers.
std::optional<MainCommand> CommandOf(int id);

/// The picture of a command in the tool bar: the system's own one where it has one, otherwise one of the
/// program (UiIcons.h).
/// @param icon  CommandPlaces::icon of the command
/// @return an empty bundle for a command without a picture
wxBitmapBundle CommandIcon(const char* icon);

} // namespace nesk
