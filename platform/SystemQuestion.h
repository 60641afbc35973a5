#pragma once

#include <optional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// Asks a Yes/No question with the system's message box. Neither Escape nor a close box dismisses it.
/// @return empty when the box was nevertheless closed without an answer
std::optional<bool> AskYesOrNo(wxWindow* parent, const std::string& text, const std::string& title);

} // namespace nesk::platform
