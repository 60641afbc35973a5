#pragma once

#include <optional>
#include <string>

class wxWindow;

namespace nesk::platform {

/// Asks a question with the system's message box that has to be answered with Yes or No: neither Escape nor
/// the close box takes it away.
/// @return nothing when it was taken away all the same
std::optional<bool> AskYesOrNo(wxWindow* parent, const std::string& text, const std::string& title);

} // namespace nesk::platform
