#include "widgets/NumericKeyFilter.h"

namespace nesk::modUtilities {

NumericKeyFilter::NumericKeyFilter(bool allowSign, bool allowDecimal)
    : m_allowSign(allowSign), m_allowDecimal(allowDecimal) {}

bool NumericKeyFilter::Accepts(char32_t key, std::string_view text, std::size_t start,
                               std::size_t end) const {
    if (key < 32 || key == 127) return true;
    // Positions in characters are used as positions in bytes, because the filter accepts only single-byte
    // characters. A text that was set by the program may contain others, so positions are clamped.
    start = start < text.size() ? start : text.size();
    end = end < start ? start : end < text.size() ? end : text.size();
    const std::string rest = std::string(text.substr(0, start)) + std::string(text.substr(end));
    if (key >= U'0' && key <= U'9') return start > 0 || !rest.starts_with('-');
    if (key == U'-') return m_allowSign && start == 0 && rest.find('-') == std::string::npos;
    if (key == U'.')
        return m_allowDecimal && rest.find('.') == std::string::npos && (start > 0 || !rest.starts_with('-'));
    return false;
}

std::string NumericKeyFilter::Clean(std::string_view text) const {
    std::string result;
    for (const char c : text) {
        const auto key = static_cast<char32_t>(static_cast<unsigned char>(c));
        if (key >= 32 && key < 127 && Accepts(key, result, result.size(), result.size())) result += c;
    }
    return result;
}

} // namespace nesk::modUtilities
