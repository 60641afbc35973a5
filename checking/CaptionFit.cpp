#include "checking/CaptionFit.h"

#include "platform/Utf8.h"
#include "widgets/WrappedText.h"

#include <utility>

namespace nesk {

namespace {

// No button shows so much. Measuring a text of any length would take too long.
constexpr std::size_t MostBytes = 500;

constexpr std::string_view Ellipsis = "\xE2\x80\xA6";

std::string_view Beginning(std::string_view text, std::size_t length) {
    if (text.size() <= length) return text;
    while (length > 0 && platform::ContinuesCharacter(text[length]))
        --length;
    return text.substr(0, length);
}

} // namespace

CaptionFit::CaptionFit(ScreenSize screen, WidthOf widthOf) : m_widthOf(std::move(widthOf)) {
    const ButtonGrid grid(screen);
    m_width = grid.Caption(grid.Button(0)).width;
}

CaptionFit::Shown CaptionFit::Fit(std::string_view caption) const {
    const std::string_view text = Beginning(caption, MostBytes);
    const std::vector<std::string_view> lines = WrappedLines(text, m_width, m_widthOf);
    Shown shown;
    shown.isCut = lines.size() > MostLines || text.size() < caption.size();
    for (std::size_t i = 0; i < lines.size() && i < MostLines; ++i)
        shown.lines.emplace_back(lines[i]);
    if (shown.isCut) {
        const std::string_view last = lines[shown.lines.size() - 1];
        const std::string_view rest = text.substr(static_cast<std::size_t>(last.data() - text.data()));
        shown.lines.back() = Cut(rest.substr(0, rest.find('\n')));
    }
    return shown;
}

// The longest beginning of a text that still fits with "…" after it.
std::string CaptionFit::Cut(std::string_view text) const {
    const auto cutAt = [text](std::size_t length) {
        std::string_view line = Beginning(text, length);
        while (line.ends_with(' '))
            line.remove_suffix(1);
        return std::string(line).append(Ellipsis);
    };
    std::size_t fits = 0;
    std::size_t tooLong = text.size() + 1;
    while (tooLong - fits > 1) {
        const std::size_t middle = fits + (tooLong - fits) / 2;
        (m_widthOf(cutAt(middle)) <= m_width ? fits : tooLong) = middle;
    }
    return cutAt(fits);
}

} // namespace nesk
