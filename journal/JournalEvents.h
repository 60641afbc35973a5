#pragma once

#include "editing/MenuChange.h"
#include "journal/JournalCode.h"

namespace nesk {

class Menu;

/// The events of an open menu in a journal.
namespace JournalEvents {

/// Appends an event with everything that it takes to repeat it.
/// @param menu  the menu as it is directly after the event
void Append(JournalEncoder& out, const MenuEvent& event, const Menu& menu);

/// Appends an event that replaces everything in a menu by what is now in it.
void AppendWhole(JournalEncoder& out, const Menu& menu);

/// Reads an event and repeats it in a menu that is in the state before it. Raises JournalDamage when that is
/// not possible; the menu is then in any state.
void Repeat(JournalDecoder& in, Menu& menu);

} // namespace JournalEvents

} // namespace nesk
