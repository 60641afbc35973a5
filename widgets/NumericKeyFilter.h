#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nesk::modUtilities {

/// Decides which keys a text box for a number lets through, so that it can only ever hold a number.
class NumericKeyFilter {
public:
    /// @param allowSign     a "-" may stand at the front
    /// @param allowDecimal  one "." may stand among the digits
    explicit NumericKeyFilter(bool allowSign = false, bool allowDecimal = false);

    /// True when the character may be typed. Control characters (editing keys) always may.
    /// @param key    Unicode code point typed
    /// @param text   what the box holds
    /// @param start  0-based position in `text`, in characters, at which the selection or the caret stands
    /// @param end    position after the selection, which the character would replace; `start` for a caret
    bool Accepts(char32_t key, std::string_view text, std::size_t start, std::size_t end) const;

    /// What remains of a pasted text when it is typed character by character into an empty box.
    std::string Clean(std::string_view text) const;

private:
    bool m_allowSign;
    bool m_allowDecimal;
};

} // namespace nesk::modUtilities
