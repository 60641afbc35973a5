#pragma once

#include "menu/MenuKeys.h"

#include <array>
#include <cstdint>
#include <string>

namespace nesk {

class MenuEntry;
class MenuItem;

/// The fields of an entry, each addressed by its key in the menu file. The root has only caption and picture;
/// its other fields are empty.
namespace EntryFields {

/// All fields, in the order of the file.
inline constexpr std::array All{MenuKey::Caption,   MenuKey::Graphic,    MenuKey::Preview,
                                MenuKey::HelpFile,  MenuKey::HelpTopic,  MenuKey::MenuType,
                                MenuKey::ProgramId, MenuKey::HistoryDir, MenuKey::HistoryTitle};
static_assert(All.size() == MenuKeys.size());

/// The fields that hold a text.
inline constexpr std::array Texts{MenuKey::Caption,    MenuKey::Graphic,     MenuKey::Preview,
                                  MenuKey::HelpFile,   MenuKey::MenuType,    MenuKey::ProgramId,
                                  MenuKey::HistoryDir, MenuKey::HistoryTitle};

/// The values of all fields, indexed by MenuKey. The help topic is a decimal number.
using Values = std::array<std::string, All.size()>;

/// A field that holds a text; "" for the help topic, and for fields that the root has not.
std::string_view TextOf(const MenuEntry& entry, MenuKey field);

/// The help topic; 0 for the root.
std::int32_t TopicOf(const MenuEntry& entry);

/// Any field as text; the help topic as a decimal number.
std::string ValueOf(const MenuEntry& entry, MenuKey field);

/// All fields as texts.
Values ValuesOf(const MenuEntry& entry);

/// True when both entries have the same value in a field.
bool IsSame(const MenuEntry& one, const MenuEntry& other, MenuKey field);

/// True when both entries have the same values in all fields.
bool AreSame(const MenuEntry& one, const MenuEntry& other);

/// Sets a field to a value that ValueOf returned. Fields that the root has not are ignored for it.
void Set(MenuEntry& entry, MenuKey field, const std::string& value);

/// Sets all fields of an entry to those of another one.
void Copy(const MenuEntry& from, MenuEntry& to);

/// True for a part button, and false for the root.
bool IsPart(const MenuEntry& entry);

} // namespace EntryFields
} // namespace nesk
