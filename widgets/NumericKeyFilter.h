#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nesk::modUtilities {

/// A key filter for number boxes: it rejects all characters that would make the text something other than a
/// number.
class NumericKeyFilter {
public:
    /// @param allowSign     the text may begin with "-"
    /// @param allowDecimal  the text may contain one "."
    explicit NumericKeyFilter(bool allowSign = false, bool allowDecimal = false);

    /// True when the character may be typed. Control characters (editing keys) are always allowed.
    /// @param key    Unicode code point typed
    /// @param text   the current text of the box
    /// @param start  0-based position in `text`, in characters, of the caret or of the start of the selection
    /// @param end    position after the selection, which the character would replace; `start` when there is
    ///               no selection
    bool Accepts(char32_t key, std::string_view text, std::size_t start, std::size_t end) const;

    /// The part of a pasted text that remains when it is typed character by character into an empty box.
    std::string Clean(std::string_view text) const;

private:
    bool m_allowSign;
    bool m_allowDecimal;
};

} // namespace nesk::modUtilities
