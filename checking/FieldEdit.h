#pragma once

#include "checking/TextFields.h"
#include "editing/EntryIds.h"
#include "menu/PartFields.h"

#include <cstdint>
#include <functional>
#include <string>

namespace nesk {

class MenuEditor;
class MenuEntry;
class MenuItem;

/// Sets one field of one or more entries, as one step. Entries that do not have the field stay as they are: a
/// submenu has a caption and a picture. Each function returns false when nothing changes, and raises 5000 for
/// a text that cannot be stored; nothing has then changed.
namespace FieldEdit {

/// True when an entry has the field.
bool Has(const MenuEntry& entry, TextField field);

/// The text of a field as it is stored: a program that refers to a part has its "@". "" for a field that the
/// entry does not have.
std::string Stored(const MenuEntry& entry, TextField field);

/// @param text  as Stored returns it
bool Set(MenuEditor& editor, const EntryIds& ids, TextField field, const std::string& text);

/// Changes the fields of the part buttons among entries.
/// @param change  changes the fields of one of them
bool ChangeParts(MenuEditor& editor, const EntryIds& ids,
                 const std::function<void(const MenuItem&, PartFields&)>& change);

/// Sets the help topic of part buttons.
bool SetHelpTopic(MenuEditor& editor, const EntryIds& ids, std::int32_t topic);

} // namespace FieldEdit

} // namespace nesk
