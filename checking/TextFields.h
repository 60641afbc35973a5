#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <string>
#include <string_view>

namespace nesk {

class MenuEntry;

/// A text of a menu entry that can be searched and replaced.
enum class TextField { Caption, Program, Picture, Preview, HelpFile, HistoryDir, HistoryTitle, Count };

constexpr std::size_t TextFieldCount = static_cast<std::size_t>(TextField::Count);

/// A set of fields.
using TextFieldSet = std::bitset<TextFieldCount>;

/// Properties of a field.
struct TextFieldInfo {
    TextField field;
    int nameId; ///< message number of its name, with an access key
};

/// All fields in the order in which they are shown.
const std::array<TextFieldInfo, TextFieldCount>& TextFields();

/// The name of a field without its access key, for example "Picture".
std::string TextFieldName(TextField field);

/// The text of a field; "" for a field that the entry does not have. A program that refers to a part is the
/// path of its partinfo.ini, without the "@" around it.
std::string_view FieldText(const MenuEntry& entry, TextField field);

} // namespace nesk
