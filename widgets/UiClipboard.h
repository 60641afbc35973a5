#pragma once

#include <optional>
#include <string>
#include <string_view>

/// The system's clipboard.
namespace nesk::Clipboard {

/// Puts a text on the clipboard, where it stays when the program ends. Raises 5000 when another program is
/// using the clipboard.
void SetText(std::string_view text);

/// The text on the clipboard; nothing when it holds no text. Raises 5000 when another program is using the
/// clipboard.
std::optional<std::string> Text();

} // namespace nesk::Clipboard
