#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace nesk {

/// One button of the message box.
struct MessageBoxButton {
    std::string_view caption;
    std::int16_t resultCode;
};

/// The parsed option word of a message box.
struct MessageBoxLayout {
    /// Left to right; empty for a button set that does not exist.
    std::vector<MessageBoxButton> buttons;
    /// "Critical", "Question", "Exclamation", "Information", or "" for no icon.
    std::string_view icon;
    /// 1-based index of the button that gets the focus.
    std::int16_t defaultButton = 1;

    /// Result code of the Escape key: Cancel when there is a Cancel button, OK when OK is the only button,
    /// otherwise 0, which means no answer.
    std::int16_t EscapeCode() const;
};

/// Parses an option word: button set in the low four bits, icon in mask 0xF0, default button in mask 0x300.
MessageBoxLayout LayoutOf(std::int16_t options);

} // namespace nesk
